#pragma once

#include "data/CommissionReport.h"
#include "data/DBDetail.h"
#include "data/DBMonto.h"
#include "data/DBPrecio.h"
#include "data/LineCollection.h"
#include "platform/quorvane32/base/Date.h"
#include "platform/quorvane32/base/RegionalSettings.h"
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <vector>

namespace quorvane {
class Connection;
class Recordset;
class RunTimeError;
class Session;
} // namespace quorvane

namespace dalvora {

class SqlStatement;
class SqlTemplate;

/// A currency of the company.
struct CurrencyEntry {
    QString code;
    int decimals = 0;
    QString format; ///< number format, as "###,##0.00"
};

/// The commission scheme on screen: a header, three collections of lines, the position of the last error and
/// the company's configuration. There is one for the program's lifetime. Operations show their own messages;
/// only positions out of range leave them as an error (9).
class DBTable {
public:
    /// Everything given must outlive the record.
    DBTable(quorvane::Connection& connection, quorvane::Session& session,
            const quorvane::RegionalSettings& regional);
    ~DBTable();
    DBTable(const DBTable&) = delete;
    DBTable& operator=(const DBTable&) = delete;

    /// Empties the three collections and puts one empty line into each.
    void carga_inicio();
    /// Header columns as text: 1 company, 2 code, 3 description, 4 percentage, 5 start date, 6 end date; ""
    /// for any other.
    QString TextValue(int column) const;
    /// Converts, checks and stores a header column; `SysErrorCol` keeps the column of a refused text.
    void setTextValue(int column, const QString& pValue);
    /// Checks the header and, when asked, every line that is not empty. False leaves the error's position.
    bool Validate(bool ValidateRows = false);
    /// The choices of a line column (1 kind of concept, 7 calculation), the first one empty.
    QStringList ListValue(int column) const;
    /// Accepts the key of a record to open. The record takes nothing from it: the caller assigns the code.
    bool SetKeyByString(const QString& StrKeys);

    bool SysAllowRead() const;
    bool SysAllowWrite() const;
    bool SysAllowDelete() const;
    bool SysAllowExecute() const;

    /// The line at a position that starts at 1; error 9 out of range.
    DBDetail& Details(int Index) { return m_details.line(Index); }
    DBPrecio& Precios(int Index) { return m_precios.line(Index); }
    DBMonto& montos(int Index) { return m_montos.line(Index); }
    /// A new empty line before the given position, else at the end; error 9 out of range.
    DBDetail& DetailsAdd(std::optional<int> Index = {}) { return m_details.add(Index); }
    DBMonto& MontosAdd(std::optional<int> Index = {}) { return m_montos.add(Index); }
    DBPrecio& PreciosAdd(std::optional<int> Index = {}) { return m_precios.add(Index); }
    int MontosCount() const { return m_montos.count(); }
    int PreciosCount() const { return m_precios.count(); }
    int DetailsCount() const { return m_details.count(); }
    /// Removing the only amount or price-list line leaves a new empty one; the product collection can become
    /// empty, and the caller then calls carga_inicio. Error 9 out of range.
    void MontosRemove(int Index) { m_montos.remove(Index); }
    void PreciosRemove(int Index) { m_precios.remove(Index); }
    void DetailsRemove(int Index) { m_details.remove(Index); }
    /// The same collections for code that treats the kinds alike.
    LineList& lines(LineKind kind);

    /// Loads the company's configuration; False when the program cannot run (told).
    bool DBInitialize();
    void DBTerminate();
    /// Reads by code and dates; `Pos` is ignored: every read looks up what the record holds. True also when
    /// nothing was found (`SysRecordFound` tells). The caller then calls SaveDates.
    bool DBRead(int Pos = 0);
    bool DBWrite(bool WithValidate = false);
    bool DBDelete();
    /// Forgets the loaded record, but for the header fields and the price-list lines.
    bool DBClear();

    /// Whether closing now would lose an entry: a changed date, line or removed line not yet saved.
    bool hasUnsavedChanges() const;

    const QString& Codigo() const { return m_Codigo; }
    const QString& Descripcion() const { return m_Descripcion; }
    double Porcentaje() const { return m_Porcentaje; }
    quorvane::Date FECHAINICIO() const { return m_FECHAINICIO; }
    quorvane::Date FechaFinal() const { return m_FechaFinal; }
    quorvane::Date save_FechaInicio() const { return m_save_FechaInicio; }
    quorvane::Date save_FechaFinal() const { return m_save_FechaFinal; }
    void setSave_FechaInicio(quorvane::Date date) { m_save_FechaInicio = date; }
    void setSave_FechaFinal(quorvane::Date date) { m_save_FechaFinal = date; }
    /// Takes the current dates as those of the stored row: due right after a successful read.
    void SaveDates();
    /// Takes both dates at once, checked by the caller; the record then counts as modified.
    void setPeriod(quorvane::Date start, quorvane::Date end) {
        m_FECHAINICIO = start;
        m_FechaFinal = end;
        SysRecordModified = true;
    }
    /// Empties both dates and their saved copies.
    void ClearDates();

    const std::vector<CurrencyEntry>& currencies() const { return m_currencies; }
    const QStringList& units() const { return m_units; }

