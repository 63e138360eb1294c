#include "tests/windows/drilldown/StartedPrograms.h"
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QThread>
#include <gtest/gtest.h>
#include <windows.h>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int tenSeconds = 10000;
const QString programs = u"Archivos de programa Ñandú"_s;

} // namespace

StartedPrograms::StartedPrograms(const QByteArray& mode) {
    EXPECT_TRUE(QDir(m_folder.path()).mkdir(programs));
    qputenv("DDE_DOUBLE", mode);
    qputenv("DDE_DOUBLE_LOG", m_folder.filePath(u"log"_s).toLocal8Bit());
}

StartedPrograms::~StartedPrograms() {
    for (const QString& number : told(u"process"_s)) {
        if (HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, number.toUInt())) {
            TerminateProcess(process, 0);
            WaitForSingleObject(process, tenSeconds);
            CloseHandle(process);
        }
    }
}

QString StartedPrograms::folder() const {
    return QDir::toNativeSeparators(m_folder.filePath(programs));
}

void StartedPrograms::install(const QString& name) const {
    ASSERT_TRUE(QFile::copy(QStringLiteral(DDE_DOUBLE), folder() + u'\\' + name));
}

QStringList StartedPrograms::told(const QString& what) const {
    QFile file(m_folder.filePath(u"log"_s));
    QStringList result;
    if (!file.open(QIODevice::ReadOnly))
        return result;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n'))
        if (line == what || line.startsWith(what + u' '))
            result << line.mid(what.size() + 1);
    return result;
}

bool StartedPrograms::isReady() const {
    const QDeadlineTimer deadline(tenSeconds);
    while (told(u"ready"_s).isEmpty() && !deadline.hasExpired())
        QThread::msleep(20);
    return !told(u"ready"_s).isEmpty();
}

} // namespace dalvora::test
