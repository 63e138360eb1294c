#pragma once

#include <QString>

namespace quorvane::report {
class Report;
} // namespace quorvane::report

namespace dalvora {

/// The report side of the commission record, seen from the record: what makes reports plugs in here, so the
/// record never links the report engine. What a report is made for stands in the record itself
/// (`reportName`, `FechaIniFiltro`, ...).
class CommissionReport {
public:
    virtual ~CommissionReport() = default;

    /// Opens the reports' own connection; 0. Raises what the database raises.
    virtual int CR_Connect(const QString& StrConn) = 0;
    /// Closes that connection; 0.
    virtual int CR_Disconnect() = 0;

    /// Lists the report definitions; 0, or the number of the run-time error that stopped the listing.
    virtual int LoadReportsList() = 0;
    /// The name of a definition, without folder and extension; "" outside 0 to 50 and where there is none.
    virtual QString ReportsFile(qint16 Index) const = 0;
    virtual qint16 ReportsCount() const = 0;

    /// Builds and fills the report that the record describes: 0 when it stands ready in `Report`, -1 when
    /// there are no rows (told), else the number of the run-time error that stopped it.
    virtual int CR_ProcessReport() = 0;
    /// The report filled last; null before the first one.
    virtual quorvane::report::Report* Report() const = 0;

    /// Gives the regional separators of thousands and decimals.
    virtual void DetSeparadores(QString& Miles, QString& Decimales) const = 0;
    // The two finishing steps of CR_ProcessReport; 0 or the number of a run-time error.
    virtual int ReadUnboundVariables() = 0;
    virtual int FormatReport() = 0;
};

} // namespace dalvora
