#include "tests/windows/dde/DoubleProcess.h"
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QThread>
#include <gtest/gtest.h>

namespace quorvane::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int tenSeconds = 10000;

} // namespace

DoubleProcess::DoubleProcess(const QString& mode, const QString& say) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DDE_DOUBLE"_s, mode);
    environment.insert(u"DDE_DOUBLE_SAY"_s, say);
    environment.insert(u"DDE_DOUBLE_LOG"_s, m_folder.filePath(u"log"_s));
    m_process.setProcessEnvironment(environment);
    m_process.start(file(), QStringList());
    EXPECT_TRUE(m_process.waitForStarted(tenSeconds));
}

DoubleProcess::~DoubleProcess() {
    kill();
}

void DoubleProcess::kill() {
    m_process.kill();
    m_process.waitForFinished(tenSeconds);
}

QString DoubleProcess::file() {
    return QStringLiteral(DDE_DOUBLE);
}

bool DoubleProcess::isReady() const {
    const QDeadlineTimer deadline(tenSeconds);
    while (!log().contains(u"ready"_s) && !deadline.hasExpired())
        QThread::msleep(20);
    return log().contains(u"ready"_s);
}

int DoubleProcess::finished() {
    // Events run meanwhile: it may be talking to this process.
    QDeadlineTimer deadline(tenSeconds);
    while (m_process.state() != QProcess::NotRunning && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return m_process.state() == QProcess::NotRunning ? m_process.exitCode() : -1;
}

QStringList DoubleProcess::log() const {
    QFile file(m_folder.filePath(u"log"_s));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

QList<QByteArray> DoubleProcess::commands() const {
    QList<QByteArray> result;
    const QString mark = u"command "_s;
    for (const QString& line : log())
        if (line.startsWith(mark))
            result << QByteArray::fromHex(line.mid(mark.size()).toLatin1());
    return result;
}

} // namespace quorvane::test
