#include "tools/quorvane-admin/AdminProgram.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/session/Accounts.h"
#include <QTextStream>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

/// Options that any command line may have.
constexpr Option commonOptions[] = {
    {u"perfil", "CARPETA", "carpeta del perfil quorvane.ini, en lugar de la habitual"},
    {u"help", "", "esta ayuda"},
    {u"ayuda", "", "esta ayuda"},
    {u"version", "", "la versión del programa"},
};

constexpr const char* exitCodes = "Código de salida: 0 hecho, 1 error, 2 línea de órdenes incorrecta, "
                                  "3 la revisión encontró algo.\n";

std::vector<std::span<const Order>> allOrders() {
    return {tableOrders(), userOrders(), auditOrders(), moveOrders(), checkOrders()};
}

const Order* orderNamed(const QString& name) {
    for (const std::span<const Order> group : allOrders())
        for (const Order& order : group)
            if (name.compare(QStringView(order.name), Qt::CaseInsensitive) == 0)
                return &order;
    return nullptr;
}

QString form(const Order& order) {
    return (QString::fromUtf16(order.name) + u' ' + QString::fromUtf8(order.arguments)).trimmed();
}

QString form(const Option& option) {
    return (u"--"_s + QString::fromUtf16(option.name) + u' ' + QString::fromUtf8(option.value)).trimmed();
}

void writeEntry(QTextStream& out, const QString& form, const char* meaning) {
    constexpr int width = 34;
    out << "  " << form.leftJustified(width) << ' ' << QString::fromUtf8(meaning) << '\n';
}

/// The options of every order together: what a word means is known before the order is.
std::vector<Option> knownOptions(const Order* order) {
    std::vector<Option> known(std::begin(commonOptions), std::end(commonOptions));
    if (order)
        known.insert(known.end(), order->options.begin(), order->options.end());
    return known;
}

/// The order's name: the first word that is neither an option nor the value of --perfil.
QString orderWord(const QStringList& arguments) {
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == u"--perfil"_s)
            ++i;
        else if (!arguments[i].startsWith(u"--"_s))
            return arguments[i];
    }
    return {};
}

} // namespace

int AdminProgram::run(const QStringList& arguments) {
    const QString name = orderWord(arguments);
    const Order* order = orderNamed(name);
    QString mistake;
    CommandLine line = parseCommandLine(arguments, knownOptions(order), mistake);
    const bool asksForHelp = name.compare(u"ayuda"_s, Qt::CaseInsensitive) == 0;
    if (line.has(u"help"_s) || line.has(u"ayuda"_s) || asksForHelp)
        return help(asksForHelp ? line.words.value(1) : name);
    if (!mistake.isEmpty() && (order || name.isEmpty()))
        return usage(mistake);
    if (line.has(u"version"_s)) {
        m_out << u"quorvane-admin " QUORVANE_VERSION "\n"_s;
        return ExitSuccess;
    }
    if (name.isEmpty())
        return usage(u"falta la orden"_s);
    if (!order)
        return usage(u"orden desconocida «%1»"_s.arg(name));
    line.words.removeFirst();
    if (line.words.size() < order->least || line.words.size() > order->most)
        return usage(u"la forma de la orden es: "_s + form(*order));
    try {
        return perform(*order, line);
    } catch (const UsageError& error) {
        return usage(error.text());
    } catch (const RunTimeError& error) {
        m_errors << u"Error: "_s << error.description() << u" (%1)\n"_s.arg(error.number());
        return ExitFailure;
    }
}

int AdminProgram::perform(const Order& order, const CommandLine& line) {
    const QString folder = line.has(u"perfil"_s) ? line.value(u"perfil"_s) : Profile::defaultFolder();
    Connection connection;
    Desk desk{connection, folder, Profile::load(folder), m_out, m_errors, m_password};
    if (order.needs == Needs::Place)
        makeMissingFile(desk.profile, folder);
    openForAdministration(connection, desk.profile, folder);
    if (order.needs == Needs::Tables)
        Accounts(connection).checkLayout(desk.database());
    return order.perform(desk, line);
}

int AdminProgram::help(const QString& orderName) {
    const Order* wanted = orderNamed(orderName);
    if (!orderName.isEmpty() && !wanted)
        return usage(u"orden desconocida «%1»"_s.arg(orderName));
    if (wanted) {
        m_out << u"quorvane-admin [--perfil CARPETA] "_s << form(*wanted)
              << (wanted->options.empty() ? QString() : u" [OPCIONES]"_s) << u"\n  "_s
              << QString::fromUtf8(wanted->meaning) << '\n';
        for (const Option& option : wanted->options)
            writeEntry(m_out, form(option), option.meaning);
        return ExitSuccess;
    }
    m_out << u"Administrador de Quorvane ERP: tablas, empresas, usuarios y auditoría de una base de datos.\n"
             "Uso: quorvane-admin [--perfil CARPETA] ORDEN\n"_s;
    for (const std::span<const Order> group : allOrders())
        for (const Order& order : group)
            writeEntry(m_out, form(order), order.meaning);
    writeEntry(m_out, u"ayuda [ORDEN]"_s, "esta ayuda, o la de una orden con sus opciones");
    m_out << u"Opciones:\n"_s;
    for (const Option& option : commonOptions)
        writeEntry(m_out, form(option), option.meaning);
    m_out << QString::fromUtf8(exitCodes);
    return ExitSuccess;
}

int AdminProgram::usage(const QString& why) {
    m_errors << u"Error: "_s << why << u". Vea «quorvane-admin ayuda».\n"_s;
    return ExitUsage;
}

} // namespace quorvane::admin
