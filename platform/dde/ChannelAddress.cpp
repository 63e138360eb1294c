#include "platform/dde/ChannelAddress.h"
#include <QCryptographicHash>
#include <QDir>
#include <QStandardPaths>

namespace quorvane {

bool isChannelTopic(const QString& topic) {
    const qsizetype bar = topic.indexOf(u'|');
    return bar > 0 && bar < topic.size() - 1;
}

QString channelAddress(const QString& topic) {
    // A digest, since a socket's path is short and a topic may hold any character.
    constexpr int digits = 20;
    const QByteArray key = topic.toCaseFolded().normalized(QString::NormalizationForm_C).toUtf8();
#ifdef Q_OS_WIN
    // Pipes have no folder: the user is part of the name.
    const QByteArray owner = QDir::homePath().toUtf8() + '\n';
    const QString folder;
#else
    const QByteArray owner;
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (runtime.isEmpty())
        return {};
    const QString folder = runtime + u'/';
#endif
    const QByteArray digest = QCryptographicHash::hash(owner + key, QCryptographicHash::Sha256).toHex();
    return folder + QStringLiteral("quorvane-") + QString::fromLatin1(digest.left(digits));
}

} // namespace quorvane
