#include "tests/drilldown/DocumentPrograms.h"
#include "platform/dde/ChannelAddress.h"
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <csignal>
#include <gtest/gtest.h>

namespace dalvora::test {

using namespace Qt::StringLiterals;

DocumentPrograms::DocumentPrograms()
    : m_runtimeBefore(qgetenv("XDG_RUNTIME_DIR")), m_homeBefore(qgetenv("QUORVANE_HOME")) {
    qputenv("XDG_RUNTIME_DIR", m_runtime.path().toLocal8Bit());
}

DocumentPrograms::~DocumentPrograms() {
    kill();
    qputenv("XDG_RUNTIME_DIR", m_runtimeBefore);
    qputenv("QUORVANE_HOME", m_homeBefore);
    qunsetenv("DOCUMENT_DOUBLE");
}

void DocumentPrograms::install(const QString& program) {
    const QString name = m_programs.filePath(u"Lorbadeno.Exe"_s);
    QFile::remove(name);
    ASSERT_TRUE(QFile::copy(program, name));
}

void DocumentPrograms::installReal(const QString& profileFolder) {
    qputenv("QUORVANE_HOME", profileFolder.toLocal8Bit());
    install(QStringLiteral(DOCUMENT_PROGRAM));
    // The modules of the engines stand beside the program.
    const QString modules = QFileInfo(QStringLiteral(DOCUMENT_PROGRAM)).path() + u"/quorvane"_s;
    EXPECT_TRUE(QFile::link(modules, m_programs.filePath(u"quorvane"_s)));
}

void DocumentPrograms::installDouble(const QByteArray& mode) {
    qputenv("DOCUMENT_DOUBLE", mode);
    install(QStringLiteral(DOCUMENT_DOUBLE));
}

qint64 DocumentPrograms::running() const {
    QFile lock(quorvane::channelAddress(u"Emisión de Documentos|Lorbadeno"_s) + u".lock"_s);
    if (!lock.open(QIODevice::ReadOnly))
        return 0;
    const qint64 process = lock.readAll().trimmed().toLongLong();
    // A number is given to another process one day: this one runs our program.
    const QString program = QFile::symLinkTarget(u"/proc/%1/exe"_s.arg(process));
    return program == m_programs.filePath(u"Lorbadeno.Exe"_s) ? process : 0;
}

void DocumentPrograms::kill() {
    const qint64 process = running();
    if (process == 0)
        return;
    ::kill(static_cast<pid_t>(process), SIGKILL);
    const QDeadlineTimer deadline(5000);
    while (running() == process && !deadline.hasExpired())
        QThread::msleep(5);
}

} // namespace dalvora::test
