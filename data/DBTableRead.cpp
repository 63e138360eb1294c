#include "common/SqlTemplate.h"
#include "common/SqlText.h"
#include "common/Trapped.h"
#include "data/DBTable.h"
#include "data/StoredFields.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Session.h"

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::Date;
using quorvane::Kind;
using quorvane::Recordset;
using quorvane::RegionalSettings;

namespace {

constexpr QStringView headerStatement = u"SELECT * "
                                        u"FROM Comisiones "
                                        u"WHERE Empresa = '$Empresa$' and codigo = '$codigo$' ";

/// Appended to each statement when both dates are set: the period holds the start date or the end date.
constexpr QStringView periodCondition =
    u"and ((FechaInicio <= '$Fec_Inicio$' and FechaFinal >= '$Fec_Inicio$')"
    u"or (FechaInicio <= '$Fec_Final$' and FechaFinal >= '$Fec_Final$'))";

QString textField(const Recordset& row, int ordinal, const RegionalSettings& regional) {
    return FieldValue(row.value(ordinal), Kind::String, regional).toText(regional);
}

double numberField(const Recordset& row, int ordinal, const RegionalSettings& regional) {
    return *FieldValue(row.value(ordinal), Kind::Double, regional).get<double>();
}

Date dateField(const Recordset& row, QStringView name, const RegionalSettings& regional) {
    return Date(FieldValue(row.value(name), Kind::Date, regional).toNumber(regional));
}

/// Appends a line for each row, in the order in which the database returns them.
template<class Line>
void appendLines(LineCollection<Line>& lines, Recordset rows, const RegionalSettings& regional) {
    using Stored = StoredLine<typename LineCollection<Line>::Values>;
    std::array<int, Stored::fields.size()> ordinals{};
    if (!rows.eof())
        for (size_t i = 0; i < ordinals.size(); ++i)
            ordinals[i] = rows.ordinal(Stored::fields[i].column);
    for (; !rows.eof(); rows.moveNext()) {
        Line& line = lines.add();
        line.SysRecordFound = true;
        for (size_t i = 0; i < ordinals.size(); ++i) {
            const auto& field = Stored::fields[i];
            if (field.text != nullptr)
                line.*field.text = textField(rows, ordinals[i], regional);
            else
                line.*field.number = numberField(rows, ordinals[i], regional);
        }
        line.PostRead();
    }
}

} // namespace

bool DBTable::DBRead(int) {
    return trapped(u"Error al leer registro"_s, false, [this] {
        if (!mayUse(1, u'R')) {
            ShowMessage(u"Usuario no tiene permiso de lectura"_s, MessageWarning);
            return false;
        }
        SysRecordFound = false;
        m_keyText.clear();
        readRecord();
        if (SysRecordFound)
            m_session.Audit(quorvane::AuditRead, auditText());
        SysRecordEnabled = true;
        SysRecordModified = false;
        return true;
    });
}

void DBTable::readRecord() {
    // The key text is the company that the record had before this read.
    m_keyText = m_empresa;
    m_empresa = SysEmpresa;
    if (!readHeader()) {
        m_Porcentaje = 0;
        m_save_FechaInicio = {};
        m_save_FechaFinal = {};
        return;
    }
    readLines(m_details);
    readLines(m_montos);
    readLines(m_precios);
}

Recordset DBTable::openPeriod(QStringView statement, const QString& company) {
    const bool withPeriod = !m_FECHAINICIO.isEmpty() && !m_FechaFinal.isEmpty();
    const QString text = withPeriod ? statement.toString().append(periodCondition) : statement.toString();
    const SqlTemplate form(text);
    return m_connection.openRecordset(SqlStatement(form, m_regional)
                                          .fill(u"Empresa", company, Kind::String)
                                          .fill(u"Codigo", m_Codigo, Kind::String)
                                          .fill(u"Fec_Inicio", m_FECHAINICIO, Kind::Date)
                                          .fill(u"Fec_Final", m_FechaFinal, Kind::Date)
                                          .text());
}

bool DBTable::readHeader() {
    const Recordset row = openPeriod(headerStatement, m_empresa);
    SysRecordFound = !row.eof();
    if (!SysRecordFound)
        return false;
    m_Codigo = textField(row, row.ordinal(u"Codigo"), m_regional);
    m_FECHAINICIO = dateField(row, u"FechaInicio", m_regional);
    m_FechaFinal = dateField(row, u"FechaFinal", m_regional);
    m_Descripcion = textField(row, row.ordinal(u"Descripcion"), m_regional);
    Acumulable = textField(row, row.ordinal(u"Acumulable"), m_regional);
    m_Porcentaje = numberField(row, row.ordinal(u"Porcentaje"), m_regional);
    return true;
}

template<class Line> void DBTable::readLines(LineCollection<Line>& lines) {
    lines.clear();
    appendLines(lines, openPeriod(StoredLine<typename LineCollection<Line>::Values>::statement, SysEmpresa),
                m_regional);
    lines.add(); // the grid's entry row
}

QString DBTable::auditText() const {
    return m_keyText + u":COMISION:"_s + m_Codigo;
}

} // namespace dalvora
