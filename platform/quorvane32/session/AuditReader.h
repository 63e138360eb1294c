#pragma once

#include "platform/quorvane32/session/AuditTrail.h"
#include <QDate>
#include <functional>

namespace quorvane {

/// Which entries of the audit trail are asked for; what is empty asks nothing.
struct AuditFilter {
    QString user;
    QString company;
    QString program;
    QDate from; ///< the first day
    QDate to;   ///< the last day
};

/// Reads the audit trail, which grows for years: entries are handed over one by one as they come. User,
/// company and time have indexes of their own. Entries are ordered by their time: one that waited in a
/// program's memory was stored behind younger ones. The database's errors leave the operations.
class AuditReader {
public:
    using Take = std::function<void(const AuditEntry& entry)>;

    explicit AuditReader(Connection& connection) : m_connection(connection) {}

    /// All entries, oldest first.
    void all(const AuditFilter& filter, const Take& take);
    /// The last ones, oldest first; they are held in memory.
    void last(const AuditFilter& filter, int count, const Take& take);

private:
    Connection& m_connection;
};

} // namespace quorvane
