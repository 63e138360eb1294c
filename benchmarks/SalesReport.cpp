#include "benchmarks/SalesReport.h"
#include "platform/reportengine/definition/DefinitionReader.h"
#include "platform/reportengine/rows/SortKeys.h"
#include "reports/processing/RecordsetRows.h"
#include <algorithm>
#include <benchmark/benchmark.h>
#include <vector>

namespace bench {

using namespace quorvane;
using namespace quorvane::report;

namespace {

/// Sort keys side by side, sorted as fast as we know how to: all at once and without their rows.
class Keys {
public:
    explicit Keys(const Definition& definition) : m_parts(sortParts(definition)) {}

    void add(const std::vector<Value>& values) {
        m_key.clear();
        for (const KeyPart& part : m_parts)
            appendKey(part, values[part.column], m_key);
        const QByteArrayView key(reinterpret_cast<const char*>(m_key.data()), m_key.size());
        m_entries.push_back({keyPrefix(key), m_bytes.size(), key.size()});
        m_bytes.append(key);
    }
    void sort() {
        std::sort(m_entries.begin(), m_entries.end(), [this](const Entry& a, const Entry& b) {
            return a.prefix != b.prefix ? a.prefix < b.prefix : compareKeys(keyOf(a), keyOf(b)) < 0;
        });
        benchmark::DoNotOptimize(m_entries.data());
    }

private:
    struct Entry {
        quint64 prefix = 0;
        qsizetype offset = 0;
        qsizetype size = 0;
    };
    QByteArrayView keyOf(const Entry& entry) const { return {m_bytes.data() + entry.offset, entry.size}; }

    std::vector<KeyPart> m_parts;
    SpanishKey m_key;
    ByteBuffer m_bytes;
    std::vector<Entry> m_entries;
};

} // namespace

SalesReport::SalesReport(const QString& databaseFile, QString statement, const QString& definitionFile)
    : m_definition(readDefinition(definitionFile)), m_statement(std::move(statement)) {
    m_connection->open(QStringLiteral("Driver=sqlite;Database=") + databaseFile);
}

std::unique_ptr<RowSource> SalesReport::openRows() const {
    return std::make_unique<dalvora::RecordsetRows>(m_connection, m_connection->openRecordset(m_statement));
}

std::unique_ptr<Layout> SalesReport::open() const {
    return std::make_unique<Layout>(m_definition, openRows());
}

qint64 SalesReport::fetch(qint64 most, bool sorted) const {
    Recordset rows = m_connection->openRecordset(m_statement);
    std::vector<int> ordinals;
    for (const Column& column : m_definition.columns)
        ordinals.push_back(column.origin == Column::Origin::Rows ? rows.ordinal(column.name) : -1);
    std::vector<Value> values(ordinals.size());
    Keys keys(m_definition);
    qint64 count = 0;
    for (; count < most && !rows.eof(); rows.moveNext(), ++count) {
        for (std::size_t i = 0; i < ordinals.size(); ++i)
            if (ordinals[i] >= 0)
                values[i] = rows.value(ordinals[i]);
        if (sorted)
            keys.add(values);
        benchmark::DoNotOptimize(values.data());
    }
    if (sorted)
        keys.sort();
    return count;
}

} // namespace bench
