// A document program that misbehaves: what it does is in the environment variable DOCUMENT_DOUBLE.
//
//   mute             runs and answers no topic
//   silent           takes connections and never answers
//   silent-command   answers the topic and never a command
//   die              ends when it is asked for its topic
//   die-command      ends in the middle of a command
//   refuse           answers the topic and refuses every command
//   late             begins to answer after a second and accepts everything
//
// It ends by itself after a minute.

#include "platform/dde/ChannelAddress.h"
#include "platform/dde/ChannelLock.h"
#include "platform/dde/Frame.h"
#include <QCoreApplication>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTimer>
#include <cstdlib>

using namespace quorvane;
using namespace Qt::StringLiterals;

namespace {

constexpr int aMinute = 60000;
constexpr int aSecond = 1000;
const QString topic = u"Emisión de Documentos|Lorbadeno"_s;

void answer(QLocalSocket& socket, const QByteArray& mode) {
    const bool initiate = socket.readAll().startsWith("Q1I");
    if (mode == (initiate ? "die" : "die-command"))
        std::_Exit(3);
    if (mode == "silent" || (mode == "silent-command" && !initiate))
        return;
    const bool accepts = initiate || mode == "late";
    socket.write(encodeFrame({accepts ? FrameKind::Accept : FrameKind::Refuse,
                              accepts ? QString() : u"Hoy no se muestran documentos"_s})
                     .value());
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QByteArray mode = qgetenv("DOCUMENT_DOUBLE");
    QTimer::singleShot(aMinute, &application, [] { std::_Exit(4); });
    ChannelLock lock(channelAddress(topic));
    if (!lock.acquire())
        return 1;
    QLocalServer server;
    QObject::connect(&server, &QLocalServer::newConnection, &server, [&] {
        QLocalSocket* socket = server.nextPendingConnection();
        QObject::connect(socket, &QLocalSocket::readyRead, socket, [socket, mode] { answer(*socket, mode); });
    });
    if (mode != "mute")
        QTimer::singleShot(mode == "late" ? aSecond : 0, &server, [&] {
            QLocalServer::removeServer(channelAddress(topic));
            server.listen(channelAddress(topic));
        });
    return QCoreApplication::exec();
}
