#include "tools/quorvane-admin/HealthCheck.h"

#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/session/Administration.h"
#include "platform/quorvane32/session/SessionSql.h"
#include "tools/quorvane-admin/FileReaders.h"
#include <QDateTime>
#include <QDir>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

/// Rows that should not be: what finds them, and how each is told (%1 its first value, ...).
struct RowCheck {
    const char* sql;
    const char* told;
    const char* good;
};

constexpr RowCheck rowChecks[] = {
    {"SELECT d.Empresa, d.Codigo, d.FechaInicio, d.FechaFinal, count(*) Lineas FROM ComisionesD d WHERE NOT "
     "EXISTS (SELECT 1 FROM Comisiones c WHERE c.Empresa = d.Empresa AND c.Codigo = d.Codigo AND "
     "c.FechaInicio = d.FechaInicio AND c.FechaFinal = d.FechaFinal) GROUP BY d.Empresa, d.Codigo, "
     "d.FechaInicio, d.FechaFinal ORDER BY d.Empresa, d.Codigo",
     "Empresa %1: el esquema %2 del %3 al %4 no existe y tiene %5 líneas",
     "Toda línea de comisiones es de un esquema"},
    {"SELECT a.Empresa, a.Codigo, a.FechaInicio, a.FechaFinal, b.FechaInicio, b.FechaFinal FROM Comisiones "
     "a, "
     "Comisiones b WHERE a.Empresa = b.Empresa AND a.Codigo = b.Codigo AND b.FechaInicio <= a.FechaFinal AND "
     "(a.FechaInicio < b.FechaInicio OR (a.FechaInicio = b.FechaInicio AND a.FechaFinal < b.FechaFinal)) "
     "ORDER BY a.Empresa, a.Codigo",
     "Empresa %1: el esquema %2 rige del %3 al %4 y también del %5 al %6",
     "Ningún esquema rige dos veces en un mismo día"},
    {"SELECT d.Empresa, d.TipoDocto, d.Numero, count(*) Lineas FROM documentod d WHERE NOT EXISTS (SELECT 1 "
     "FROM documento c WHERE c.Empresa = d.Empresa AND c.TipoDocto = d.TipoDocto AND c.Numero = d.Numero AND "
     "c.IdCtaCte = d.IdCtaCte) GROUP BY d.Empresa, d.TipoDocto, d.Numero ORDER BY d.Empresa, d.TipoDocto",
     "Empresa %1: el documento %2 %3 no existe y tiene %4 líneas",
     "Toda línea de documento es de un documento"},
    {"SELECT d.Usuario, d.Programa FROM ses_derecho d WHERE NOT EXISTS (SELECT 1 FROM ses_usuario u WHERE "
     "u.Usuario = d.Usuario) ORDER BY d.Usuario, d.Programa",
     "El usuario «%1» no existe y tiene derechos en %2", "Todos los derechos son de usuarios que existen"},
    {"SELECT e.Empresa FROM ses_empresa e WHERE NOT EXISTS (SELECT 1 FROM gen_tabcod g WHERE g.Empresa = "
     "e.Empresa) ORDER BY e.Empresa",
     "La empresa «%1» no tiene configuración en gen_tabcod", "Toda empresa tiene configuración"},
};

void checkRows(HealthCheck& check, const RowCheck& wanted) {
    const auto found = check.rows(QLatin1String(wanted.sql));
    if (found.empty())
        check.good(QString::fromUtf8(wanted.good));
    for (const QStringList& row : found) {
        QString text = QString::fromUtf8(wanted.told);
        for (const QString& value : row)
            text = text.arg(value);
        check.finding(text);
    }
}

void checkUsers(HealthCheck& check) {
    const std::size_t before = check.lines.size();
    const auto users = Administration(check.connection).users(QDateTime::currentDateTime());
    for (const UserRecord& user : users) {
        if (user.rights.empty())
            check.finding(u"El usuario «%1» no tiene derechos en ningún programa"_s.arg(user.code));
        if (user.lockedUntil.isValid())
            check.finding(u"El usuario «%1» está bloqueado por contraseñas incorrectas"_s.arg(user.code));
        if (user.locked)
            check.note(u"El usuario «%1» está bloqueado por el administrador"_s.arg(user.code));
    }
    if (users.empty())
        check.finding(u"No hay usuarios"_s);
    else if (check.lines.size() == before)
        check.good(u"%1 usuarios, todos con derechos y sin bloqueo"_s.arg(users.size()));
}

} // namespace

void checkData(HealthCheck& check) {
    for (const RowCheck& wanted : rowChecks)
        checkRows(check, wanted);
    checkUsers(check);
}

void checkProfile(HealthCheck& check) {
    const QString file = Profile::fileName(check.folder);
    const QString shown = QDir::toNativeSeparators(file);
    const QString password = ConnectString::parse(check.profile.connectString).value(u"password"_s);
    if (password.isEmpty())
        check.good(u"Perfil %1, sin contraseña"_s.arg(shown));
    else if (othersMayRead(file))
        check.finding(
            u"El perfil %1 tiene una contraseña y otros usuarios del equipo pueden leerlo"_s.arg(shown));
    else
        check.good(u"Perfil %1, que sólo su dueño puede leer"_s.arg(shown));
    for (const QString& company : check.profile.companies)
        if (check.value(u"SELECT Empresa FROM ses_empresa WHERE Empresa = "_s + sqlText(company)).isEmpty())
            check.finding(u"El perfil nombra la empresa «%1», que no existe"_s.arg(company));
}

} // namespace quorvane::admin
