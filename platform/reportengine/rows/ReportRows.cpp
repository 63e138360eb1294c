#include "platform/reportengine/rows/ReportRows.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/rows/NeumaierSum.h"

namespace quorvane::report {

namespace {

/// Rows fetched between two looks at the clock.
constexpr int rowsAtATime = 32;

int sourceColumn(const RowSource& source, const QString& name) {
    for (int i = 0; i < source.columnCount(); ++i)
        if (name.compare(source.columnName(i), Qt::CaseInsensitive) == 0)
            return i;
    throw RunTimeError(ErrorItemNotFound,
                       QStringLiteral("Las filas del informe no tienen la columna %1").arg(name));
}

} // namespace

ReportRows::ReportRows(const Definition& definition, std::unique_ptr<RowSource> source,
                       const RowLimits& limits)
    : m_definition(definition)
    , m_source(std::move(source))
    , m_keyParts(sortParts(definition))
    , m_phase(m_keyParts.empty() ? Phase::Streaming : Phase::Fetching)
    , m_run(limits)
    , m_store(limits)
    , m_values(definition.columns.size()) {
    bind(*m_source);
}

void ReportRows::bind(const RowSource& source) {
    for (const Column& column : m_definition.columns)
        m_sourceColumns.push_back(column.origin == Column::Origin::Rows ? sourceColumn(source, column.name)
                                                                        : -1);
}

ReportRows::Next ReportRows::next() {
    switch (m_phase) {
    case Phase::Streaming:
        return stream();
    case Phase::Fetching:
        fetchSome();
        return Next::NotYet;
    case Phase::Storing:
        storeSome();
        return Next::NotYet;
    case Phase::Giving:
        return give();
    case Phase::Merging:
        return merge();
    case Phase::Done:
        break;
    }
    return Next::End;
}

ReportRows::Next ReportRows::stream() {
    if (m_run.isFull())
        while (!m_run.store(m_store)) {
        }
    if (!fetch()) {
        endFetch();
        m_phase = Phase::Done;
        return Next::End;
    }
    const RowAddress address{static_cast<quint32>(m_store.segmentCount()), m_run.add({}, m_row.view())};
    m_order.push_back(address);
    m_current = m_row.view();
    return Next::Row;
}

void ReportRows::fetchSome() {
    for (int i = 0; i < rowsAtATime && !m_run.isFull(); ++i) {
        if (!fetch()) {
            endFetch();
            break;
        }
        m_key.clear();
        for (const KeyPart& part : m_keyParts)
            appendKey(part, m_values[part.column], m_key);
        m_run.add({reinterpret_cast<const char*>(m_key.data()), m_key.size()}, m_row.view());
    }
    if (!m_run.isFull() && m_source)
        return;
    m_run.sort();
    m_phase = !m_source && m_store.segmentCount() == 0 ? Phase::Giving : Phase::Storing;
}

/// All rows are in one run: they need not move.
ReportRows::Next ReportRows::give() {
    if (count() == m_run.count()) {
        m_phase = Phase::Done;
        return Next::End;
    }
    const quint32 offset = m_run.offsetOf(count());
    m_current = m_run.recordAt(offset).row;
    m_order.push_back({0, offset});
    return Next::Row;
}

void ReportRows::storeSome() {
    if (!m_run.isEmpty() && !m_run.store(m_store))
        return;
    if (m_source) {
        m_phase = Phase::Fetching;
        return;
    }
    m_run = RowRun({});
    m_order.reserve(static_cast<std::size_t>(m_fetched));
    m_merge.emplace(m_store);
    m_phase = Phase::Merging;
}

ReportRows::Next ReportRows::merge() {
    if (!m_merge->next()) {
        m_merge.reset();
        m_current = {};
        m_phase = Phase::Done;
        return Next::End;
    }
    m_order.push_back(m_merge->address());
    m_current = m_merge->record().row;
    return Next::Row;
}

bool ReportRows::fetch() {
    if (!m_source->next())
        return false;
    m_row.clear();
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        const int column = m_sourceColumns[i];
        m_values[i] = column >= 0 ? m_source->value(column) : worked(m_definition.columns[i]);
        appendValue(m_row, m_values[i]);
    }
    ++m_fetched;
    return true;
}

Value ReportRows::worked(const Column& column) const {
    if (column.origin == Column::Origin::CountOf) {
        const Value& value = m_values[column.operands.front()];
        const QString* text = value.get<QString>();
        return qint32(text && compareSpanish(*text, column.wanted) == 0);
    }
    NeumaierSum sum;
    for (const int operand : column.operands)
        sum.add(numberOf(m_values[operand]).value_or(0));
    return sum.value();
}

void ReportRows::endFetch() {
    m_source.reset(); // what the database keeps for it is free again
}

QByteArrayView ReportRows::row(qint64 index, ByteBuffer& scratch) const {
    const RowAddress address = m_order[static_cast<std::size_t>(index)];
    if (static_cast<int>(address.segment) == m_store.segmentCount())
        return m_run.recordAt(address.offset).row;
    return m_store.read(address, scratch).row;
}

} // namespace quorvane::report
