#pragma once

#include "common/ShowMessage.h"
#include "data/DBDetail.h"
#include "data/DBMonto.h"
#include "data/DBPrecio.h"
#include <array>

namespace dalvora {

enum class ColumnRule {
    Text,         ///< trimmed and cut
    Code,         ///< trimmed, cut and looked up
    BracketStart, ///< not negative, not above a bracket's end that is set
    BracketEnd,   ///< not negative, not below the bracket's start
    Percentage,   ///< 0 to 100, two decimals
};

/// One column of a line class: what it holds (a text or a number) and what an entry must fulfil.
template<class Values> struct LineColumn {
    ColumnRule rule;
    int limit = 0; ///< most characters of a text
    QString Values::*text = nullptr;
    double Values::*number = nullptr;

    static constexpr LineColumn ofText(QString Values::*text, int limit, ColumnRule rule = ColumnRule::Text) {
        return {rule, limit, text, nullptr};
    }
    static constexpr LineColumn ofNumber(double Values::*number, ColumnRule rule) {
        return {rule, 0, nullptr, number};
    }
};

/// The columns of a line class, the first one being column 1, and the points in which the classes differ.
template<class Values> struct LineShape;

template<> struct LineShape<DetailValues> {
    using Column = LineColumn<DetailValues>;
    static constexpr std::array columns = {
        Column::ofText(&DetailValues::SubTipo, 50),
        Column::ofText(&DetailValues::Producto, 20, ColumnRule::Code),
        Column::ofText(&DetailValues::Descripcion, 50),
        Column::ofNumber(&DetailValues::InicioTramo, ColumnRule::BracketStart),
        Column::ofNumber(&DetailValues::FinTramo, ColumnRule::BracketEnd),
        Column::ofNumber(&DetailValues::Porcentaje, ColumnRule::Percentage),
        Column::ofText(&DetailValues::calculo, 50),
    };
    static constexpr double DetailValues::*bracketStart = &DetailValues::InicioTramo;
    static constexpr double DetailValues::*bracketEnd = &DetailValues::FinTramo;
    /// Without quantity decimals the start of a bracket is rounded to a whole number like its end.
    static constexpr bool startAlwaysRounded = true;
    static constexpr QStringView badBracketEnd = u"Valor inválido(a)";
    /// A percentage out of range is told more softly than one that is no number.
    static constexpr int percentageRangeStyle = MessageInformation;
};

template<> struct LineShape<MontoValues> {
    using Column = LineColumn<MontoValues>;
    static constexpr std::array columns = {
        Column::ofText(&MontoValues::Documento, 40, ColumnRule::Code),
        Column::ofNumber(&MontoValues::InicioTramo, ColumnRule::BracketStart),
        Column::ofNumber(&MontoValues::FinTramo, ColumnRule::BracketEnd),
        Column::ofNumber(&MontoValues::Porcentaje, ColumnRule::Percentage),
        Column::ofText(&MontoValues::calculo, 20),
    };
    static constexpr double MontoValues::*bracketStart = &MontoValues::InicioTramo;
    static constexpr double MontoValues::*bracketEnd = &MontoValues::FinTramo;
    /// Without quantity decimals the start of an amount bracket keeps the decimals that were entered.
    static constexpr bool startAlwaysRounded = false;
    /// The end of an amount bracket is called a price, though it is none.
    static constexpr QStringView badBracketEnd = u"Precio inválido(a)";
    static constexpr int percentageRangeStyle = MessageWarning;
};

template<> struct LineShape<PrecioValues> {
    using Column = LineColumn<PrecioValues>;
    static constexpr std::array columns = {
        Column::ofText(&PrecioValues::ListaPrecio, 20, ColumnRule::Code),
        Column::ofText(&PrecioValues::Descripcion, 50),
        Column::ofNumber(&PrecioValues::Porcentaje, ColumnRule::Percentage),
        Column::ofText(&PrecioValues::calculo, 20),
    };
    static constexpr double PrecioValues::*bracketStart = nullptr;
    static constexpr double PrecioValues::*bracketEnd = nullptr;
    static constexpr bool startAlwaysRounded = true;
    static constexpr QStringView badBracketEnd = {};
    static constexpr int percentageRangeStyle = MessageWarning;
};

} // namespace dalvora
