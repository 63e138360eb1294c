#include "platform/skin/ImageList.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/skin/PictureEngine.h"

#include <QResource>

// Outside of any namespace, as the macro wants it.
static void usePictures() {
    Q_INIT_RESOURCE(skin_pictures);
}

namespace skin {

namespace {

using namespace Qt::StringLiterals;

/// The sizes that the build drew, ascending; the same as in tool/RenderPictures.cpp.
const QList<int> iconSizes{16, 20, 24, 30, 32, 36, 48, 64, 72, 96};
const QList<int> arrowSizes{16, 20, 24, 32, 48};
const QList<int> messageSizes{32, 40, 48, 64, 96};
const QList<int> windowSizes{16, 24, 32, 48, 64, 128, 256};

QString pathOf(ImageTone tone, const QString& key) {
    return (tone == ImageTone::Hot ? u":/skin/hot/"_s : u":/skin/normal/"_s) + key;
}

QIcon iconOf(const QString& normal, const QString& hot, const QList<int>& sizes) {
    usePictures();
    return QIcon(new PictureEngine(normal, hot, sizes));
}

void requireKey(const QString& key) {
    if (!ImageList::keys().contains(key))
        quorvane::raise(quorvane::ErrorItemNotFound);
}

} // namespace

const QStringList& ImageList::keys() {
    static const QStringList all{u"limpiar"_s,   u"leer"_s,    u"eliminar"_s, u"grabar"_s, u"inicio"_s,
                                 u"retrocede"_s, u"avanza"_s,  u"final"_s,    u"cerrar"_s, u"aceptar"_s,
                                 u"ayuda"_s,     u"vprevia"_s, u"imprimir"_s, u"texto"_s,  u"word"_s,
                                 u"excel"_s,     u"web"_s,     u"navega"_s,   u"grid"_s,   u"Vendedores"_s};
    return all;
}

QIcon ImageList::icon(const QString& key) const {
    requireKey(key);
    const QString path = pathOf(m_tone, key);
    return iconOf(path, path, iconSizes);
}

QIcon toolIcon(const ImageList& normal, const ImageList& hot, const QString& key) {
    requireKey(key);
    return iconOf(pathOf(normal.tone(), key), pathOf(hot.tone(), key), iconSizes);
}

QIcon reportIcon(const QString& name) {
    return iconOf(u":/skin/report/"_s + name, u":/skin/report-hot/"_s + name, iconSizes);
}

QIcon messageIcon(const QString& name) {
    const QString path = u":/skin/message/"_s + name;
    return iconOf(path, path, messageSizes);
}

QIcon arrowIcon(const QString& name) {
    const QString path = u":/skin/arrow/"_s + name;
    return iconOf(path, path, arrowSizes);
}

QIcon windowIcon() {
    const QString path = u":/skin/window/dalvora"_s;
    return iconOf(path, path, windowSizes);
}

} // namespace skin
