#include "data/DBPrecio.h"
#include "common/Trapped.h"
#include "data/CodeCheck.h"

namespace dalvora {

using namespace Qt::StringLiterals;

namespace {

constexpr CodeCheck priceListCheck = {u" SELECT LisPrecio,Descripcion"
                                      u" FROM ListaPrecio "
                                      u"WHERE EMPRESA = '$Empresa$' AND LisPrecio = '$Lista$' ",
                                      u"Lista", u"Lista de Precios '", u"LisPrecio", u"descripcion"};

} // namespace

bool DBPrecio::Valida_ListaPrecio(const QString& code) {
    // A failed lookup names the product table, whatever was looked up.
    return trapped(u"Error al leer tabla de productos"_s, false, [&] {
        const std::optional<FoundCode> found = findCode(priceListCheck, table(), code);
        const bool all = code.toUpper() == u"TODAS";
        if (!found && !all)
            return tellNotFound(priceListCheck, code);
        ListaPrecio = all ? u"Todas"_s : found->code;
        Descripcion = all ? QString() : found->text;
        return true;
    });
}

bool DBPrecio::Validate() {
    // The list itself is not asked for: a line without one is complete.
    return trapped(u"Error al validar campo de detalle"_s, false, [this] {
        SysErrorCol = 0;
        if (Porcentaje == 0)
            return lacks(3, u"Debe ingresar Porcentaje"_s);
        if (calculo.isEmpty())
            return lacks(4, u"Debe ingresar Calculo"_s);
        return true;
    });
}

} // namespace dalvora
