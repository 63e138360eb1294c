#include "data/DBTable.h"

namespace dalvora {

void DBTable::setReport(std::unique_ptr<CommissionReport> report) {
    m_report = std::move(report);
}

int DBTable::CR_Connect(const QString& StrConn) {
    return m_report ? m_report->CR_Connect(StrConn) : 0;
}

int DBTable::CR_Disconnect() {
    return m_report ? m_report->CR_Disconnect() : 0;
}

int DBTable::LoadReportsList() {
    return m_report ? m_report->LoadReportsList() : 0;
}

QString DBTable::ReportsFile(qint16 Index) const {
    return m_report ? m_report->ReportsFile(Index) : QString();
}

qint16 DBTable::ReportsCount() const {
    return m_report ? m_report->ReportsCount() : qint16(0);
}

int DBTable::CR_ProcessReport() {
    return m_report ? m_report->CR_ProcessReport() : 0;
}

quorvane::report::Report* DBTable::Report() const {
    return m_report ? m_report->Report() : nullptr;
}

void DBTable::DetSeparadores(QString& Miles, QString& Decimales) const {
    if (m_report)
        m_report->DetSeparadores(Miles, Decimales);
}

int DBTable::ReadUnboundVariables() {
    return m_report ? m_report->ReadUnboundVariables() : 0;
}

int DBTable::FormatReport() {
    return m_report ? m_report->FormatReport() : 0;
}

} // namespace dalvora
