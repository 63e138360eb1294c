#pragma once

#include <QString>
#include <functional>

namespace quorvane {
class RequestLink;
} // namespace quorvane

namespace dalvora {

class ProgramStarter;

/// What a request to another program needs of its surroundings; all of it outlives the request.
struct TopicSurroundings {
    ProgramStarter& starter;
    QString programFolder;               ///< our own, without a separator at its end
    std::function<void()> yield;         ///< one round of the message loop: MessageLoop
    std::function<void(int)> setPointer; ///< of the mouse: 11 hourglass, 0 as usual
};

/// Sends a command to the program that answers a topic, and starts that program when nobody does. A topic
/// without "|" is doubled around one. `AppName` is the program's file, `Timeout` is in tenths of a second,
/// `NewTopic` comes back with the topic that was reached, `EstadoVentana` is the show state for the start.
/// Failures are told. 0 when the command was accepted, -1 when there was nobody to send "Action=End" to, else
/// the number of the error.
qint32 Print_Topic(const TopicSurroundings& surroundings, quorvane::RequestLink& DDECtrl, QString AppName,
                   const QString& LinkTopic, const QString& command, bool Exclusivo, qint16 Timeout,
                   QString& NewTopic, qint16 EstadoVentana);

} // namespace dalvora
