#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Engine.h"
#include "platform/quorvane32/core/qtsql/SqlLink.h"
#include <deque>
#include <optional>
#include <vector>

namespace quorvane::qtsql {

/// Rows of one SELECT, one at a time as the server sends them: a report of a million rows costs the memory of
/// one. When the link is needed meanwhile, rows come into memory first, and every row is read as it was when
/// the query ran.
class SqlCursor final : public Cursor, public PendingRows {
public:
    SqlCursor(std::shared_ptr<SqlLink> link, QSqlQuery query, std::vector<QString> names);
    ~SqlCursor() override;
    SqlCursor(const SqlCursor&) = delete;
    SqlCursor& operator=(const SqlCursor&) = delete;

    bool next() override;
    int columnCount() const override { return static_cast<int>(m_names.size()); }
    QString columnName(int ordinal) const override { return m_names[ordinal]; }
    Value value(int ordinal) override;

    bool takeIn(qsizetype limit) noexcept override;

private:
    using Row = std::vector<Value>;

    /// The next row off the link; false past the last one.
    bool fetch();
    void end();
    Row fetchedRow();
    Value fetched(int ordinal);

    std::shared_ptr<SqlLink> m_link;
    QSqlQuery m_query;
    std::vector<QString> m_names;
    std::unique_ptr<FieldReader> m_fields;
    /// The current row and those behind it that had to come in; empty while rows are read off the link.
    std::deque<Row> m_rows;
    bool m_ended = false; ///< nothing is left on the link
    std::optional<RunTimeError> m_error;
};

} // namespace quorvane::qtsql
