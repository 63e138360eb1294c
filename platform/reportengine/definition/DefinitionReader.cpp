#include "platform/reportengine/definition/DefinitionReader.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/definition/DefinitionBuilder.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quorvane::report {

namespace {

using namespace Qt::StringLiterals;

/// A definition is written by hand; what is larger is another file.
constexpr qint64 largestFile = 10'485'760;

QByteArray contentsOf(const QString& path) {
    const QString shown = QDir::toNativeSeparators(path);
    if (!QFileInfo(path).isFile())
        throw RunTimeError(ErrorFileNotFound, u"No se encontró el archivo de reporte '%1'"_s.arg(shown));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw RunTimeError(ErrorPathAccess, u"No se puede leer el archivo de reporte '%1'"_s.arg(shown));
    QByteArray contents = file.read(largestFile + 1);
    if (file.error() != QFileDevice::NoError)
        throw RunTimeError(ErrorPathAccess, u"No se puede leer el archivo de reporte '%1'"_s.arg(shown));
    return contents;
}

} // namespace

Definition readDefinition(const QString& path) {
    const QByteArray contents = contentsOf(path);
    const Damage damage(path);
    if (contents.size() > largestFile)
        damage.raise(1, u"el archivo pasa de 10 MB"_s);
    const Element root = ElementReader(contents, damage).read();
    return DefinitionBuilder(damage, path).build(root);
}

} // namespace quorvane::report
