#pragma once

#include "platform/skin/SkinValues.h"

#include <QPalette>
#include <QPointer>
#include <optional>

class QWidget;

namespace skin {

class SkinStyle;

/// What the apply options of SkinFramework may hold, added up.
enum ApplyOption : int {
    ApplyNothing = 0,
    /// Every window of the program that is created from now on has the skin, too.
    ApplyToNewWindows = 4,
};

/// The look-and-feel control of a program: loads a skin from a style file and gives it to windows. Without a
/// loaded skin everything works in the toolkit's own look, so a program survives a lost or damaged style
/// file. Style and palette stay with the windows when this object goes.
class SkinFramework {
public:
    /// Loads a section (such as "LightBlue.ini") of a style file; windows change with applyWindow.
    /// Raises 53 (file missing), 75 (not readable) or 5 (damaged: the text names file and line); a skin that
    /// was loaded before stays.
    void loadSkin(const QString& styleFile, const QString& iniName);

    bool isLoaded() const { return m_values.has_value(); }

    /// Gives a window and everything in it the skin and the programs' font. Without a skin, only the font.
    /// Controls that are added to the window later have the skin with apply option 4.
    void applyWindow(QWidget& window);

    /// A sum of ApplyOption; bits without a meaning are kept and have no effect.
    void setApplyOptions(int options);
    int applyOptions() const { return m_options; }

private:
    void applyToApplication();
    SkinStyle* style();

    std::optional<SkinValues> m_values;
    /// Belongs to the application: windows may outlive this object.
    QPointer<SkinStyle> m_style;
    int m_options = ApplyNothing;
};

} // namespace skin
