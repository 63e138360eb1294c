#pragma once

#include "data/LineOf.h"

namespace dalvora {

struct DetailValues {
    QString SubTipo;  ///< "Todos", "Familia", "SubFamilia", "Producto" or "TipoProducto"
    QString Producto; ///< code of that kind, or "Todos"
    QString Descripcion;
    double InicioTramo = 0; ///< quantity bracket
    double FinTramo = 0;
    double Porcentaje = 0;
    QString calculo; ///< "Neto" or "Total"

    bool operator==(const DetailValues&) const = default;
};

/// A product line of a scheme. Columns: 1 SubTipo, 2 Producto, 3 Descripcion, 4 InicioTramo, 5 FinTramo,
/// 6 Porcentaje, 7 calculo.
class DBDetail final : public LineOf<DetailValues> {
public:
    using LineOf::LineOf;

    /// Looks the code up by the line's SubTipo and stores it with its description; False when it does not
    /// exist (told).
    bool Valida_Producto(const QString& code);
    bool Validate() override;

    QString Vendedor;

protected:
    bool checkCode(const QString& code) override { return Valida_Producto(code); }
    /// An empty code empties code and description.
    void clearCode() override;
};

} // namespace dalvora
