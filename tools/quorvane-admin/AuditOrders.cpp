#include "tools/quorvane-admin/Order.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/session/AuditReader.h"
#include "tools/quorvane-admin/CsvText.h"
#include <QTextStream>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

constexpr int usualEntries = 50;

constexpr Option options[] = {
    {u"usuario", "USUARIO", "sólo de este usuario"},
    {u"empresa", "EMPRESA", "sólo de esta empresa"},
    {u"programa", "PROGRAMA", "sólo de este programa"},
    {u"desde", "DD/MM/AAAA", "desde este día"},
    {u"hasta", "DD/MM/AAAA", "hasta este día"},
    {u"csv", "", "como valores separados por comas (UTF-8); todas, si no se dice cuántas"},
};

QDate day(const CommandLine& line, const QString& option) {
    if (!line.has(option))
        return {};
    const QDate date = QDate::fromString(line.value(option), u"d/M/yyyy"_s);
    if (!date.isValid())
        throw UsageError(u"«%1» no es una fecha: --%2 DD/MM/AAAA"_s.arg(line.value(option), option));
    return date;
}

AuditFilter filterOf(const CommandLine& line) {
    AuditFilter filter{line.value(u"usuario"_s), line.value(u"empresa"_s), line.value(u"programa"_s),
                       day(line, u"desde"_s), day(line, u"hasta"_s)};
    if (filter.from.isValid() && filter.to.isValid() && filter.to < filter.from)
        throw UsageError(u"el día de --hasta es anterior al de --desde"_s);
    return filter;
}

/// How many entries are asked for; nothing for all.
std::optional<int> countOf(const CommandLine& line) {
    if (line.words.isEmpty())
        return line.has(u"csv"_s) ? std::nullopt : std::optional(usualEntries);
    bool ok = false;
    const int count = line.words[0].toInt(&ok);
    if (!ok || count < 1)
        throw UsageError(u"«%1» no es una cantidad de entradas"_s.arg(line.words[0]));
    return count;
}

void writeLine(QTextStream& out, const AuditEntry& entry) {
    out << entry.moment << "  " << entry.user.leftJustified(20) << ' ' << entry.company.leftJustified(6)
        << entry.program.leftJustified(16) << QString::number(entry.code).rightJustified(3) << "  "
        << entry.text << '\n';
}

void writeCsv(QTextStream& out, const AuditEntry& entry) {
    out << csvLine({entry.moment, entry.user, entry.company, entry.program, QString::number(entry.code),
                    entry.text, entry.client});
    // A reader who has seen enough closes the pipe, and a disk can be full: no use in reading on.
    if (out.status() != QTextStream::Ok)
        throw RunTimeError(ErrorDiskFull, u"No se puede escribir la salida"_s);
}

ExitCode show(Desk& desk, const CommandLine& line) {
    const AuditFilter filter = filterOf(line);
    const std::optional<int> count = countOf(line);
    const bool csv = line.has(u"csv"_s);
    if (csv)
        desk.out << csvLine(
            {u"Momento"_s, u"Usuario"_s, u"Empresa"_s, u"Programa"_s, u"Codigo"_s, u"Texto"_s, u"Equipo"_s});
    const AuditReader::Take take = [&](const AuditEntry& entry) {
        csv ? writeCsv(desk.out, entry) : writeLine(desk.out, entry);
    };
    AuditReader reader(desk.connection);
    if (count)
        reader.last(filter, *count, take);
    else
        reader.all(filter, take);
    return ExitSuccess;
}

constexpr Order orders[] = {
    {u"auditoria", "[N]", "muestra las últimas N entradas de auditoría (50)", 0, 1, options, Needs::Tables,
     show},
};

} // namespace

std::span<const Order> auditOrders() {
    return orders;
}

} // namespace quorvane::admin
