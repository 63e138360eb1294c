#pragma once

#include "data/LineOf.h"

namespace dalvora {

struct PrecioValues {
    QString ListaPrecio; ///< price list code, or "Todas"
    QString Descripcion;
    double Porcentaje = 0;
    QString calculo; ///< "Neto" or "Total"

    bool operator==(const PrecioValues&) const = default;
};

/// A price-list line of a scheme. Columns: 1 ListaPrecio, 2 Descripcion, 3 Porcentaje, 4 calculo.
class DBPrecio final : public LineOf<PrecioValues> {
public:
    using LineOf::LineOf;

    /// Looks the price list up and stores it with its description; False when it does not exist (told).
    bool Valida_ListaPrecio(const QString& code);
    bool Validate() override;

protected:
    bool checkCode(const QString& code) override { return Valida_ListaPrecio(code); }
};

} // namespace dalvora
