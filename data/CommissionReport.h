#pragma once

#include <QString>

namespace dalvora {

/// The report side of the commission record, seen from the record: what makes reports plugs in here, so the
/// record never links the report engine.
class CommissionReport {
public:
    virtual ~CommissionReport() = default;
    /// Lists the report definitions; 0, or the number of the run-time error that stopped the listing.
    virtual int LoadReportsList() = 0;
    /// Hands the reports the connect string of the database, on which they open a connection of their own; 0,
    /// or the number of the error.
    virtual int CR_Connect(const QString& connectString) = 0;
};

} // namespace dalvora
