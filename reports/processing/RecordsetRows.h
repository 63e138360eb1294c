#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Recordset.h"
#include "platform/reportengine/rows/RowSource.h"
#include <memory>
#include <optional>

namespace quorvane {
class Connection;
} // namespace quorvane

namespace dalvora {

/// A recordset as the rows of a report. It owns the recordset and keeps its connection alive, since a report
/// fetches its rows while it is laid out. An error ends the rows for good: it comes again at every further
/// row, so that half a report never passes for a whole one.
class RecordsetRows final : public quorvane::report::RowSource {
public:
    /// The recordset stands on its first row.
    RecordsetRows(std::shared_ptr<quorvane::Connection> connection, quorvane::Recordset rows);

    int columnCount() const override { return m_rows.fieldCount(); }
    QString columnName(int column) const override { return m_rows.fieldName(column); }
    bool next() override;
    quorvane::Value value(int column) override { return m_rows.value(column); }

private:
    std::shared_ptr<quorvane::Connection> m_connection;
    quorvane::Recordset m_rows;
    std::optional<quorvane::RunTimeError> m_error;
    bool m_started = false;
};

} // namespace dalvora
