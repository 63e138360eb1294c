#include "demo/lorbadeno/VncPort.h"
#include <QStringList>

namespace dalvora::lorbadeno {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView portKey("port=");
constexpr int usualPort = 5900;
constexpr int lastPort = 65535;

} // namespace

int ownVncPort(const QString& platform) {
    const QStringList parts = platform.split(u':');
    if (parts.front() != u"vnc")
        return 0;
    int port = usualPort;
    for (const QString& part : parts)
        if (part.startsWith(portKey))
            port = part.mid(portKey.size()).toInt();
    return port > 0 && port < lastPort ? port + 1 : usualPort + 1;
}

QString withVncPort(const QString& platform, int port) {
    QStringList parts = platform.split(u':');
    parts.removeIf([](const QString& part) { return part.startsWith(portKey); });
    return parts.join(u':') + u":port=%1"_s.arg(port);
}

} // namespace dalvora::lorbadeno
