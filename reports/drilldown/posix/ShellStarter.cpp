#include "reports/drilldown/ShellStarter.h"
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace dalvora {

namespace {

enum ShellResult : int {
    FileNotFound = 2,
    FolderNotFound = 3,
    AccessDenied = 5,
    BadFormat = 11,
    Started = 42, ///< any number above 32
};

QString nativePath(QString path) {
    path.replace(u'\\', u'/');
    if (path.startsWith(u"C:/", Qt::CaseInsensitive))
        path.remove(0, 2);
    return path;
}

QString find(const QString& file, const QString& programFolder) {
    QString path = nativePath(file);
    if (path.contains(u'/'))
        return path;
    QString beside = programFolder + u'/' + path;
    if (QFileInfo::exists(beside))
        return beside;
    return QStandardPaths::findExecutable(path);
}

} // namespace

int ShellStarter::open(const QString& file, const QString& workingFolder, int) {
    const QFileInfo program(find(file, m_programFolder));
    if (!program.isFile())
        return program.filePath().isEmpty() || program.dir().exists() ? FileNotFound : FolderNotFound;
    if (!program.isExecutable())
        return AccessDenied;
    const QString folder = nativePath(workingFolder);
    if (!QFileInfo(folder).isDir())
        return FolderNotFound;
    return QProcess::startDetached(program.absoluteFilePath(), {}, folder) ? Started : BadFormat;
}

} // namespace dalvora
