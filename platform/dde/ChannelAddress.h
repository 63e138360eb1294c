#pragma once

#include <QString>

namespace quorvane {

/// True for a topic of two parts that are not empty, "application|topic".
bool isChannelTopic(const QString& topic);

/// The address of the local socket on which a topic is answered: one for each user, in his runtime folder,
/// which no other user may enter. Topics are compared without regard to case. "" when the user has no such
/// folder.
QString channelAddress(const QString& topic);

} // namespace quorvane
