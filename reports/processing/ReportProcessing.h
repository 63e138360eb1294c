#pragma once

#include "data/CommissionReport.h"
#include "platform/quorvane32/base/Date.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/reportengine/engine/Report.h"
#include "reports/processing/ReportFolder.h"
#include <functional>
#include <memory>

namespace quorvane {
class Session;
} // namespace quorvane

namespace dalvora {

class DBTable;

/// The report side of the record: finds the definitions of the program, asks the database for the rows that
/// the record's filters describe, and hands them with the company's heading to the report engine. It keeps a
/// connection of its own, so rows that are still being fetched and the record's transactions never meet.
class ReportProcessing final : public CommissionReport {
public:
    /// What tests put their own parts into.
    struct Parts {
        QString programFolder; ///< without a trailing separator
        std::function<std::unique_ptr<quorvane::Connection>()> makeConnection = [] {
            return std::make_unique<quorvane::Connection>();
        };
        std::function<quorvane::Date()> today = [] {
            return quorvane::Date::fromQDate(QDate::currentDate());
        };
    };
    /// Record and session outlive it.
    ReportProcessing(const DBTable& record, const quorvane::Session& session, Parts parts);
    ~ReportProcessing() override;

    int CR_Connect(const QString& StrConn) override;
    int CR_Disconnect() override;
    int LoadReportsList() override;
    QString ReportsFile(qint16 Index) const override { return m_names.at(Index); }
    qint16 ReportsCount() const override { return m_names.count(); }
    int CR_ProcessReport() override;
    quorvane::report::Report* Report() const override { return m_report.get(); }
    void DetSeparadores(QString& Miles, QString& Decimales) const override;
    int ReadUnboundVariables() override;
    int FormatReport() override;

private:
    /// 0 or -1; raises the errors that stop it.
    int process();
    void openReport(const QString& file, quorvane::Recordset rows);
    /// Decimals of the record's currency; error 9 when the company's table lacks it.
    int currencyDecimals() const;
    void formatAmounts();
    void finish();
    /// Error 91 before CR_Connect and after CR_Disconnect.
    quorvane::Connection& connection() const;
    ReportFolder folder() const;

    const DBTable& m_record;
    const quorvane::Session& m_session;
    Parts m_parts;
    ReportNames m_names;
    quorvane::report::Application m_application;
    /// Shared with the rows of a report, which may outlive the reports' connection to it.
    std::shared_ptr<quorvane::Connection> m_connection;
    std::unique_ptr<quorvane::report::Report> m_report;
};

/// The characters that stand behind the first "8" and the first "1" of the number 8001 as it was written with
/// grouping and decimals: its separators. One whose digit is not there is left as it was.
void separatorsOf(const QString& written, QString& Miles, QString& Decimales);

} // namespace dalvora
