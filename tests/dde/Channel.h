#pragma once

#include "platform/dde/ChannelAddress.h"
#include "platform/dde/Frame.h"
#include "platform/dde/LocalRequestLink.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/QtPrinters.h"
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace quorvane::test {

using namespace Qt::StringLiterals;

inline const QString topic = u"Emisión de Documentos|Lorbadeno"_s;

/// A runtime folder of the test's own, so that it meets no program of the person who runs it.
class RuntimeFolder {
public:
    RuntimeFolder() : m_before(qgetenv("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", m_folder.path().toLocal8Bit());
    }
    ~RuntimeFolder() { qputenv("XDG_RUNTIME_DIR", m_before); }
    RuntimeFolder(const RuntimeFolder&) = delete;
    RuntimeFolder& operator=(const RuntimeFolder&) = delete;

    QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    QByteArray m_before;
};

/// Lets events run until the condition holds; false when five seconds did not do it.
inline bool until(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(5000);
    while (!condition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return condition();
}

using quorvane::test::errorOf;

/// The answering end played byte by byte: answers whatever arrives with what it is told.
class RawPeer {
public:
    using Behaviour = std::function<void(QLocalSocket& socket, const QByteArray& bytes)>;

    explicit RawPeer(Behaviour behaviour) : m_behaviour(std::move(behaviour)) {
        EXPECT_TRUE(m_server.listen(channelAddress(topic))) << qPrintable(m_server.errorString());
        QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] {
            QLocalSocket* socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QLocalSocket::readyRead, socket,
                             [this, socket] { m_behaviour(*socket, socket->readAll()); });
        });
    }

private:
    Behaviour m_behaviour;
    QLocalServer m_server;
};

inline QByteArray bytesOf(FrameKind kind, const QString& text = {}) {
    return encodeFrame({kind, text}).value();
}

} // namespace quorvane::test
