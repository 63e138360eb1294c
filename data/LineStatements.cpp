#include "data/LineStatements.h"
#include "common/SqlTemplate.h"

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::Kind;

// Product lines

constexpr QStringView LineStatements<DetailValues>::remove =
    u"DELETE FROM ComisionesD "
    u"WHERE Empresa = '$Empresa$' and codigo = '$Codigo$' and fechaInicio = '$FechaIni$' "
    u"and fechaFinal = '$FechaFin$' and tipo = 'Producto' and concepto = '$PRODUCTO$'"
    u" and CantidadInicio = $TramoIni$ and cantidadfinal = $TramoFin$ and porcentaje = $Porcentaje$ "
    u"and Subtipo='$SubTipo$' and calculo = '$Calculo$'";

constexpr QStringView LineStatements<DetailValues>::update =
    u"UPDATE ComisionesD SET "
    u"concepto='$PRODUCTO$', descripcion='$GLOSA$', CantidadInicio=$CantIni$,CantidadFinal=$CantFinal$, "
    u"Porcentaje = $Porcentaje$,Subtipo='$SubTipo$', calculo = '$Calculo$' "
    u"WHERE Empresa = '$Empresa$' and codigo = '$Codigo$' and fechaInicio = '$FechaIni$' "
    u"and fechaFinal = '$FechaFin$' and tipo = 'Producto' and concepto = '$PRODUCTO$' "
    u" and CantidadInicio = $TramoIni$ and cantidadfinal = $TramoFin$ and porcentaje = $Porcentaje2$ "
    u" and Subtipo='$SubTipo2$' and calculo = '$Calculo2$'";

constexpr QStringView LineStatements<DetailValues>::insert =
    u"INSERT INTO ComisionesD "
    u"( Empresa, Codigo, tipo, Concepto,Descripcion,  CantidadInicio, CantidadFinal, Porcentaje, "
    u"FechaInicio, FechaFinal, SubTipo, Calculo "
    u" ) "
    u"VALUES "
    u"( '$Empresa$', '$Codigo$', 'Producto', '$PRODUCTO$', '$GLOSA$', $CantIni$, $CantFin$, $Porcentaje$, "
    u"'$FechaIni$','$FechaFin$' ,'$SubTipo$','$Calculo$' "
    u" ) ";

void LineStatements<DetailValues>::fillRemove(SqlStatement& statement, const DetailValues& saved) {
    statement.fill(u"PRODUCTO", saved.Producto, Kind::String)
        .fill(u"TramoIni", saved.InicioTramo, Kind::Double)
        .fill(u"TramoFin", saved.FinTramo, Kind::Double)
        .fill(u"Porcentaje", saved.Porcentaje, Kind::Double)
        .fill(u"SubTipo", saved.SubTipo, Kind::String)
        .fill(u"Calculo", saved.calculo, Kind::String);
}

void LineStatements<DetailValues>::fillUpdate(SqlStatement& statement, const DetailValues& now,
                                              const DetailValues& saved) {
    statement.fill(u"PRODUCTO", now.Producto, Kind::String)
        .fill(u"GLOSA", now.Descripcion, Kind::String)
        .fill(u"CantIni", now.InicioTramo, Kind::Double)
        .fill(u"CantFinal", now.FinTramo, Kind::Double)
        .fill(u"TramoIni", saved.InicioTramo, Kind::Double)
        .fill(u"TramoFin", saved.FinTramo, Kind::Double)
        .fill(u"Porcentaje", now.Porcentaje, Kind::Double)
        .fill(u"Porcentaje2", saved.Porcentaje, Kind::Double)
        .fill(u"SubTipo", now.SubTipo, Kind::String)
        .fill(u"Calculo", now.calculo, Kind::String)
        .fill(u"SubTipo2", saved.SubTipo, Kind::String)
        .fill(u"Calculo2", saved.calculo, Kind::String);
}

