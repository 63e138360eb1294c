#include "platform/quorvane32/session/AuditReader.h"

#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/SessionSql.h"
#include <QStringList>
#include <algorithm>
#include <vector>

namespace quorvane {

namespace {

const QString selectEntries = QStringLiteral("Momento, Usuario, Empresa, Programa, Codigo, Texto, Equipo "
                                             "FROM ses_auditoria%1 ORDER BY Momento%2, Id%2");

/// A moment begins with its day, so that a comparison of texts is one of times.
QString isoDay(const QDate& day) {
    return sqlText(day.toString(Qt::ISODate));
}

QString conditions(const AuditFilter& filter) {
    QStringList parts;
    const auto equal = [&](const char* column, const QString& value) {
        if (!value.isEmpty())
            parts.append(QLatin1String(column) + QStringLiteral(" = ") + sqlText(value));
    };
    equal("Usuario", filter.user);
    equal("Empresa", filter.company);
    equal("Programa", filter.program);
    if (filter.from.isValid())
        parts.append(QStringLiteral("Momento >= ") + isoDay(filter.from));
    if (filter.to.isValid())
        parts.append(QStringLiteral("Momento < ") + isoDay(filter.to.addDays(1)));
    return parts.isEmpty() ? QString() : QStringLiteral(" WHERE ") + parts.join(QStringLiteral(" AND "));
}

AuditEntry entryOf(const Recordset& row) {
    static const RegionalSettings plain{};
    const auto text = [&](int ordinal) { return row.value(ordinal).toText(plain); };
    return {text(0), text(1), text(2), text(3), static_cast<int>(row.value(4).toNumber(plain)),
            text(5), text(6)};
}

} // namespace

void AuditReader::all(const AuditFilter& filter, const Take& take) {
    Recordset rows = m_connection.openRecordset(QStringLiteral("SELECT ") +
                                                selectEntries.arg(conditions(filter), QString()));
    for (; !rows.eof(); rows.moveNext())
        take(entryOf(rows));
}

void AuditReader::last(const AuditFilter& filter, int count, const Take& take) {
    std::vector<AuditEntry> entries;
    Recordset rows =
        m_connection.openRecordset(QStringLiteral("SELECT TOP %1 ").arg(count) +
                                   selectEntries.arg(conditions(filter), QStringLiteral(" DESC")));
    for (; !rows.eof(); rows.moveNext())
        entries.push_back(entryOf(rows));
    std::for_each(entries.rbegin(), entries.rend(), take);
}

} // namespace quorvane
