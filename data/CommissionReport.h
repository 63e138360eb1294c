#pragma once

namespace dalvora {

/// The report side of the commission record, seen from the record: what makes reports plugs in here, so the
/// record never links the report engine.
class CommissionReport {
public:
    virtual ~CommissionReport() = default;
    /// Lists the report definitions; 0, or the number of the run-time error that stopped the listing.
    virtual int LoadReportsList() = 0;
};

} // namespace dalvora
