#include "reports/processing/ReportProcessing.h"
#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "platform/quorvane32/core/Session.h"
#include "reports/processing/HeaderFormulas.h"
#include "reports/processing/MousePointer.h"
#include "reports/processing/RecordsetRows.h"
#include "reports/processing/ReportStatements.h"

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::Recordset;
using quorvane::RunTimeError;
using quorvane::report::ObjectHandle;
using quorvane::report::ObjectKind;

namespace {

constexpr int noRows = -1;
/// The object that holds a report's amount: definitions keep their amount column under this name.
constexpr QStringView amountObject = u"Field8";
constexpr double numberOfBothSeparators = 8001;

void takeFollowing(const QString& written, QChar digit, QString& separator) {
    const qsizetype at = written.indexOf(digit);
    if (at >= 0)
        separator = written.mid(at + 1, 1);
}

} // namespace

void separatorsOf(const QString& written, QString& Miles, QString& Decimales) {
    takeFollowing(written, u'8', Miles);
    takeFollowing(written, u'1', Decimales);
}

ReportProcessing::ReportProcessing(const DBTable& record, const quorvane::Session& session, Parts parts)
    : m_record(record), m_session(session), m_parts(std::move(parts)) {}

ReportProcessing::~ReportProcessing() = default;

int ReportProcessing::CR_Connect(const QString& StrConn) {
    setMousePointer(MousePointer::HourGlass);
    m_connection = m_parts.makeConnection();
    m_connection->open(StrConn);
    setMousePointer(MousePointer::Default);
    return 0;
}

int ReportProcessing::CR_Disconnect() {
    setMousePointer(MousePointer::HourGlass);
    connection().close();
    m_connection.reset();
    setMousePointer(MousePointer::Default);
    return 0;
}

quorvane::Connection& ReportProcessing::connection() const {
    if (!m_connection)
        quorvane::raise(quorvane::ErrorObjectNotSet);
    return *m_connection;
}

ReportFolder ReportProcessing::folder() const {
    return {m_parts.programFolder, m_record.ProgramName};
}

int ReportProcessing::LoadReportsList() {
    try {
        m_names.take(folder().files());
        return 0;
    } catch (const RunTimeError& error) {
        return error.number();
    }
}

void ReportProcessing::DetSeparadores(QString& Miles, QString& Decimales) const {
    constexpr int decimals = 2;
    separatorsOf(m_record.regional().groupedText(numberOfBothSeparators, decimals), Miles, Decimales);
}

int ReportProcessing::CR_ProcessReport() {
    if (m_record.reportName.isEmpty())
        return 0;
    setMousePointer(MousePointer::HourGlass);
    try {
        const int result = process();
        setMousePointer(MousePointer::Default);
        return result;
    } catch (const RunTimeError& error) {
        // The hourglass stays: it is the caller who tells the error and sets the pointer back.
        return error.number();
    }
}

int ReportProcessing::process() {
    const QString file = folder().definition(m_record.reportName);
    // Whether it is there and can be read shows before the database is asked for anything.
    m_application.openReport(file);
    Recordset rows = connection().openRecordset(rowsStatement(m_record, m_session.CompanyCode()));
    if (rows.eof()) {
        ShowMessage(u"No existen Comisiones para el código y rango de fechas indicado"_s, MessageError,
                    messageTitle.toString());
        return noRows;
    }
    openReport(file, std::move(rows));
    formatAmounts();
    finish();
    return 0;
}

void ReportProcessing::openReport(const QString& file, Recordset rows) {
    m_report = m_application.openReport(file);
    m_report->setRegional(m_record.regional());
    m_report->setDataSource(std::make_unique<RecordsetRows>(m_connection, std::move(rows)));
}

int ReportProcessing::currencyDecimals() const {
    for (const CurrencyEntry& currency : m_record.currencies())
        if (currency.code.compare(m_record.SysMoneda, Qt::CaseInsensitive) == 0)
            return currency.decimals;
    // The walk over the table ends only at the record's currency: without it, it runs past the end.
    quorvane::raise(quorvane::ErrorSubscript);
}

void ReportProcessing::formatAmounts() {
    QString thousands;
    QString decimal;
    DetSeparadores(thousands, decimal);
    const qint32 decimals = currencyDecimals();
    const auto isAmount = [&](const ObjectHandle& object) {
        const quorvane::RegionalSettings& regional = m_record.regional();
        return object.property(u"Kind").toNumber(regional) == static_cast<int>(ObjectKind::Field) &&
               object.property(u"Name").toText(regional).compare(amountObject, Qt::CaseInsensitive) == 0 &&
               object.property(u"DecimalPlaces").toNumber(regional) >= 0;
    };
    for (int section = 1; section <= m_report->sectionCount(); ++section) {
        for (int i = 1; i <= m_report->objectCount(section); ++i) {
            ObjectHandle object = m_report->object(section, i);
            if (!isAmount(object))
                continue;
            object.setProperty(u"DecimalPlaces", decimals);
            object.setProperty(u"ThousandSymbol", thousands);
            object.setProperty(u"DecimalSymbol", decimal);
        }
    }
}

void ReportProcessing::finish() {
    if (const int error = ReadUnboundVariables(); error != 0)
        ShowMessage(u"Error al leer variables UnBound (%1)"_s.arg(error), MessagePlain);
    if (const int error = FormatReport(); error != 0)
        ShowMessage(u"Error al dar formato al reporte (%1)"_s.arg(error), MessagePlain);
}

int ReportProcessing::ReadUnboundVariables() {
    setMousePointer(MousePointer::HourGlass);
    try {
        const ReportReader reader{m_session.CompanyCode(), m_session.UserName(), m_parts.today()};
        const Recordset row = connection().openRecordset(headerStatement(m_record, reader));
        if (row.eof())
            return 0;
        if (!m_report)
            quorvane::raise(quorvane::ErrorObjectNotSet);
        fillHeaderFormulas(*m_report, row, m_record.regional());
        return 0;
    } catch (const RunTimeError& error) {
        return error.number();
    }
}

// A place kept for the last touch to a report before it is shown; there is none to give yet.
int ReportProcessing::FormatReport() {
    setMousePointer(MousePointer::HourGlass);
    setMousePointer(MousePointer::Default);
    return 0;
}

} // namespace dalvora