void LineStatements<DetailValues>::fillInsert(SqlStatement& statement, const DetailValues& now) {
    // A line for all products is stored under that concept whatever its code field holds.
    const bool all = now.SubTipo.compare(u"Todos", Qt::CaseInsensitive) == 0;
    statement.fill(u"PRODUCTO", all ? u"Todos"_s : now.Producto, Kind::String)
        .fill(u"GLOSA", now.Descripcion, Kind::String)
        .fill(u"CantIni", now.InicioTramo, Kind::Double)
        .fill(u"CantFin", now.FinTramo, Kind::Double)
        .fill(u"Porcentaje", now.Porcentaje, Kind::Double)
        .fill(u"SubTipo", now.SubTipo, Kind::String)
        .fill(u"Calculo", now.calculo, Kind::String);
}

// Amount lines

constexpr QStringView LineStatements<MontoValues>::remove =
    u"DELETE FROM ComisionesD "
    u" WHERE Empresa = '$Empresa$' and codigo = '$Codigo$' and fechaInicio = '$FechaIni$' "
    u"and fechaFinal = '$FechaFin$' and tipo = 'Monto' and concepto = '$PRODUCTO$'"
    u" and CantidadInicio = $TramoIni$ and cantidadfinal = $TramoFin$ and porcentaje = $Porcentaje$ "
    u" and calculo = '$Calculo$'";

constexpr QStringView LineStatements<MontoValues>::update =
    u"UPDATE ComisionesD SET "
    u"concepto='$PRODUCTO$', descripcion='$GLOSA$', CantidadInicio=$CantIni$,CantidadFinal=$CantFinal$, "
    u"Porcentaje = $Porcentaje$, calculo = '$Calculo$' "
    u"WHERE Empresa = '$Empresa$' and codigo = '$Codigo$' and fechaInicio = '$FechaIni$' "
    u"and fechaFinal = '$FechaFin$' and tipo = 'Monto' and concepto = '$PRODUCTO$' "
    u" and CantidadInicio = $TramoIni$ and cantidadfinal = $TramoFin$ and porcentaje = $Porcentaje2$ "
    u" and calculo = '$Calculo2$'";

constexpr QStringView LineStatements<MontoValues>::insert =
    u"INSERT INTO ComisionesD "
    u"( Empresa, Codigo, tipo, Concepto,Descripcion,  CantidadInicio, CantidadFinal, Porcentaje, "
    u"FechaInicio, FechaFinal, Calculo "
    u" ) "
    u"VALUES "
    u"( '$Empresa$', '$Codigo$', 'Monto', '$PRODUCTO$', '$GLOSA$', $CantIni$, $CantFin$, $Porcentaje$ , "
    u"'$FechaIni$','$FechaFin$', '$Calculo$' "
    u" ) ";

void LineStatements<MontoValues>::fillRemove(SqlStatement& statement, const MontoValues& saved) {
    statement.fill(u"PRODUCTO", saved.Documento, Kind::String)
        .fill(u"TramoIni", saved.InicioTramo, Kind::Double)
        .fill(u"TramoFin", saved.FinTramo, Kind::Double)
        .fill(u"Porcentaje", saved.Porcentaje, Kind::Double)
        .fill(u"Calculo", saved.calculo, Kind::String);
}

void LineStatements<MontoValues>::fillUpdate(SqlStatement& statement, const MontoValues& now,
                                             const MontoValues& saved) {
    statement.fill(u"PRODUCTO", now.Documento, Kind::String)
        .fillText(u"GLOSA", u" "_s)
        .fill(u"CantIni", now.InicioTramo, Kind::Double)
        .fill(u"CantFinal", now.FinTramo, Kind::Double)
        .fill(u"TramoIni", saved.InicioTramo, Kind::Double)
        .fill(u"TramoFin", saved.FinTramo, Kind::Double)
        .fill(u"Porcentaje", now.Porcentaje, Kind::Double)
        .fill(u"Porcentaje2", saved.Porcentaje, Kind::Double)
        .fill(u"Calculo", now.calculo, Kind::String)
        .fill(u"Calculo2", saved.calculo, Kind::String);
}

