#include "platform/quorvane32/lookup/LookupRows.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/base/SpanishText.h"
#include "platform/quorvane32/core/Recordset.h"
#include <algorithm>
#include <limits>
#include <numeric>

namespace quorvane {

namespace {

/// The database's form of an empty date: 01/01/1900.
constexpr double databaseEmptyDate = 2;

bool isBlank(const Value& value) {
    if (value.isNull() || value.kind() == Kind::Empty)
        return true;
    const Date* date = value.get<Date>();
    return date && date->serial() == databaseEmptyDate;
}

/// A text whose plain comparison orders Spanish words: "ñ" stands behind every other "n", since the tilde
/// follows all letters and digits.
QString orderKey(QString text) {
    return foldPlain(text.replace(QStringLiteral("ñ"), QStringLiteral("n~"), Qt::CaseInsensitive));
}

} // namespace

LookupRows::LookupRows(const QueryDefinition& query, const RegionalSettings& regional)
    : m_regional(regional)
    , m_columns(query.columns)
    , m_folded(query.columns.size())
    , m_filters(query.columns.size()) {
    for (const QueryColumn& column : query.columns)
        m_shown.push_back(stored(column.field));
    for (const QString& field : query.returned)
        m_returned.push_back(stored(field));
}

int LookupRows::stored(const QString& field) {
    for (int i = 0; i < m_fields.size(); ++i) {
        if (m_fields[i].compare(field, Qt::CaseInsensitive) == 0)
            return i;
    }
    m_fields += field;
    return static_cast<int>(m_fields.size()) - 1;
}

void LookupRows::bind(const Recordset& recordset) {
    m_ordinals.clear();
    for (const QString& field : m_fields)
        m_ordinals.push_back(recordset.ordinal(field));
}

bool LookupRows::append(const Recordset& recordset) {
    for (const int ordinal : m_ordinals)
        m_cells.push_back(recordset.value(ordinal));
    const Row row = m_rowCount++;
    m_order.push_back(row);
    const bool visible = passes(row);
    if (visible)
        m_visible.push_back(row);
    return visible;
}

int LookupRows::visiblePosition(Row row) const {
    const auto found = std::find(m_visible.begin(), m_visible.end(), row);
    return found == m_visible.end() ? -1 : static_cast<int>(found - m_visible.begin());
}

const Value& LookupRows::cell(Row row, int stored) const {
    return m_cells[static_cast<size_t>(row) * m_ordinals.size() + static_cast<size_t>(stored)];
}

const Value& LookupRows::shownCell(Row row, int column) const {
    return cell(row, m_shown[static_cast<size_t>(column)]);
}

QString LookupRows::text(Row row, int column) const {
    return shownText(shownCell(row, column), this->column(column));
}

QString LookupRows::shownText(const Value& value, const QueryColumn& column) const {
    if (column.format == ColumnFormat::Number && column.decimals >= 0 && !isBlank(value) &&
        value.kind() != Kind::String)
        return m_regional.groupedText(value.toNumber(m_regional), column.decimals);
    return returnedText(value);
}

QString LookupRows::returnedText(const Value& value) const {
    return isBlank(value) ? QString() : value.toText(m_regional);
}

QStringList LookupRows::returnedValues(Row row) const {
    QStringList values;
    for (const int index : m_returned)
        values += returnedText(cell(row, index));
    return values;
}

QStringView LookupRows::foldedText(Row row, int column) {
    FoldedColumn& target = m_folded[static_cast<size_t>(column)];
    for (auto next = static_cast<Row>(target.ends.size()); next <= row; ++next) {
        target.characters += foldPlain(text(next, column));
        target.ends.push_back(target.characters.size());
    }
    const auto index = static_cast<size_t>(row);
    const qsizetype start = index == 0 ? 0 : target.ends[index - 1];
    return QStringView(target.characters).sliced(start, target.ends[index] - start);
}

bool LookupRows::passes(Row row) {
    for (int column = 0; column < columnCount(); ++column) {
        const QStringList& words = m_filters[static_cast<size_t>(column)];
        if (words.isEmpty())
            continue;
        const QStringView shown = foldedText(row, column);
        const bool all = std::all_of(words.begin(), words.end(),
                                     [&](const QString& word) { return shown.contains(word); });
        if (!all)
            return false;
    }
    return true;
}

void LookupRows::setFilter(int column, const QString& filter) {
    m_filters[static_cast<size_t>(column)] = foldPlain(filter).split(u' ', Qt::SkipEmptyParts);
    refilter();
}

bool LookupRows::isFiltered() const {
    return std::any_of(m_filters.begin(), m_filters.end(),
                       [](const QStringList& words) { return !words.isEmpty(); });
}

void LookupRows::refilter() {
    m_visible.clear();
    std::copy_if(m_order.begin(), m_order.end(), std::back_inserter(m_visible),
                 [this](Row row) { return passes(row); });
}

void LookupRows::sort(int column, Qt::SortOrder order) {
    std::iota(m_order.begin(), m_order.end(), 0);
    const bool descending = order == Qt::DescendingOrder;
    if (column >= 0 && this->column(column).format == ColumnFormat::Text)
        orderByText(column, descending);
    else if (column >= 0)
        orderByNumber(column, descending);
    refilter();
}

double LookupRows::orderNumber(const Value& value) const {
    constexpr double first = std::numeric_limits<double>::lowest();
    if (isBlank(value))
        return first;
    try {
        return value.toNumber(m_regional);
    } catch (const RunTimeError&) {
        return first;
    }
}

void LookupRows::orderByNumber(int column, bool descending) {
    std::vector<double> keys;
    keys.reserve(m_order.size());
    for (Row row = 0; row < m_rowCount; ++row)
        keys.push_back(orderNumber(shownCell(row, column)));
    orderByKeys(keys, descending);
}

void LookupRows::orderByText(int column, bool descending) {
    std::vector<QString> keys;
    keys.reserve(m_order.size());
    for (Row row = 0; row < m_rowCount; ++row)
        keys.push_back(orderKey(text(row, column)));
    orderByKeys(keys, descending);
}

template<class Key> void LookupRows::orderByKeys(const std::vector<Key>& keys, bool descending) {
    // Stable in both directions, so that equal rows keep the order of the query.
    std::stable_sort(m_order.begin(), m_order.end(), [&](Row a, Row b) {
        const Key& left = keys[static_cast<size_t>(descending ? b : a)];
        const Key& right = keys[static_cast<size_t>(descending ? a : b)];
        return left < right;
    });
}

} // namespace quorvane
