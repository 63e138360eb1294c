#pragma once

#include "platform/dde/SystemRequestLink.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QTemporaryDir>

namespace dalvora::test {

/// Where the channel keeps its sockets while this lives, so that a test meets no program of the person who
/// runs it.
class ChannelFolder {
public:
    ChannelFolder() : m_before(qgetenv("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", m_folder.path().toLocal8Bit());
    }
    ~ChannelFolder() { qputenv("XDG_RUNTIME_DIR", m_before); }
    ChannelFolder(const ChannelFolder&) = delete;
    ChannelFolder& operator=(const ChannelFolder&) = delete;

    /// Different for each test.
    QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    QByteArray m_before;
};

/// The error of asking a topic's program for something, else to show itself; 0 when it accepted.
inline int errorOfAsking(const QString& topic, const QString& command = QStringLiteral("ACCION=MOSTRAR")) {
    constexpr int tenths = 100;
    quorvane::SystemRequestLink link;
    link.setLinkTimeout(tenths);
    link.setLinkTopic(topic);
    try {
        link.setLinkMode(quorvane::LinkManual);
        link.LinkExecute(command);
    } catch (const quorvane::RunTimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace dalvora::test
