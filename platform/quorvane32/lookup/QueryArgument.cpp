#include "platform/quorvane32/lookup/QueryArgument.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QDir>
#include <QFileInfo>

namespace quorvane {

namespace {

/// Position of the "#" that ends the file name, or -1 when no parameters follow.
qsizetype fileEnd(QStringView text) {
    constexpr QStringView extension = u".qry";
    const qsizetype known = text.indexOf(u".qry#", 0, Qt::CaseInsensitive);
    return known >= 0 ? known + extension.size() : text.indexOf(u'#');
}

} // namespace

QueryArgument QueryArgument::parse(const QString& text) {
    const qsizetype at = text.indexOf(u'@');
    if (at < 0)
        raise(ErrorInvalidCall);
    QueryArgument argument;
    argument.query = text.first(at).trimmed();
    const QString rest = text.sliced(at + 1);
    const qsizetype end = fileEnd(rest);
    argument.file = end < 0 ? rest : rest.first(end);
    if (end >= 0)
        argument.parameters = rest.sliced(end + 1).split(u'#');
    return argument;
}

QString locateFile(const QString& path) {
    for (const QString& candidate : {path, QString(path).replace(u'\\', u'/')}) {
        const QFileInfo file(candidate);
        if (file.isFile())
            return candidate;
        const QDir folder = file.dir();
        for (const QString& entry : folder.entryList(QDir::Files | QDir::Hidden, QDir::Name)) {
            if (entry.compare(file.fileName(), Qt::CaseInsensitive) == 0)
                return folder.filePath(entry);
        }
    }
    return path;
}

} // namespace quorvane
