#include "common/ShowMessage.h"
#include "common/SqlText.h"
#include "data/DBTable.h"

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::Date;
using quorvane::Kind;
using quorvane::Value;

namespace {

enum HeaderColumn {
    ColumnCompany = 1,
    ColumnCode,
    ColumnDescription,
    ColumnPercentage,
    ColumnStart,
    ColumnEnd
};

constexpr int longestCode = 20;
constexpr int longestDescription = 50;
constexpr int percentageDecimals = 2;
constexpr double highestPercentage = 100;

} // namespace

QString DBTable::TextValue(int column) const {
    switch (column) {
    case ColumnCompany:
        return m_empresa;
    case ColumnCode:
        return m_Codigo;
    case ColumnDescription:
        return m_Descripcion;
    case ColumnPercentage:
        return m_regional.numberText(m_Porcentaje);
    case ColumnStart:
        return m_regional.dateText(m_FECHAINICIO);
    case ColumnEnd:
        return m_regional.dateText(m_FechaFinal);
    default:
        return {};
    }
}

void DBTable::setTextValue(int column, const QString& pValue) {
    SysErrorCol = column;
    try {
        assign(column, pValue);
    } catch (const quorvane::RunTimeError& error) {
        ShowRunTimeError(u"Error al asignar valor a campo"_s, error);
    }
}

void DBTable::assign(int column, const QString& pValue) {
    switch (column) {
    case ColumnCompany:
        SysErrorCol = 0; // the company is not assignable
        break;
    case ColumnCode:
    case ColumnDescription:
        assignText(column, pValue);
        break;
    case ColumnPercentage:
        assignPercentage(pValue);
        break;
    case ColumnStart:
        assignStartDate(pValue);
        break;
    case ColumnEnd:
        assignEndDate(pValue);
        break;
    default:
        ShowMessage(u"Columna inválida"_s, MessageError);
    }
}

void DBTable::assignText(int column, const QString& pValue) {
    const bool code = column == ColumnCode;
    Value text;
    TextToValue(pValue, Kind::String, text, code ? longestCode : longestDescription, m_regional);
    (code ? m_Codigo : m_Descripcion) = text.toText(m_regional);
    SysErrorCol = 0;
}

void DBTable::assignPercentage(const QString& pValue) {
    // The entry is read as a number first, so an empty one is an error here and not the 1 of other fields.
    // There is no lower bound: negative percentages are accepted.
    const double number = m_regional.parseNumber(pValue);
    Value percentage;
    if (number > highestPercentage ||
        !TextToValue(pValue, Kind::Double, percentage, percentageDecimals, m_regional)) {
        ShowMessage(u"Procentaje inválido(a)"_s, MessageInformation);
        return;
    }
    m_Porcentaje = *percentage.get<double>();
    SysErrorCol = 0;
}

void DBTable::assignStartDate(const QString& pValue) {
    Value value;
    // The start date shares the end date's message.
    if (!TextToValue(pValue, Kind::Date, value, 0, m_regional)) {
        ShowMessage(u"Fecha Final inválido(a)"_s, MessageWarning);
        return;
    }
    const Date date = *value.get<Date>();
    if (!m_FechaFinal.isEmpty() && date > m_FechaFinal) {
        ShowMessage(u"Fecha Inicial no pude ser superior a Fecha Final"_s, MessageWarning);
        return;
    }
    m_FECHAINICIO = date;
    SysErrorCol = 0;
}

void DBTable::assignEndDate(const QString& pValue) {
    Value value;
    if (!TextToValue(pValue, Kind::Date, value, 0, m_regional)) {
        ShowMessage(u"Fecha Final inválido(a)"_s, MessageWarning);
        return;
    }
    const Date date = *value.get<Date>();
    // Unlike for the start date it is this date itself that may still be empty: the very first end date is
    // accepted even before the start date.
    if (!m_FechaFinal.isEmpty() && date < m_FECHAINICIO) {
        ShowMessage(u"Fecha Final no pude ser anterior a Fecha Inical"_s, MessageWarning);
        return;
    }
    m_FechaFinal = date;
    SysErrorCol = 0;
}

bool DBTable::assignEveryColumn() {
    for (int column = ColumnCompany; column <= ColumnEnd; ++column) {
        setTextValue(column, TextValue(column));
        if (SysErrorCol > 0)
            return false;
    }
    return true;
}

} // namespace dalvora
