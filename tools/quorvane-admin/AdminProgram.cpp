#include "tools/quorvane-admin/AdminProgram.h"

#include "demo/Database.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Session.h"
#include "platform/quorvane32/session/Accounts.h"
#include "platform/quorvane32/session/Administration.h"
#include "platform/quorvane32/session/Profile.h"
#include <QDateTime>
#include <QSysInfo>
#include <QTextStream>

namespace quorvane::admin {

namespace {

constexpr int usualAuditEntries = 50;

/// What an order works with.
struct Desk {
    Connection& connection;
    Administration administration;
    QTextStream& out;
    std::function<QString()> password;
};

void listUsers(Desk& desk, const QStringList&) {
    for (const UserRecord& user : desk.administration.users(QDateTime::currentDateTime())) {
        QStringList rights;
        for (const auto& [program, letters] : user.rights)
            rights.append(program + u' ' + letters);
        desk.out << user.code.leftJustified(20) << ' ' << user.name.leftJustified(30) << ' '
                 << (rights.isEmpty() ? QStringLiteral("sin derechos") : rights.join(QStringLiteral(", ")));
        if (user.lockedUntil.isValid())
            desk.out << QStringLiteral("  bloqueado hasta ")
                     << user.lockedUntil.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss"));
        desk.out << '\n';
    }
}

void addUser(Desk& desk, const QStringList& arguments) {
    desk.administration.addUser(arguments[0], arguments.value(1), desk.password());
    desk.out << QStringLiteral("Usuario «%1» creado, todavía sin derechos.\n").arg(arguments[0]);
}

void removeUser(Desk& desk, const QStringList& arguments) {
    desk.administration.removeUser(arguments[0]);
    desk.out << QStringLiteral("Usuario «%1» eliminado.\n").arg(arguments[0]);
}

void setPassword(Desk& desk, const QStringList& arguments) {
    desk.administration.setPassword(arguments[0], desk.password());
    desk.out << QStringLiteral("Contraseña de «%1» cambiada.\n").arg(arguments[0]);
}

void setRights(Desk& desk, const QStringList& arguments) {
    desk.administration.setRights(arguments[0], arguments[1], arguments[2]);
    desk.out << QStringLiteral("Derechos de «%1» en %2: %3.\n")
                    .arg(arguments[0], arguments[1].toUpper(), arguments[2].toUpper());
}

void unlock(Desk& desk, const QStringList& arguments) {
    desk.administration.unlock(arguments[0]);
    desk.out << QStringLiteral("Usuario «%1» desbloqueado.\n").arg(arguments[0]);
}

void showAudit(Desk& desk, const QStringList& arguments) {
    int count = usualAuditEntries;
    if (!arguments.isEmpty()) {
        bool ok = false;
        count = arguments[0].toInt(&ok);
        if (!ok || count < 1)
            throw RunTimeError(ErrorInvalidCall,
                               QStringLiteral("«%1» no es una cantidad de entradas").arg(arguments[0]));
    }
    for (const AuditEntry& entry : desk.administration.lastAuditEntries(count))
        desk.out << entry.moment << "  " << entry.user.leftJustified(20) << ' '
                 << entry.company.leftJustified(6) << entry.program.leftJustified(16)
                 << QString::number(entry.code).rightJustified(3) << "  " << entry.text << '\n';
}

void createTables(Desk& desk, const QStringList&) {
    dalvora::demo::createTables(desk.connection);
    desk.out << QStringLiteral("Tablas creadas.\n");
}

void loadDemonstration(Desk& desk, const QStringList&) {
    dalvora::demo::loadDemonstration(desk.connection);
    desk.out << QStringLiteral("Empresas de demostración 001 y 002 cargadas, con sus usuarios.\n");
}

struct Order {
    const char16_t* name;
    const char* arguments;
    const char* meaning;
    int least;
    int most;
    int audit; ///< code of its audit entry, 0 for none
    void (*perform)(Desk& desk, const QStringList& arguments);
};

constexpr Order orders[] = {
    {u"tablas", "", "crea las tablas en una base de datos vacía", 0, 0, 0, createTables},
    {u"demostracion", "", "carga las empresas de demostración y sus usuarios", 0, 0, 0, loadDemonstration},
    {u"usuarios", "", "lista los usuarios con sus derechos", 0, 0, 0, listUsers},
    {u"alta", "USUARIO [NOMBRE]", "crea un usuario; lee su contraseña", 1, 2, AuditCreate, addUser},
    {u"baja", "USUARIO", "elimina un usuario con sus derechos", 1, 1, AuditDelete, removeUser},
    {u"clave", "USUARIO", "cambia la contraseña; la lee", 1, 1, AuditChange, setPassword},
    {u"derechos", "USUARIO PROGRAMA LETRAS", "otorga los derechos RWXD, «-» donde no; ej. VELTRANO RW--", 3,
     3, AuditChange, setRights},
    {u"desbloquear", "USUARIO", "termina el bloqueo por contraseñas incorrectas", 1, 1, AuditChange, unlock},
    {u"auditoria", "[N]", "muestra las últimas N entradas de auditoría (50)", 0, 1, 0, showAudit},
};

const Order* orderNamed(const QString& name) {
    for (const Order& order : orders)
        if (name.compare(QStringView(order.name), Qt::CaseInsensitive) == 0)
            return &order;
    return nullptr;
}

QString systemUser() {
    const QString user = qEnvironmentVariable("USER", qEnvironmentVariable("USERNAME"));
    return user.isEmpty() ? QStringLiteral("?") : user;
}

/// Every change is told to the audit trail, too; never a password.
void audit(Connection& connection, const Order& order, const QStringList& arguments) {
    AuditTrail trail(connection);
    QString text =
        QStringLiteral("USUARIO:%1:%2").arg(arguments[0], QString::fromUtf16(order.name).toUpper());
    if (order.perform == setRights)
        text += u':' + arguments[1].toUpper() + u':' + arguments[2].toUpper();
    trail.add({QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz")), systemUser(),
               QString(), QStringLiteral("QUORVANE-ADMIN"), order.audit, text, QSysInfo::machineHostName()});
    trail.store();
}

} // namespace

int AdminProgram::run(QStringList arguments) {
    QString folder = Profile::defaultFolder();
    if (arguments.value(0) == QLatin1String("--perfil")) {
        if (arguments.size() < 2)
            return usage(QStringLiteral("falta la carpeta de --perfil"));
        folder = arguments[1];
        arguments.remove(0, 2);
    }
    if (arguments.isEmpty())
        return usage(QStringLiteral("falta la orden"));
    const Order* order = orderNamed(arguments[0]);
    if (!order)
        return usage(QStringLiteral("orden desconocida «%1»").arg(arguments[0]));
    if (arguments.size() - 1 < order->least || arguments.size() - 1 > order->most)
        return usage(QStringLiteral("argumentos de %1: %2")
                         .arg(QString::fromUtf16(order->name), QLatin1String(order->arguments)));
    try {
        return perform(folder, arguments);
    } catch (const RunTimeError& error) {
        m_errors << QStringLiteral("Error: ") << error.description()
                 << QStringLiteral(" (%1)\n").arg(error.number());
        return ExitFailure;
    }
}

int AdminProgram::perform(const QString& folder, const QStringList& order) {
    const QString connectString = Profile::load(folder).resolvedConnectString(folder);
    Connection connection;
    connection.open(connectString);
    const Order& found = *orderNamed(order[0]);
    if (found.perform != createTables)
        Accounts(connection)
            .checkLayout(ConnectString::parse(connectString).value(QStringLiteral("database")));
    Desk desk{connection, Administration(connection), m_out, m_password};
    const QStringList arguments = order.mid(1);
    found.perform(desk, arguments);
    if (found.audit != 0)
        audit(connection, found, arguments);
    return ExitSuccess;
}

int AdminProgram::usage(const QString& why) {
    m_errors << QStringLiteral("Error: ") << why
             << QStringLiteral("\nUso: quorvane-admin [--perfil CARPETA] ORDEN\n");
    for (const Order& order : orders)
        m_errors << "  "
                 << (QString::fromUtf16(order.name) + u' ' + QLatin1String(order.arguments)).leftJustified(36)
                 << QString::fromUtf8(order.meaning) << '\n';
    return ExitUsage;
}

} // namespace quorvane::admin
