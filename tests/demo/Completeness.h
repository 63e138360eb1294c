#pragma once

#include "platform/quorvane32/core/Connection.h"

namespace dalvora::demo {

/// Whether a database file holds the whole demonstration: its documents come first, the rights last.
inline bool isComplete(const QString& databasePath) {
    quorvane::Connection connection;
    connection.open(u"Driver=sqlite;Database="_qs + databasePath);
    const quorvane::Recordset rows = connection.openRecordset(
        u"select count(*) from documento where empresa = '001' union all select count(*) from ses_derecho"_qs);
    return rows.value(0).toNumber(quorvane::RegionalSettings()) == 854;
}

} // namespace dalvora::demo
