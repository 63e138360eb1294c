#pragma once

#include <QIcon>
#include <QString>
#include <QStringList>

namespace skin {

/// The two colour schemes that every image is drawn in.
enum class ImageTone {
    Normal,
    Hot, ///< brighter, for the button under the mouse
};

/// A list of images found by key, as toolbars take them. The pictures are part of the program, drawn once in
/// the build for every size and scale that screens ask for, so that showing one costs a small file's decoding
/// and listing one costs nothing. The disabled look is derived from the normal one when it is asked for.
class ImageList {
public:
    explicit ImageList(ImageTone tone = ImageTone::Normal) : m_tone(tone) {}

    /// Keys of all images, in the order of the list.
    static const QStringList& keys();

    ImageTone tone() const { return m_tone; }

    /// Image of a key; letter case counts. Raises 3265 for an unknown key.
    QIcon icon(const QString& key) const;

private:
    ImageTone m_tone;
};

/// One icon of two lists: the image of the first list, and that of the second while the mouse is over it.
/// Raises 3265 for an unknown key.
QIcon toolIcon(const ImageList& normal, const ImageList& hot, const QString& key);

/// Icon of the report viewer's bar, brighter while the mouse is over it: "panel", "exportar", "copiar",
/// "alejar", "acercar", "ancho", "pagina", "buscar", "arriba", "abajo" or "quitar".
QIcon reportIcon(const QString& name);

/// Icon of a message box: "informacion", "pregunta", "advertencia" or "error".
QIcon messageIcon(const QString& name);

/// White arrow for dark bars, as in the calendar's title: "anterior" (left) or "siguiente" (right).
QIcon arrowIcon(const QString& name);

/// Icon of the program's windows.
QIcon windowIcon();

} // namespace skin