void LineStatements<MontoValues>::fillInsert(SqlStatement& statement, const MontoValues& now) {
    statement.fill(u"PRODUCTO", now.Documento, Kind::String)
        .fillText(u"GLOSA", u" "_s)
        .fill(u"CantIni", now.InicioTramo, Kind::Double)
        .fill(u"CantFin", now.FinTramo, Kind::Double)
        .fill(u"Porcentaje", now.Porcentaje, Kind::Double)
        .fill(u"Calculo", now.calculo, Kind::String);
}

// Price-list lines: their brackets are written as 0 and name no row.

constexpr QStringView LineStatements<PrecioValues>::remove =
    u"DELETE FROM ComisionesD "
    u"WHERE Empresa = '$Empresa$' and codigo = '$Codigo$' and fechaInicio = '$FechaIni$' "
    u"and fechaFinal = '$FechaFin$' and tipo = 'Precio' and concepto = '$PRODUCTO$'"
    u" and porcentaje = $Porcentaje$  and calculo = '$Calculo$'";

constexpr QStringView LineStatements<PrecioValues>::update =
    u"UPDATE ComisionesD SET "
    u"concepto='$PRODUCTO$', descripcion='$GLOSA$', CantidadInicio=$CantIni$,CantidadFinal=$CantFinal$, "
    u"Porcentaje = $Porcentaje$, Calculo ='$calculo$' "
    u"WHERE Empresa = '$Empresa$' and codigo = '$Codigo$' and fechaInicio = '$FechaIni$' "
    u"and fechaFinal = '$FechaFin$' and tipo = 'Precio' and concepto = '$PRODUCTO$' "
    u" and porcentaje = $Porcentaje2$ and calculo = '$Calculo2$' ";

constexpr QStringView LineStatements<PrecioValues>::insert =
    u"INSERT INTO ComisionesD "
    u"( Empresa, Codigo, tipo, Concepto,Descripcion,  CantidadInicio, CantidadFinal, Porcentaje, "
    u"FechaInicio, FechaFinal, Calculo "
    u" ) "
    u"VALUES "
    u"( '$Empresa$', '$Codigo$', 'Precio', '$PRODUCTO$', '$GLOSA$', $CantIni$, $CantFin$, $Porcentaje$, "
    u"'$FechaIni$','$FechaFin$', '$Calculo$' "
    u" ) ";

void LineStatements<PrecioValues>::fillRemove(SqlStatement& statement, const PrecioValues& saved) {
    statement.fill(u"PRODUCTO", saved.ListaPrecio, Kind::String)
        .fill(u"Porcentaje", saved.Porcentaje, Kind::Double)
        .fill(u"Calculo", saved.calculo, Kind::String);
}

void LineStatements<PrecioValues>::fillUpdate(SqlStatement& statement, const PrecioValues& now,
                                              const PrecioValues& saved) {
    statement.fill(u"PRODUCTO", now.ListaPrecio, Kind::String)
        .fill(u"GLOSA", now.Descripcion, Kind::String)
        .fillText(u"CantIni", u"0"_s)
        .fillText(u"CantFinal", u"0"_s)
        .fill(u"Porcentaje", now.Porcentaje, Kind::Double)
        .fill(u"Porcentaje2", saved.Porcentaje, Kind::Double)
        .fill(u"Calculo", now.calculo, Kind::String)
        .fill(u"Calculo2", saved.calculo, Kind::String);
}

void LineStatements<PrecioValues>::fillInsert(SqlStatement& statement, const PrecioValues& now) {
    statement.fill(u"PRODUCTO", now.ListaPrecio, Kind::String)
        .fill(u"GLOSA", now.Descripcion, Kind::String)
        .fillText(u"CantIni", u"0"_s)
        .fillText(u"CantFin", u"0"_s)
        .fill(u"Porcentaje", now.Porcentaje, Kind::Double)
        .fill(u"Calculo", now.calculo, Kind::String);
}

} // namespace dalvora
