#include "data/LineOf.h"
#include "common/SqlText.h"
#include "common/Trapped.h"
#include "data/DBTable.h"
#include "data/LineColumns.h"
#include <optional>

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::Kind;
using quorvane::RegionalSettings;
using quorvane::Value;

namespace {

constexpr int percentageDecimals = 2;
constexpr double highestPercentage = 100;

/// The column of a number that starts at 1, or a null pointer.
template<class Values> const LineColumn<Values>* columnAt(int column) {
    constexpr auto& columns = LineShape<Values>::columns;
    if (column < 1 || column > static_cast<int>(columns.size()))
        return nullptr;
    return &columns[static_cast<size_t>(column) - 1];
}

QString enteredText(const QString& text, int limit, const RegionalSettings& regional) {
    Value value;
    TextToValue(text, Kind::String, value, limit, regional);
    return value.toText(regional);
}

std::optional<double> enteredNumber(const QString& text, int decimals, const RegionalSettings& regional) {
    Value value;
    if (!TextToValue(text, Kind::Double, value, decimals, regional))
        return std::nullopt;
    return *value.get<double>();
}

/// Tells why an entry is refused; always False.
bool refuse(const QString& why, int style) {
    ShowMessage(why, style);
    return false;
}

} // namespace

QStringList CommissionLine::ListValue(int) const {
    return trapped(u"Error al obtener lista de valores"_s, QStringList(),
                   [] { return QStringList{QString()}; });
}

template<class Values> QString LineOf<Values>::TextValue(int column) const {
    const LineColumn<Values>* found = columnAt<Values>(column);
    if (found == nullptr)
        return {};
    if (found->text != nullptr)
        return this->*found->text;
    const double number = this->*found->number;
    return found->rule == ColumnRule::Percentage ? table().regional().groupedText(number, percentageDecimals)
                                                 : table().regional().numberText(number);
}

template<class Values> bool LineOf<Values>::setTextValue(int column, const QString& pValue) {
    SysErrorCol = 0;
    try {
        if (const LineColumn<Values>* found = columnAt<Values>(column))
            return assign(*found, pValue);
        return refuse(u"Columna inválida"_s, MessageError);
    } catch (const quorvane::RunTimeError& error) {
        ShowRunTimeError(u"Error al asignar valor a campo de detalle"_s, error);
        return false;
    }
}

template<class Values> bool LineOf<Values>::assign(const LineColumn<Values>& column, const QString& pValue) {
    switch (column.rule) {
    case ColumnRule::Code:
        return assignCode(column, pValue);
    case ColumnRule::BracketStart:
        return assignBracketStart(pValue);
    case ColumnRule::BracketEnd:
        return assignBracketEnd(pValue);
    case ColumnRule::Percentage:
        return assignPercentage(column, pValue);
    case ColumnRule::Text:
        break;
    }
    this->*column.text = enteredText(pValue, column.limit, table().regional());
    return true;
}

template<class Values> bool LineOf<Values>::store(double Values::*field, double value) {
    this->*field = value;
    return true;
}

template<class Values>
bool LineOf<Values>::assignCode(const LineColumn<Values>& column, const QString& pValue) {
    const QString code = enteredText(pValue, column.limit, table().regional());
    if (!code.isEmpty())
        return checkCode(code);
    clearCode();
    return true;
}

template<class Values> bool LineOf<Values>::assignBracketStart(const QString& pValue) {
    using Shape = LineShape<Values>;
    if constexpr (Shape::bracketStart != nullptr) {
        const int decimals = table().SysDecimales;
        const bool rounded = Shape::startAlwaysRounded || decimals != 0;
        const auto value = enteredNumber(pValue, rounded ? decimals : -1, table().regional());
        const double end = this->*Shape::bracketEnd;
        if (!value || *value < 0)
            return refuse(u"Valor inválido(a)"_s, MessageWarning);
        if (end > 0 && *value > end)
            return refuse(u"Inicio de Tramo debe ser menor que Fin de Tramo"_s, MessageWarning);
        return store(Shape::bracketStart, *value);
    }
    return false;
}

template<class Values> bool LineOf<Values>::assignBracketEnd(const QString& pValue) {
    using Shape = LineShape<Values>;
    if constexpr (Shape::bracketEnd != nullptr) {
        const auto value = enteredNumber(pValue, table().SysDecimales, table().regional());
        if (!value)
            return refuse(Shape::badBracketEnd.toString(), MessageWarning);
        if (*value < this->*Shape::bracketStart)
            return refuse(u"Fin Tramo debe ser mayor que Inicio de Tramo"_s, MessageWarning);
        if (*value < 0)
            return refuse(u"Valor inválido(a)"_s, MessageWarning);
        return store(Shape::bracketEnd, *value);
    }
    return false;
}

template<class Values>
bool LineOf<Values>::assignPercentage(const LineColumn<Values>& column, const QString& pValue) {
    const auto value = enteredNumber(pValue, percentageDecimals, table().regional());
    if (!value)
        return refuse(u"Porcentaje inválido(a)"_s, MessageWarning);
    if (*value < 0 || *value > highestPercentage)
        return refuse(u"Porcentaje inválido(a)"_s, LineShape<Values>::percentageRangeStyle);
    return store(column.number, *value);
}

template<class Values> bool LineOf<Values>::lacks(int column, const QString& message) {
    SysErrorCol = static_cast<qint16>(column);
    ShowMessage(message, MessageWarning);
    return false;
}

template class LineOf<DetailValues>;
template class LineOf<MontoValues>;
template class LineOf<PrecioValues>;

} // namespace dalvora
