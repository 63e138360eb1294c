#pragma once

#include "data/LineOf.h"

namespace dalvora {

struct MontoValues {
    QString Documento;      ///< sales document type, or "TODOS"
    double InicioTramo = 0; ///< amount bracket
    double FinTramo = 0;
    double Porcentaje = 0;
    QString calculo; ///< "Neto" or "Total"

    bool operator==(const MontoValues&) const = default;
};

/// An amount line of a scheme. Columns: 1 Documento, 2 InicioTramo, 3 FinTramo, 4 Porcentaje, 5 calculo.
class DBMonto final : public LineOf<MontoValues> {
public:
    using LineOf::LineOf;

    /// Looks the document type up and stores it; False when it does not exist (told).
    bool Valida_Documento(const QString& code);
    bool Validate() override;

protected:
    bool checkCode(const QString& code) override { return Valida_Documento(code); }
};

} // namespace dalvora
