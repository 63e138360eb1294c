#pragma once

#include "demo/RowTarget.h"

struct sqlite3;

namespace dalvora::demo {

/// An embedded database that is being filled: one statement a table, prepared once.
class SqliteTarget final : public RowTarget {
public:
    explicit SqliteTarget(sqlite3* database) : m_database(database) {}
    std::unique_ptr<RowSink> open(const char* table, const char* columns) override;
    sqlite3* database() const { return m_database; }

private:
    sqlite3* m_database;
};

} // namespace dalvora::demo
