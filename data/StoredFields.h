#pragma once

#include "data/DBDetail.h"
#include "data/DBMonto.h"
#include "data/DBPrecio.h"
#include <QStringView>
#include <array>

namespace dalvora {

/// A line's value and the column of ComisionesD that keeps it.
template<class Values> struct StoredField {
    QStringView column;
    QString Values::*text = nullptr;
    double Values::*number = nullptr;
};

/// The rows of a kind and what a read takes from each of them.
template<class Values> struct StoredLine;

template<> struct StoredLine<DetailValues> {
    using Field = StoredField<DetailValues>;
    static constexpr QStringView statement =
        u"SELECT * "
        u"FROM ComisionesD "
        u"WHERE Empresa = '$Empresa$' and Codigo = '$Codigo$' and tipo= 'Producto' ";
    static constexpr std::array fields = {
        Field{u"Concepto", &DetailValues::Producto, nullptr},
        Field{u"Descripcion", &DetailValues::Descripcion, nullptr},
        Field{u"CantidadInicio", nullptr, &DetailValues::InicioTramo},
        Field{u"cantidadFinal", nullptr, &DetailValues::FinTramo},
        Field{u"Porcentaje", nullptr, &DetailValues::Porcentaje},
        Field{u"Subtipo", &DetailValues::SubTipo, nullptr},
        Field{u"calculo", &DetailValues::calculo, nullptr},
    };
};

template<> struct StoredLine<MontoValues> {
    using Field = StoredField<MontoValues>;
    static constexpr QStringView statement =
        u"SELECT * "
        u"FROM ComisionesD "
        u"WHERE Empresa = '$Empresa$' and Codigo = '$Codigo$' and tipo= 'Monto' ";
    static constexpr std::array fields = {
        Field{u"Concepto", &MontoValues::Documento, nullptr},
        Field{u"CantidadInicio", nullptr, &MontoValues::InicioTramo},
        Field{u"cantidadFinal", nullptr, &MontoValues::FinTramo},
        Field{u"Porcentaje", nullptr, &MontoValues::Porcentaje},
        Field{u"calculo", &MontoValues::calculo, nullptr},
    };
};

template<> struct StoredLine<PrecioValues> {
    using Field = StoredField<PrecioValues>;
    static constexpr QStringView statement =
        u"SELECT * "
        u"FROM ComisionesD "
        u"WHERE Empresa = '$Empresa$' and Codigo = '$Codigo$' and tipo= 'Precio' ";
    static constexpr std::array fields = {
        Field{u"Concepto", &PrecioValues::ListaPrecio, nullptr},
        Field{u"Descripcion", &PrecioValues::Descripcion, nullptr},
        Field{u"Porcentaje", nullptr, &PrecioValues::Porcentaje},
        Field{u"calculo", &PrecioValues::calculo, nullptr},
    };
};

} // namespace dalvora