    /// The full code of the first document type that begins with the text. These lookups give "" when there
    /// is none and raise the database's errors.
    QString GetFORMATOTIPODOCUMENTO(const QString& TipoDocumento) const;
    /// The account of the first document of a type and number.
    QString GetCTACTE(const QString& TipoDocto, const QString& Correlativo) const;
    /// Whether a document was issued: "S" or "N".
    QString GetDocEmitido(const QString& TipoDocumento, const QString& CtaCte, const QString& Numero) const;

    /// Plugs in the report side; without one there are no reports, and what concerns them does nothing.
    void setReport(std::unique_ptr<CommissionReport> report);
    // What the report side offers (data/CommissionReport.h tells more).
    int CR_Connect(const QString& StrConn);
    int CR_Disconnect();
    int LoadReportsList();
    QString ReportsFile(qint16 Index) const;
    qint16 ReportsCount() const;
    int CR_ProcessReport();
    quorvane::report::Report* Report() const;
    void DetSeparadores(QString& Miles, QString& Decimales) const;
    int ReadUnboundVariables();
    int FormatReport();

    quorvane::Connection& connection() const { return m_connection; }
    const quorvane::RegionalSettings& regional() const { return m_regional; }

    /// The last read found the record in the database.
    bool SysRecordFound = false;
    /// A record, stored or new, is loaded for editing.
    bool SysRecordEnabled = false;
    /// The period was changed.
    bool SysRecordModified = false;
    /// Column of the last failed assignment or check, 0 when none.
    int SysErrorCol = 0;
    /// 0 header, 1 lines, -1 none.
    int SysErrorTable = 0;
    /// Position of the failing line, empty ones counted; 0 when none.
    int SysErrorRow = 0;
    /// Collection of the failing line: 1 products, 2 amounts, 3 price lists, 0 when none.
    int Grilla = 0;
    /// "S" when percentages accumulate, else "N".
    QString Acumulable;
    QString SysEmpresa;
    /// Name of the program that the record works for.
    QString SysPrograma;
    /// Number format of quantities.
    QString SysFormatNum;
    /// Decimals of quantities.
    qint16 SysDecimales = 0;
    /// Local currency.
    QString SysMoneda;
    bool LecturaTotal = false;

    /// The report to be made: name of its definition, without folder and extension.
    QString reportName;
    /// Folder of this program's definitions, below that of all reports.
    QString ProgramName;
    /// Period of the report; an empty date leaves its end open.
    quorvane::Date FechaIniFiltro;
    quorvane::Date FechaFinFiltro;
    /// Commission code that the report is limited to; "" for all.
    QString FiltroCodComisiones;
    /// The program that a report line was last followed to, and what it is called there.
    QString NavegaReportTag;
    QString NavegaReportCap;

private:
    /// Whether the user's rights hold the letter at the position (from 1).
    bool mayUse(int position, QChar letter) const;

    void assign(int column, const QString& pValue);
    void assignText(int column, const QString& pValue);
    void assignPercentage(const QString& pValue);
    void assignStartDate(const QString& pValue);
    void assignEndDate(const QString& pValue);
    bool assignEveryColumn();
    bool confirmChangedDate(int column, const QString& question);
    template<class Line> bool validateLines(LineCollection<Line>& lines, LineKind kind);

    void readRecord();
    bool readHeader();
    template<class Line> void readLines(LineCollection<Line>& lines);
    /// The rows of a statement for the record's code and, when both dates are set, its period.
    quorvane::Recordset openPeriod(QStringView statement, const QString& company);

    bool writeRecord(QString& message);
    /// False when the stored row is no longer there under its old key.
    bool writeHeader();
    bool periodChanged() const;
    void carryPeriod();
    template<class Line> void writeLines(LineCollection<Line>& lines, LineKind kind);
    template<class Line> void renewChangedCodes(LineCollection<Line>& lines);
    template<class Line> void deleteLines(const LineCollection<Line>& lines);
    template<class Line> void updateLines(const LineCollection<Line>& lines);
    template<class Line> void insertLines(const LineCollection<Line>& lines);
    /// A statement for the lines, filled with what they have in common.
    SqlStatement lineStatement(const SqlTemplate& form) const;
    /// After the commit the lines are as the database holds them.
    void takeAsStored();
    QString writeErrorText(const quorvane::RunTimeError& error) const;
    bool mayBeDeleted() const;
    bool deleteRecord(QString& message);
    bool reset();
    /// The record's audit entry; what has been committed stays so even when it cannot be audited.
    void auditCommitted(int code);
    QString auditText() const;

    /// The first field of the statement's first row as text, "" without rows.
    QString firstText(const SqlStatement& statement) const;

    bool loadConfiguration();
    bool loadCurrencies();
    bool loadLocalCurrency();
    void loadUnits();
    void loadDecimals();
    quorvane::Recordset openConfiguration(QStringView statement);

    quorvane::Connection& m_connection;
    quorvane::Session& m_session;
    const quorvane::RegionalSettings& m_regional;
    std::unique_ptr<CommissionReport> m_report;

    QString m_empresa;
    QString m_Codigo;
    QString m_Descripcion;
    double m_Porcentaje = 0;
    quorvane::Date m_FECHAINICIO;
    quorvane::Date m_FechaFinal;
    quorvane::Date m_save_FechaInicio;
    quorvane::Date m_save_FechaFinal;
    /// Prefix of the audit texts.
    QString m_keyText;
    LineCollection<DBDetail> m_details;
    LineCollection<DBMonto> m_montos;
    LineCollection<DBPrecio> m_precios;
    std::vector<CurrencyEntry> m_currencies;
    QStringList m_units;
};

} // namespace dalvora
