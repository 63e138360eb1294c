#include "app/FirstInstance.h"
#include "app/Desktop.h"
#include "platform/dde/ChannelAddress.h"
#include "platform/dde/SystemRequestLink.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/session/Profile.h"
#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QThread>

namespace dalvora {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds oneTenth(100);

QString sameFolder(const QString& folder) {
    const QString canonical = QDir(folder).canonicalPath(); // "" before the first start has made it
    return canonical.isEmpty() ? QDir::cleanPath(QDir(folder).absolutePath()) : canonical;
}

QString sameCompany(const QString& company) {
    return company.trimmed().toCaseFolded();
}

/// What is left of the time, in whole tenths of a second, at least one.
int tenthsLeft(const QDeadlineTimer& deadline) {
    return static_cast<int>(std::max<qint64>(1, deadline.remainingTime() / oneTenth.count()));
}

} // namespace

QString hostTopic(const QString& profileFolder, const QString& company) {
    const QString topic = u"Dalvora|"_s + company.trimmed();
    const QString folder = sameFolder(profileFolder);
    return folder == sameFolder(quorvane::Profile::usualFolder()) ? topic : topic + u'|' + folder;
}

QString startTopic(const QString& profileFolder, const QString& company) {
    // A digest: a folder's name may be longer than a topic can be, and differ from another in case only.
    constexpr int digits = 20;
    const QString place = sameFolder(profileFolder) + u'\n' + sameCompany(company) + u'\n' + desktopName();
    const QByteArray digest = QCryptographicHash::hash(place.toUtf8(), QCryptographicHash::Sha256).toHex();
    return u"Dalvora Inicio|"_s + QString::fromLatin1(digest.left(digits));
}

FirstInstance::FirstInstance(QString profileFolder, std::chrono::milliseconds patience)
    : m_profileFolder(std::move(profileFolder)), m_patience(patience) {}

bool FirstInstance::givesWay(const QString& company) {
    if (company.trimmed().isEmpty() || sameCompany(company) == m_company)
        return false;
    m_company = sameCompany(company);
    const QString topic = startTopic(m_profileFolder, company);
    const QString address = quorvane::channelAddress(topic);
    m_lock.reset();
    if (address.isEmpty())
        return false;
    // Beside the address itself, whose lock is its answerer's.
    m_lock = std::make_unique<quorvane::ChannelLock>(address + u"-inicio"_s);
    return !m_lock->acquire() && firstOneCame(topic);
}

bool FirstInstance::takePlace() {
    return !m_lock || m_lock->acquire();
}

bool FirstInstance::firstOneCame(const QString& topic) {
    const QDeadlineTimer deadline(m_patience);
    quorvane::SystemRequestLink link;
    letOthersComeToFront();
    while (!deadline.hasExpired()) {
        try {
            link.setLinkTimeout(tenthsLeft(deadline));
            link.setLinkTopic(topic);
            link.setLinkMode(quorvane::LinkManual);
            link.LinkExecute(u"ACCION=MOSTRAR"_s);
            link.setLinkMode(quorvane::LinkNone); // so that the other one knows before this one is gone
            return true;
        } catch (const quorvane::RunTimeError& error) {
            if (error.number() == quorvane::ErrorCannotCreateObject)
                return false;
        }
        if (m_lock->acquire()) // it has ended
            return false;
        QThread::msleep(oneTenth.count());
    }
    return false;
}

} // namespace dalvora
