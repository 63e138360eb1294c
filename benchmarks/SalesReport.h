#pragma once

#include "platform/quorvane32/core/Connection.h"
#include "platform/reportengine/definition/Definition.h"
#include "platform/reportengine/layout/Layout.h"
#include <QString>
#include <memory>

namespace bench {

/// A report over a database: how a program makes it, and the plainest way to get at its rows.
class SalesReport {
public:
    SalesReport(const QString& databaseFile, QString statement, const QString& definitionFile);

    const quorvane::report::Definition& definition() const { return m_definition; }
    /// Asks the database and stands before the first row.
    std::unique_ptr<quorvane::report::RowSource> openRows() const;
    std::unique_ptr<quorvane::report::Layout> open() const;

    /// Fetches the values of the definition's columns, up to the given number of rows, and sorts what the
    /// report sorts by when asked to. The number of rows.
    qint64 fetch(qint64 most, bool sorted) const;

private:
    quorvane::report::Definition m_definition;
    QString m_statement;
    std::shared_ptr<quorvane::Connection> m_connection = std::make_shared<quorvane::Connection>();
};

} // namespace bench
