#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/session/AuditTrail.h"
#include "tools/quorvane-admin/Order.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include <QDateTime>
#include <QFile>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

QString systemUser() {
    const QString user =
        qEnvironmentVariable("USER", qEnvironmentVariable("LOGNAME", qEnvironmentVariable("USERNAME")));
    return user.isEmpty() ? u"?"_s : user;
}

} // namespace

QString Desk::database() const {
    return ConnectString::parse(connection.connectString()).value(u"database"_s);
}

void Desk::audit(Connection& database, int code, const QString& text, const QString& company) const {
    AuditTrail trail(database);
    trail.add({QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH:mm:ss.zzz"_s), systemUser(), company,
               u"QUORVANE-ADMIN"_s, code, text, QSysInfo::machineHostName()});
    trail.store();
}

void openForAdministration(Connection& connection, const Profile& profile, const QString& folder) {
    ConnectString options = ConnectString::parse(profile.resolvedConnectString(folder));
    if (options.value(u"statementtimeout"_s).isEmpty())
        options.setValue(u"statementtimeout"_s, u"0"_s);
    connection.open(options.toString());
}

void makeMissingFile(const Profile& profile, const QString& folder) {
    const ConnectString options = ConnectString::parse(profile.resolvedConnectString(folder));
    QFile file(options.value(u"database"_s));
    if (options.value(u"driver"_s).compare(u"sqlite"_s, Qt::CaseInsensitive) != 0 || file.exists())
        return;
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        throw RunTimeError(ErrorPathAccess, u"No se puede crear la base de datos %1 (%2)"_s.arg(
                                                file.fileName(), file.errorString()));
}

} // namespace quorvane::admin
