#pragma once

#include <QString>

namespace dalvora::lorbadeno {

/// The port behind the one that a platform such as "vnc:size=1280x800:port=5900" names (5900 when it names
/// none); 0 for any other platform.
int ownVncPort(const QString& platform);

/// The platform with another port.
QString withVncPort(const QString& platform, int port);

} // namespace dalvora::lorbadeno
