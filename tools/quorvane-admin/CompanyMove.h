#pragma once

#include "sql/TableLayouts.h"
#include "tools/quorvane-admin/RowText.h"
#include <QStringList>
#include <functional>
#include <vector>

namespace quorvane {
class Connection;
class Recordset;
} // namespace quorvane

namespace quorvane::admin {

struct MovedTable {
    QString table;
    RowSum sum; ///< of the rows here and there, which are the same
};

struct MovedCompany {
    QString code; ///< as it is stored
    std::vector<MovedTable> tables;
    /// Users that the other database knew already; they were left as they are.
    QStringList usersThere;
};

/// Brings the rows of one company from one database to another, whatever the engines: a row is read, sent on
/// and forgotten, a hundred with one statement. At the target everything is one transaction; it ends only
/// when every table has been read back and holds the very same rows. The source is only read, in one state
/// where its engine offers that, so that no save falls between two tables.
class CompanyMove {
public:
    /// How far it is: rows of a table so far.
    using Progress = std::function<void(const QString& table, qint64 rows)>;

    CompanyMove(Connection& source, Connection& target, Progress progress);

    struct Also {
        bool users = false; ///< with their rights, unless they are there
        bool audit = false; ///< the company's entries of the audit trail
    };
    /// Errors: 3265 for a company that the source does not know, 58 for one that the target knows, and those
    /// of the databases, with table and key of the row that they are about. Nothing is stored then.
    MovedCompany run(const QString& company, Also also);

private:
    struct Rows;
    struct Batch;
    struct Copied;

    void requireNew(const QString& code);
    std::vector<Rows> plan(MovedCompany& moved, Also also);
    Rows usersMissingThere(const QString& table, const QStringList& codes) const;
    Copied copy(const Rows& rows);
    void add(Batch& batch, const Recordset& row, Copied& copied);
    void send(Batch& batch);
    [[noreturn]] void tellRow(const Batch& batch, const QString& why, int number);
    void verify(const Copied& copied);
    [[noreturn]] void tellDifference(const Rows& rows);

    Connection& m_source;
    Connection& m_target;
    Progress m_progress;
    dalvora::SchemaEngine m_sourceEngine;
    dalvora::SchemaEngine m_targetEngine;
};

} // namespace quorvane::admin
