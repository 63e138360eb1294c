#include "tools/quorvane-admin/Order.h"

#include "demo/Database.h"
#include "platform/quorvane32/core/Session.h"
#include "platform/quorvane32/session/Administration.h"
#include "sql/TableUpgrade.h"
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

ExitCode bringUpToDate(Desk& desk, const CommandLine&) {
    const dalvora::TableUpgrade done = dalvora::bringTablesUpToDate(desk.connection);
    if (!done.changed()) {
        desk.out << u"Las tablas ya son de la versión %1: no hay nada que hacer.\n"_s.arg(done.layout);
        return ExitSuccess;
    }
    if (!done.created.isEmpty())
        desk.out << u"Tablas creadas: %1.\n"_s.arg(done.created.join(u", "_s));
    if (done.layoutBefore == 0 && !done.kept.isEmpty())
        desk.out << u"Tablas que ya estaban y no se tocaron: %1. Revíselas con «quorvane-admin revisar».\n"_s
                        .arg(done.kept.join(u", "_s));
    if (!done.indexes.isEmpty())
        desk.out << u"Índices creados: %1.\n"_s.arg(done.indexes.join(u", "_s));
    if (done.layoutBefore > 0 && done.layoutBefore < done.layout)
        desk.out << u"Versión de las tablas: antes %1, ahora %2.\n"_s.arg(done.layoutBefore).arg(done.layout);
    desk.audit(desk.connection, AuditChange, u"TABLAS:%1:%2"_s.arg(done.layoutBefore).arg(done.layout));
    return ExitSuccess;
}

ExitCode loadDemonstration(Desk& desk, const CommandLine&) {
    dalvora::demo::loadDemonstration(desk.connection);
    desk.out << u"Empresas de demostración 001 y 002 cargadas, con sus usuarios.\n"_s;
    return ExitSuccess;
}

ExitCode listCompanies(Desk& desk, const CommandLine&) {
    for (const Company& company : Administration(desk.connection).companies())
        desk.out << company.code.leftJustified(10) << ' ' << company.name << '\n';
    return ExitSuccess;
}

ExitCode addCompany(Desk& desk, const CommandLine& line) {
    Administration(desk.connection).addCompany(line.words[0], line.words[1]);
    desk.audit(desk.connection, AuditCreate, u"EMPRESA:%1:ALTA"_s.arg(line.words[0]), line.words[0]);
    desk.out << u"Empresa «%1» dada de alta.\n"_s.arg(line.words[0]);
    return ExitSuccess;
}

constexpr Order orders[] = {
    {u"tablas",
     "",
     "crea las tablas que falten o las lleva a la versión de este programa",
     0,
     0,
     {},
     Needs::Place,
     bringUpToDate},
    {u"demostracion",
     "",
     "carga las empresas de demostración y sus usuarios",
     0,
     0,
     {},
     Needs::Tables,
     loadDemonstration},
    {u"empresas", "", "lista las empresas", 0, 0, {}, Needs::Tables, listCompanies},
    {u"empresa",
     "CODIGO NOMBRE",
     "da de alta una empresa cuyos datos ya están en las tablas",
     2,
     2,
     {},
     Needs::Tables,
     addCompany},
};

} // namespace

std::span<const Order> tableOrders() {
    return orders;
}

} // namespace quorvane::admin
