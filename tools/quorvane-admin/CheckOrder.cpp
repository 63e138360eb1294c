#include "tools/quorvane-admin/Order.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "tools/quorvane-admin/HealthCheck.h"
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

using Check = void (*)(HealthCheck& check);

struct Group {
    const char16_t* name;
    Check run;
};

constexpr Group groups[] = {
    {u"el motor", checkEngine},
    {u"las tablas", checkTables},
    {u"los datos", checkData},
    {u"el perfil", checkProfile},
};

const char16_t* word(HealthLine::Kind kind) {
    switch (kind) {
    case HealthLine::Good:
        return u"bien  ";
    case HealthLine::Note:
        return u"nota  ";
    case HealthLine::Finding:
        break;
    }
    return u"OJO   ";
}

ExitCode review(Desk& desk, const CommandLine&) {
    HealthCheck check{desk.connection, desk.profile, desk.folder, {}};
    for (const Group& group : groups) {
        try {
            group.run(check);
        } catch (const RunTimeError& error) {
            // A table that is missing spoils some checks and not the others.
            check.finding(u"No se pudo terminar de revisar %1: %2 (%3)"_s.arg(
                QString::fromUtf16(group.name), error.description(), QString::number(error.number())));
        }
    }
    int findings = 0;
    for (const HealthLine& line : check.lines) {
        desk.out << QString::fromUtf16(word(line.kind)) << line.text << '\n';
        findings += line.kind == HealthLine::Finding ? 1 : 0;
    }
    if (findings == 0) {
        desk.out << u"La revisión no encontró nada que corregir.\n"_s;
        return ExitSuccess;
    }
    desk.out << (findings == 1 ? u"La revisión encontró un problema.\n"_s
                               : u"La revisión encontró %1 problemas.\n"_s.arg(findings));
    return ExitFindings;
}

constexpr Order orders[] = {
    {u"revisar",
     "",
     "revisa la salud de la base de datos; no cambia nada",
     0,
     0,
     {},
     Needs::Database,
     review},
};

} // namespace

std::span<const Order> checkOrders() {
    return orders;
}

} // namespace quorvane::admin
