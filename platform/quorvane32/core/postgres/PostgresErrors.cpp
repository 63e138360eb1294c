#include "platform/quorvane32/core/postgres/PostgresErrors.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <algorithm>

namespace quorvane::postgres {

namespace {

struct Mapping {
    const char* state; ///< an SQLSTATE, or its class alone
    int number;
    const char* text;
};

// What a user can act on is said in Spanish; the server's own words follow in brackets.
constexpr Mapping mappings[] = {
    {"23505", ErrorDuplicateKey, "Clave duplicada"},
    {"23502", ErrorNullNotAllowed, "Falta un dato obligatorio"},
    {"23503", ErrorForeignKey, "Otros datos de la base de datos dependen de este"},
    {"55P03", ErrorLockTimeout, "Otro programa está usando estos datos; inténtelo de nuevo"},
    {"40P01", ErrorDeadlock, "Otro programa estaba usando los mismos datos; inténtelo de nuevo"},
    {"40001", ErrorDeadlock, "Otro programa estaba usando los mismos datos; inténtelo de nuevo"},
    {"57014", ErrorStatementTimeout, "La base de datos tardó demasiado en responder"},
    {"53100", ErrorDiskFull, "No queda espacio en el disco de la base de datos"},
    {"53200", ErrorOutOfMemory, "La base de datos se quedó sin memoria"},
    {"42501", ErrorPermissionDenied, "No tiene permiso sobre una tabla de la base de datos"},
    {"25006", ErrorPermissionDenied, "La base de datos es de sólo lectura"},
    {"42P07", ErrorObjectExists, "La tabla ya está en la base de datos"},
    {"42P01", ErrorNoSuchTable, "Falta una tabla en la base de datos"},
    {"42703", ErrorNoSuchColumn, "Falta una columna en la base de datos"},
    {"42601", ErrorSyntax, "La base de datos no entiende la instrucción"},
    {"22007", ErrorDateLiteral, "La fecha no es válida para la base de datos"},
    {"22008", ErrorDateLiteral, "La fecha no es válida para la base de datos"},
    {"22003", ErrorNumberTooLarge, "El número es demasiado grande para la base de datos"},
    {"22001", ErrorTextTooLong, "El texto es demasiado largo para la base de datos"},
    {"25P02", ErrorTransactionFailed, "La transacción falló y debe deshacerse"},
    {"25P03", ErrorConnectionLost, "La base de datos cerró la conexión por demasiada espera"},
    {"57P", ErrorConnectionLost, "El servidor de la base de datos se detuvo"},
    {"08", ErrorConnectionLost, "Se perdió la conexión con la base de datos"},
};

struct Refusal {
    const char* words; ///< in the server's own text, English or Spanish
    int number;
    const char* text;
};

// The client library gives no code for a refused connection, only the server's words.
constexpr Refusal refusals[] = {
    {"authentication failed", ErrorLoginFailed,
     "El servidor no acepta el usuario o la contraseña del perfil"},
    {"no password supplied", ErrorLoginFailed, "El servidor pide una contraseña y el perfil no da ninguna"},
    {"role \"", ErrorLoginFailed, "El servidor no conoce el usuario del perfil"},
    {"no pg_hba.conf entry", ErrorLoginFailed, "El servidor no admite conexiones de este equipo o usuario"},
    {"autentificaci", ErrorLoginFailed, "El servidor no acepta el usuario o la contraseña del perfil"},
    {"el rol ", ErrorLoginFailed, "El servidor no conoce el usuario del perfil"},
    {"database \"", ErrorNoSuchDatabase, "El servidor no tiene la base de datos del perfil"},
    {"la base de datos ", ErrorNoSuchDatabase, "El servidor no tiene la base de datos del perfil"},
};

/// The server's sentence without the word in front of it and the place and the hints behind it.
QString serverText(const QSqlError& error) {
    const QString line = error.databaseText().trimmed().section(u'\n', 0, 0);
    const qsizetype colon = line.indexOf(QLatin1String(":  "));
    return colon < 0 ? line : line.mid(colon + 3);
}

} // namespace

void raiseStatement(const QSqlError& error) {
    const QByteArray state = error.nativeErrorCode().toLatin1();
    const QString text = serverText(error);
    // What the client library itself finds wrong has no state: the link is broken.
    if (state.isEmpty())
        throw RunTimeError(ErrorConnectionLost,
                           QStringLiteral("Se perdió la conexión con la base de datos [%1]").arg(text));
    for (const Mapping& mapping : mappings)
        if (state.startsWith(mapping.state))
            throw RunTimeError(mapping.number,
                               QStringLiteral("%1 [%2]").arg(QString::fromUtf8(mapping.text), text));
    throw RunTimeError(
        ErrorCommandFailed,
        QStringLiteral("Error de la base de datos [%1: %2]").arg(QString::fromLatin1(state), text));
}

void raiseConnect(const QSqlError& error, const QString& where) {
    const QString text = serverText(error);
    for (const Refusal& refusal : refusals)
        if (text.contains(QLatin1String(refusal.words), Qt::CaseInsensitive))
            throw RunTimeError(
                refusal.number,
                QStringLiteral("%1: %2 [%3]").arg(QString::fromUtf8(refusal.text), where, text));
    throw RunTimeError(ErrorConnectionLost,
                       QStringLiteral("No se puede conectar con la base de datos %1 [%2]").arg(where, text));
}

} // namespace quorvane::postgres
