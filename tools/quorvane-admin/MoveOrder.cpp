#include "tools/quorvane-admin/Order.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/Session.h"
#include "platform/quorvane32/session/Accounts.h"
#include "tools/quorvane-admin/CompanyMove.h"
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

constexpr Option options[] = {
    {u"a", "CARPETA", "carpeta del perfil de la base de datos de destino (obligatoria)"},
    {u"usuarios", "", "también los usuarios y sus derechos, salvo los que ya estén allí"},
    {u"auditoria", "", "también las entradas de auditoría de la empresa"},
};

void openTarget(Connection& target, const Profile& profile, const QString& folder) {
    openForAdministration(target, profile, folder);
    const QString name = ConnectString::parse(target.connectString()).value(u"database"_s);
    try {
        Accounts(target).checkLayout(name);
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.number(),
                           u"Destino: %1. Prepárelo con «quorvane-admin --perfil %2 tablas»"_s.arg(
                               error.description(), folder));
    }
}

void report(QTextStream& out, const MovedCompany& moved) {
    out << u"Empresa «%1» trasladada; cada tabla tiene las mismas filas en los dos lados:\n"_s.arg(
        moved.code);
    for (const MovedTable& table : moved.tables)
        out << "  " << table.table.leftJustified(16) << QString::number(table.sum.rows()).rightJustified(10)
            << u" filas  suma "_s << table.sum.text() << '\n';
    if (!moved.usersThere.isEmpty())
        out << u"Usuarios que ya estaban y no se tocaron: %1.\n"_s.arg(moved.usersThere.join(u", "_s));
}

void advise(QTextStream& out, const QString& code, const Profile& profile, const QString& folder) {
    if (!profile.companies.contains(code, Qt::CaseInsensitive))
        out << u"El perfil %1 no nombra la empresa «%2» en Codigos: agréguela.\n"_s.arg(
            Profile::fileName(folder), code);
    out << u"El origen no cambió. Dé a los usuarios el perfil de destino y guarde el origen como copia: lo "
           u"que "
           "se grabe en él desde ahora no llega al destino.\n"_s;
}

ExitCode move(Desk& desk, const CommandLine& line) {
    const QString folder = line.value(u"a"_s);
    if (folder.isEmpty())
        throw UsageError(u"falta --a CARPETA, el perfil de la base de datos de destino"_s);
    const Profile profile = Profile::load(folder);
    Connection target;
    openTarget(target, profile, folder);
    CompanyMove move(desk.connection, target, [&](const QString& table, qint64 rows) {
        desk.progress << u"%1: %2 filas\n"_s.arg(table).arg(rows) << Qt::flush;
    });
    const MovedCompany moved = move.run(line.words[0], {line.has(u"usuarios"_s), line.has(u"auditoria"_s)});
    desk.audit(target, AuditCreate, u"EMPRESA:%1:TRASLADAR"_s.arg(moved.code), moved.code);
    report(desk.out, moved);
    advise(desk.out, moved.code, profile, folder);
    return ExitSuccess;
}

constexpr Order orders[] = {
    {u"trasladar", "EMPRESA --a CARPETA", "copia una empresa a otra base de datos, entera o nada", 1, 1,
     options, Needs::Tables, move},
};

} // namespace

std::span<const Order> moveOrders() {
    return orders;
}

} // namespace quorvane::admin
