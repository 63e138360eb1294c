#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Engine.h"
#include "platform/quorvane32/core/postgres/PostgresLink.h"
#include <deque>
#include <optional>
#include <vector>

namespace quorvane::postgres {

/// Rows of one SELECT, one at a time as the server sends them: a report of a million rows costs the memory of
/// one. When another statement needs the link meanwhile, the rows that are left are taken into memory first
/// (a save reads a handful of rows ahead; a report has a connection of its own), so every row is read as it
/// was when the query ran.
class PostgresCursor final : public Cursor, public PendingRows {
public:
    PostgresCursor(std::shared_ptr<PostgresLink> link, QSqlQuery query, std::vector<QString> names);
    ~PostgresCursor() override;
    PostgresCursor(const PostgresCursor&) = delete;
    PostgresCursor& operator=(const PostgresCursor&) = delete;

    bool next() override;
    int columnCount() const override { return static_cast<int>(m_columns.size()); }
    QString columnName(int ordinal) const override { return m_columns[ordinal].name; }
    Value value(int ordinal) override;

    void fetchAll() noexcept override;

private:
    enum class Kind : quint8 { Text, Exact, Float, Whole, Date, Truth };
    struct Column {
        QString name;
        Kind kind = Kind::Text;
    };
    using Row = std::vector<Value>;

    static Kind kindOf(int type);
    /// The next row off the link; false past the last one.
    bool fetch();
    Value fetched(int ordinal) const;

    std::shared_ptr<PostgresLink> m_link;
    QSqlQuery m_query;
    std::vector<Column> m_columns;
    /// Rows in memory, the current one first, once the link was needed.
    std::deque<Row> m_rows;
    bool m_inMemory = false;
    std::optional<RunTimeError> m_error;
};

} // namespace quorvane::postgres
