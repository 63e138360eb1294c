#include "platform/quorvane32/session/Accounts.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/base/SpanishText.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/Passwords.h"
#include "platform/quorvane32/session/SessionSql.h"

namespace quorvane {

namespace {

const RegionalSettings plain{};

qint64 number(const Value& value) {
    return static_cast<qint64>(value.toNumber(plain));
}

QString wrongPassword() {
    return QStringLiteral("Usuario o contraseña incorrectos.");
}

QString lockedUntil(const QString& user, const QDateTime& end) {
    return QStringLiteral(
               "El usuario «%1» está bloqueado hasta las %2 por %3 contraseñas incorrectas seguidas.")
        .arg(user, end.toLocalTime().toString(QStringLiteral("HH:mm:ss")),
             QString::number(Accounts::mostFailures));
}

[[noreturn]] void raiseLayout(const QString& text, const QString& database, qint64 version) {
    throw RunTimeError(ErrorDatabaseFormat, text.arg(database, QString::number(version),
                                                     QString::number(Accounts::layoutVersion)));
}

} // namespace

qint64 Accounts::layout(const QString& databaseName) {
    try {
        const Recordset layout =
            m_connection.openRecordset(QStringLiteral("SELECT Version FROM ses_esquema"));
        return layout.eof() ? 0 : number(layout.value(0));
    } catch (const RunTimeError& error) {
        // Only a table that is not there, or is another program's, tells what kind of database it is.
        if (error.number() == ErrorDatabaseFormat || error.number() == ErrorConnectionLost ||
            error.number() == ErrorPermissionDenied)
            throw;
        throw RunTimeError(ErrorDatabaseFormat,
                           QStringLiteral("%1 no es una base de datos de Quorvane ERP [%2]")
                               .arg(databaseName, error.description()));
    }
}

void Accounts::checkLayout(const QString& databaseName) {
    const qint64 version = layout(databaseName);
    if (version < oldestLayout)
        raiseLayout(
            QStringLiteral("La base de datos %1 tiene una versión anterior (%2); este programa necesita la "
                           "versión %3. Pida al administrador que la actualice."),
            databaseName, version);
    if (version > layoutVersion)
        raiseLayout(
            QStringLiteral("La base de datos %1 tiene una versión posterior (%2) a la de este programa (%3). "
                           "Instale una versión más reciente del programa."),
            databaseName, version);
}

std::vector<Company> Accounts::companies(const QStringList& codes) {
    std::vector<Company> known;
    for (const QString& code : codes) {
        const Recordset row = m_connection.openRecordset(
            QStringLiteral("SELECT Empresa, Nombre FROM ses_empresa WHERE Empresa = ") + sqlText(code));
        if (!row.eof())
            known.push_back({row.value(0).toText(plain), row.value(1).toText(plain)});
    }
    return known;
}

std::optional<QString> Accounts::userCode(const QString& user) {
    const Recordset row = m_connection.openRecordset(
        QStringLiteral("SELECT Usuario FROM ses_usuario WHERE Usuario = ") + sqlText(user));
    return row.eof() ? std::nullopt : std::optional(row.value(0).toText(plain));
}

bool Accounts::isLockedForGood(const QString& user) {
    const Recordset row = m_connection.openRecordset(
        QStringLiteral("SELECT BloqueadoHasta FROM ses_usuario WHERE Usuario = ") + sqlText(user));
    return !row.eof() && number(row.value(0)) >= lockedForGood;
}

QString Accounts::refusal(const QString& user, const QString& password, const QDateTime& now) {
    QString hash;
    qint64 lockEnd = 0;
    bool known = false;
    bool failedBefore = false;
    {
        const Recordset row = m_connection.openRecordset(
            QStringLiteral("SELECT Clave, Fallidos, BloqueadoHasta FROM ses_usuario WHERE Usuario = ") +
            sqlText(user));
        known = !row.eof();
        if (known) {
            hash = row.value(0).toText(plain);
            failedBefore = number(row.value(1)) != 0;
            lockEnd = number(row.value(2));
        }
    }
    if (known && lockEnd >= lockedForGood)
        return QStringLiteral("El usuario «%1» está bloqueado por el administrador.").arg(user);
    const QDateTime unstored = m_unstoredLocks.value(foldText(user));
    const QDateTime end = std::max(QDateTime::fromSecsSinceEpoch(lockEnd), unstored);
    if (known && end > now)
        return lockedUntil(user, end);
    if (!verifyPassword(hash, password))
        return known && noteFailure(user, now) ? lockedUntil(user, now.addSecs(lockSeconds))
                                               : wrongPassword();
    m_unstoredFailures.remove(foldText(user));
    if (failedBefore || lockEnd != 0)
        forgetFailures(user);
    return {};
}

void Accounts::forgetFailures(const QString& user) {
    try {
        m_connection.execute(QStringLiteral("UPDATE ses_usuario SET Fallidos = 0, BloqueadoHasta = 0 WHERE "
                                            "BloqueadoHasta < %1 AND Usuario = ")
                                 .arg(lockedForGood) +
                             sqlText(user));
    } catch (const RunTimeError&) {
        return; // the count stays and the next success forgets it; nobody is kept out for it
    }
}

bool Accounts::noteFailure(const QString& user, const QDateTime& now) {
    try {
        m_connection.execute(
            QStringLiteral("UPDATE ses_usuario SET Fallidos = Fallidos + 1 WHERE Usuario = ") +
            sqlText(user));
        const qint64 locked = m_connection.execute(
            QStringLiteral(
                "UPDATE ses_usuario SET Fallidos = 0, BloqueadoHasta = %1 WHERE Fallidos >= %2 AND "
                "BloqueadoHasta < %3 AND Usuario = ")
                .arg(now.addSecs(lockSeconds).toSecsSinceEpoch())
                .arg(mostFailures)
                .arg(lockedForGood) +
            sqlText(user));
        return locked > 0;
    } catch (const RunTimeError&) {
        return noteUnstoredFailure(user, now);
    }
}

bool Accounts::noteUnstoredFailure(const QString& user, const QDateTime& now) {
    const QString key = foldText(user);
    if (++m_unstoredFailures[key] < mostFailures)
        return false;
    m_unstoredFailures.remove(key);
    m_unstoredLocks.insert(key, now.addSecs(lockSeconds));
    return true;
}

std::optional<QString> Accounts::rights(const QString& user, const QString& program) {
    const Recordset row = m_connection.openRecordset(
        QStringLiteral("SELECT d.Derechos FROM ses_derecho d, ses_usuario u WHERE u.Usuario = %1 AND "
                       "d.Usuario = u.Usuario AND d.Programa = %2 AND u.BloqueadoHasta < %3")
            .arg(sqlText(user), sqlText(program), QString::number(lockedForGood)));
    if (row.eof())
        return std::nullopt;
    return row.value(0).toText(plain).leftJustified(4, u'-', true);
}

} // namespace quorvane
