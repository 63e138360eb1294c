#pragma once

#include "platform/reportengine/definition/Definition.h"
#include "platform/reportengine/rows/RowCodec.h"
#include "platform/reportengine/rows/RowRun.h"
#include "platform/reportengine/rows/RowSource.h"
#include "platform/reportengine/rows/RunMerge.h"
#include "platform/reportengine/rows/SortKeys.h"
#include <memory>
#include <optional>
#include <vector>

namespace quorvane::report {

/// The rows of a report in its order. They are fetched once and kept as bytes; when the report sorts, they
/// are sorted run by run as they come and the runs are merged as the rows are asked for, else they are given
/// out as they come. What has been given out can be read again by its position, for eight bytes a row.
class ReportRows {
public:
    /// Error 3265 when the rows lack a column of the definition.
    ReportRows(const Definition& definition, std::unique_ptr<RowSource> source, const RowLimits& limits);

    enum class Next {
        Row,   ///< the next row stands in current()
        End,   ///< there are no more rows
        NotYet ///< some more work is done, in far less than a tenth of a second; ask again
    };
    /// Errors of the source as they are; 61 and 75 for the temporary file.
    Next next();
    /// The bytes of the row that next() gave, good until its next call.
    QByteArrayView current() const { return m_current; }

    qint64 fetched() const { return m_fetched; }
    qint64 count() const { return static_cast<qint64>(m_order.size()); }
    /// A row that has been given out; its bytes lie in the scratch or in the store, good until the next call.
    QByteArrayView row(qint64 index, ByteBuffer& scratch) const;

private:
    enum class Phase { Streaming, Fetching, Storing, Giving, Merging, Done };

    Next stream();
    Next give();
    Next merge();
    void fetchSome();
    void storeSome();
    /// Fetches one row into m_row and m_values; false past the last one.
    bool fetch();
    Value worked(const Column& column) const;
    void bind(const RowSource& source);
    void endFetch();

    const Definition& m_definition;
    std::unique_ptr<RowSource> m_source;
    std::vector<int> m_sourceColumns; ///< of each column; -1 when it is worked out
    std::vector<KeyPart> m_keyParts;
    Phase m_phase;
    RowRun m_run;
    RowStore m_store;
    std::optional<RunMerge> m_merge;
    std::vector<RowAddress> m_order;
    std::vector<Value> m_values;
    ByteBuffer m_row;
    SpanishKey m_key;
    QByteArrayView m_current;
    qint64 m_fetched = 0;
};

} // namespace quorvane::report
