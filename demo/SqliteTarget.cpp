#include "demo/SqliteTarget.h"

#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include <sqlite3.h>

namespace dalvora::demo {

namespace {

QByteArray insertStatement(const char* table, const char* columns) {
    const auto count = QByteArray(columns).count(',') + 1;
    QByteArray places("?");
    for (qsizetype i = 1; i < count; ++i)
        places += ",?";
    return QByteArray("INSERT INTO ") + table + " (" + columns + ") VALUES (" + places + ")";
}

class SqliteSink final : public RowSink {
public:
    SqliteSink(sqlite3* database, const QByteArray& insert)
        : m_database(database), m_statement(quorvane::sqlite::prepare(database, insert)) {}

    void add(std::span<const Field> row) override {
        int position = 0;
        for (const Field& field : row)
            bind(++position, field);
        const int result = sqlite3_step(m_statement.get());
        sqlite3_reset(m_statement.get());
        if (result != SQLITE_DONE)
            quorvane::sqlite::raiseLastError(m_database);
    }

private:
    void bind(int position, const Field& field) {
        if (const auto* text = std::get_if<QString>(&field)) {
            const QByteArray utf8 = text->toUtf8();
            sqlite3_bind_text(m_statement.get(), position, utf8.constData(), static_cast<int>(utf8.size()),
                              SQLITE_TRANSIENT);
        } else if (const auto* number = std::get_if<qint64>(&field)) {
            sqlite3_bind_int64(m_statement.get(), position, *number);
        } else if (const auto* amount = std::get_if<Amount>(&field)) {
            sqlite3_bind_double(m_statement.get(), position, static_cast<double>(amount->hundredths) / 100);
        } else {
            sqlite3_bind_null(m_statement.get(), position);
        }
    }

    sqlite3* m_database;
    quorvane::sqlite::Statement m_statement;
};

} // namespace

std::unique_ptr<RowSink> SqliteTarget::open(const char* table, const char* columns) {
    return std::make_unique<SqliteSink>(m_database, insertStatement(table, columns));
}

} // namespace dalvora::demo
