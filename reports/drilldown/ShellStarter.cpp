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
#ifndef Q_OS_WIN
    path.replace(u'\\', u'/');
    if (path.startsWith(u"C:/", Qt::CaseInsensitive))
        path.remove(0, 2);
#endif
    return path;
}

} // namespace

QString ShellStarter::find(const QString& file) const {
    QString path = nativePath(file);
    if (path.contains(u'/') || path.contains(u'\\'))
        return path;
    QString beside = m_programFolder + u'/' + path;
    if (QFileInfo::exists(beside))
        return beside;
    return QStandardPaths::findExecutable(path);
}

int ShellStarter::open(const QString& file, const QString& workingFolder, int) {
    const QFileInfo program(find(file));
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
