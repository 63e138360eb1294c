#include "tools/quorvane-admin/Order.h"

#include "platform/quorvane32/core/Session.h"
#include "platform/quorvane32/session/Administration.h"
#include <QDateTime>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

/// The entry that tells what was done with a user.
void note(const Desk& desk, const CommandLine& line, int code, const char16_t* what,
          const QString& more = {}) {
    desk.audit(desk.connection, code, u"USUARIO:%1:%2"_s.arg(line.words[0], QString::fromUtf16(what)) + more);
}

ExitCode list(Desk& desk, const CommandLine&) {
    for (const UserRecord& user : Administration(desk.connection).users(QDateTime::currentDateTime())) {
        QStringList rights;
        for (const auto& [program, letters] : user.rights)
            rights.append(program + u' ' + letters);
        desk.out << user.code.leftJustified(20) << ' ' << user.name.leftJustified(30) << ' '
                 << (rights.isEmpty() ? u"sin derechos"_s : rights.join(u", "_s));
        if (user.locked)
            desk.out << u"  bloqueado por el administrador"_s;
        if (user.lockedUntil.isValid())
            desk.out << u"  bloqueado hasta "_s << user.lockedUntil.toString(u"dd/MM/yyyy HH:mm:ss"_s);
        desk.out << '\n';
    }
    return ExitSuccess;
}

ExitCode add(Desk& desk, const CommandLine& line) {
    Administration(desk.connection).addUser(line.words[0], line.words.value(1), desk.password());
    note(desk, line, AuditCreate, u"ALTA");
    desk.out << u"Usuario «%1» creado, todavía sin derechos.\n"_s.arg(line.words[0]);
    return ExitSuccess;
}

ExitCode remove(Desk& desk, const CommandLine& line) {
    Administration(desk.connection).removeUser(line.words[0]);
    note(desk, line, AuditDelete, u"BAJA");
    desk.out << u"Usuario «%1» eliminado.\n"_s.arg(line.words[0]);
    return ExitSuccess;
}

ExitCode setPassword(Desk& desk, const CommandLine& line) {
    Administration administration(desk.connection);
    administration.requireUser(line.words[0]);
    administration.setPassword(line.words[0], desk.password());
    note(desk, line, AuditChange, u"CLAVE");
    desk.out << u"Contraseña de «%1» cambiada.\n"_s.arg(line.words[0]);
    return ExitSuccess;
}

ExitCode setRights(Desk& desk, const CommandLine& line) {
    const QString program = line.words[1].toUpper();
    const QString letters = line.words[2].toUpper();
    Administration(desk.connection).setRights(line.words[0], program, letters);
    note(desk, line, AuditChange, u"DERECHOS", u':' + program + u':' + letters);
    desk.out << u"Derechos de «%1» en %2: %3.\n"_s.arg(line.words[0], program, letters);
    return ExitSuccess;
}

ExitCode lock(Desk& desk, const CommandLine& line) {
    Administration(desk.connection).lock(line.words[0]);
    note(desk, line, AuditChange, u"BLOQUEAR");
    desk.out << u"Usuario «%1» bloqueado hasta que lo desbloquee.\n"_s.arg(line.words[0]);
    return ExitSuccess;
}

ExitCode unlock(Desk& desk, const CommandLine& line) {
    Administration(desk.connection).unlock(line.words[0]);
    note(desk, line, AuditChange, u"DESBLOQUEAR");
    desk.out << u"Usuario «%1» desbloqueado.\n"_s.arg(line.words[0]);
    return ExitSuccess;
}

constexpr Order orders[] = {
    {u"usuarios", "", "lista los usuarios con sus derechos y bloqueos", 0, 0, {}, Needs::Tables, list},
    {u"alta", "USUARIO [NOMBRE]", "crea un usuario; pide su contraseña", 1, 2, {}, Needs::Tables, add},
    {u"baja", "USUARIO", "elimina un usuario con sus derechos", 1, 1, {}, Needs::Tables, remove},
    {u"clave", "USUARIO", "cambia la contraseña; la pide", 1, 1, {}, Needs::Tables, setPassword},
    {u"derechos",
     "USUARIO PROGRAMA LETRAS",
     "otorga los derechos RWXD, «-» donde no; ej. VELTRANO RW--",
     3,
     3,
     {},
     Needs::Tables,
     setRights},
    {u"bloquear", "USUARIO", "lo deja fuera hasta que se desbloquee", 1, 1, {}, Needs::Tables, lock},
    {u"desbloquear",
     "USUARIO",
     "termina un bloqueo, del administrador o por contraseñas incorrectas",
     1,
     1,
     {},
     Needs::Tables,
     unlock},
};

} // namespace

std::span<const Order> userOrders() {
    return orders;
}

} // namespace quorvane::admin
