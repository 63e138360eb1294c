#include "data/DBMonto.h"
#include "common/Trapped.h"
#include "data/CodeCheck.h"

namespace dalvora {

using namespace Qt::StringLiterals;

namespace {

// An unknown document is told in the words of an unknown product.
constexpr CodeCheck documentCheck = {
    u"Select TipoDocto ,clase from tipodocumento "
    u"WHERE EMPRESA = '$Empresa$' "
    u"and sistema = 'ventas' and valorizado = 'S' and Vendedor = 'S' and tipodocto = '$TipoDocto$'",
    u"TipoDocto",
    u"Producto '",
    u"TipoDocto",
    {}};

} // namespace

bool DBMonto::Valida_Documento(const QString& code) {
    // A failed lookup names the product table, whatever was looked up.
    return trapped(u"Error al leer tabla de productos"_s, false, [&] {
        const std::optional<FoundCode> found = findCode(documentCheck, table(), code);
        const bool all = code.toUpper() == u"TODOS";
        if (!found && !all)
            return tellNotFound(documentCheck, code);
        Documento = all ? u"TODOS"_s : found->code;
        return true;
    });
}

bool DBMonto::Validate() {
    return trapped(u"Error al validar campo de detalle"_s, false, [this] {
        SysErrorCol = 0;
        if (Documento.isEmpty())
            return lacks(1, u"Debe ingresar Documento"_s);
        if (Porcentaje == 0)
            return lacks(4, u"Debe ingresar Porcentaje"_s);
        if (calculo.isEmpty())
            return lacks(5, u"Debe ingresar Calculo"_s);
        return true;
    });
}

} // namespace dalvora
