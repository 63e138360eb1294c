#include "tests/windows/toolbar/ForeignToolbar.h"
#include "tests/windows/toolbar/NativeBar.h"
#include <QCoreApplication>
#include <QThread>
#include <cstdio>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 20000;

} // namespace

QString holdOption() {
    return u"--hold-toolbar"_s;
}

int holdToolbar() {
    NativeBar bar;
    bar.addUsualButtons();
    settle();
    std::printf("%llu\n", static_cast<unsigned long long>(bar.containerHandle()));
    std::fflush(stdout);
    // The input is read aside: messages that other processes send have to be answered meanwhile.
    std::unique_ptr<QThread> reader(QThread::create([] {
        while (std::getchar() != EOF) {
        }
    }));
    QObject::connect(reader.get(), &QThread::finished, QCoreApplication::instance(), &QCoreApplication::quit);
    reader->start();
    const int result = QCoreApplication::exec();
    reader->wait();
    return result;
}

ForeignToolbar::ForeignToolbar() {
    m_process.start(QCoreApplication::applicationFilePath(), {holdOption()});
    QByteArray line;
    while (!line.contains('\n') && m_process.waitForReadyRead(patience))
        line += m_process.readAllStandardOutput();
    m_container = line.trimmed().toULongLong();
}

ForeignToolbar::~ForeignToolbar() {
    m_process.closeWriteChannel();
    if (!m_process.waitForFinished(patience))
        m_process.kill();
}

} // namespace toolbar_test
