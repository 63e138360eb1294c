#include "platform/reportengine/layout/Totals.h"
#include "platform/reportengine/layout/Layout.h"
#include <algorithm>

namespace quorvane::report {

namespace {

template<class Visit> void forEachObject(const Definition& definition, Visit visit) {
    for (const Section& section : definition.sections)
        for (const ReportObject& object : section.objects)
            visit(object);
}

} // namespace

std::vector<int> chartColumns(const Definition& definition) {
    std::vector<int> columns;
    forEachObject(definition, [&](const ReportObject& object) {
        const bool known = std::find(columns.begin(), columns.end(), object.chart.column) != columns.end();
        if (object.kind == ObjectKind::Chart && !known)
            columns.push_back(object.chart.column);
    });
    return columns;
}

Totals::Totals(const Definition& definition) : m_counts(definition.groups.size() + 1) {
    forEachObject(definition, [&](const ReportObject& object) {
        if (object.kind == ObjectKind::Field && object.source.kind == FieldSource::Kind::Sum)
            ask(object.source.index, object.source.scope);
        else if (object.kind == ObjectKind::Chart)
            ask(object.chart.column, object.chart.group);
    });
    std::sort(m_cells.begin(), m_cells.end(), [](const Cell& a, const Cell& b) {
        return a.column != b.column ? a.column < b.column : a.scope < b.scope;
    });
    m_sums.resize(m_cells.size());
}

void Totals::ask(int column, int scope) {
    const bool known = std::any_of(m_cells.begin(), m_cells.end(), [&](const Cell& cell) {
        return cell.column == column && cell.scope == scope;
    });
    if (!known)
        m_cells.push_back({column, scope});
}

void Totals::add(const RowReader& row) {
    int column = -1;
    double number = 0;
    for (std::size_t i = 0; i < m_cells.size(); ++i) {
        if (m_cells[i].column != column) {
            column = m_cells[i].column;
            number = row.number(column);
        }
        m_sums[i].add(number);
    }
    for (qint64& count : m_counts)
        ++count;
}

void Totals::restart(int group) {
    for (std::size_t i = 0; i < m_cells.size(); ++i)
        if (m_cells[i].scope >= group)
            m_sums[i] = {};
    std::fill(m_counts.begin() + group + 1, m_counts.end(), 0);
}

double Totals::sum(int scope, int column) const {
    for (std::size_t i = 0; i < m_cells.size(); ++i)
        if (m_cells[i].column == column && m_cells[i].scope == scope)
            return m_sums[i].value();
    return 0;
}

} // namespace quorvane::report
