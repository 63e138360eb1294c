#include "platform/quorvane32/core/DateColumns.h"
#include <algorithm>

namespace quorvane {

void DateColumns::add(const QString& table, const QString& column, bool isDate) {
    const QString name = column.toLower();
    m_tables[table.toLower()].push_back({name, isDate});
    Use& use = m_names[name];
    (isDate ? use.dated : use.otherwise) = true;
}

bool DateColumns::isDateEverywhere(const QString& column) const {
    const Use use = m_names.value(column);
    return use.dated && !use.otherwise;
}

bool DateColumns::isDateIn(const QString& table, const QString& column) const {
    const auto found = m_tables.constFind(table);
    return found != m_tables.constEnd() && std::ranges::any_of(*found, [&](const Column& candidate) {
               return candidate.isDate && candidate.name == column;
           });
}

std::vector<bool> DateColumns::ofTable(const QString& table) const {
    std::vector<bool> dates;
    for (const Column& column : m_tables.value(table))
        dates.push_back(column.isDate);
    return dates;
}

} // namespace quorvane
