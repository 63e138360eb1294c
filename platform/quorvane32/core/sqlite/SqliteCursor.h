#pragma once

#include "platform/quorvane32/core/Engine.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include <vector>

namespace quorvane::sqlite {

/// True for a declared type (null for none) whose columns hold dates: one with DATE or TIME in it. What the
/// cursor reads as dates and what the dialect writes as dates is this.
bool declaresDate(const char* type);

/// Rows of one prepared SELECT. A column's text is often the same in row after row (a scheme's code, "Neto"):
/// it is decoded once and shared as long as its bytes stay the same, which saves time and memory.
class SqliteCursor final : public Cursor {
public:
    SqliteCursor(Handle database, Statement statement);

    bool next() override;
    int columnCount() const override { return static_cast<int>(m_columns.size()); }
    QString columnName(int ordinal) const override { return m_columns[ordinal].name; }
    Value value(int ordinal) override;
    /// The type that a column has in the definition of its table; empty for an expression.
    QByteArray declaredType(int ordinal) const;

private:
    /// What the declared type of a column asks its values to be.
    enum class Declared : quint8 { Unknown, Text, Exact, Float, Whole, Date };
    struct Column {
        QString name;
        Declared declared = Declared::Unknown;
        QByteArray lastBytes;
        QString lastText;
    };
    static Declared declaredKind(const char* type);
    const QString& text(int ordinal);

    Handle m_database;
    Statement m_statement;
    std::vector<Column> m_columns;
};

} // namespace quorvane::sqlite
