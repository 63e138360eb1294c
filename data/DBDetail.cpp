#include "data/DBDetail.h"
#include "common/Trapped.h"
#include "data/CodeCheck.h"
#include <array>

namespace dalvora {

using namespace Qt::StringLiterals;

namespace {

struct ConceptKind {
    QStringView SubTipo;
    CodeCheck check;
};

constexpr QStringView productKind = u"Producto";
constexpr QStringView allCode = u"TODOS";

constexpr std::array conceptKinds = {
    ConceptKind{productKind,
                {u"SELECT Producto, Glosa "
                 u"FROM PRODUCTO "
                 u"WHERE EMPRESA = '$Empresa$' AND Producto = '$Producto$' ",
                 u"Producto", u"Producto '", u"producto", u"glosa"}},
    ConceptKind{u"Familia",
                {u"SELECT distinct( familia ), '' as glosa from producto WHERE Empresa='$Empresa$'  "
                 u"and familia <> ' '  and familia = '$Producto$' ",
                 u"Producto", u"Familia '", u"familia", u"glosa"}},
    ConceptKind{u"SubFamilia",
                {u"SELECT distinct( Subfamilia ), '' as glosa from producto WHERE Empresa='$Empresa$'  "
                 u"and Subfamilia <> ' '  and Subfamilia = '$Producto$' ",
                 u"Producto", u"SubFamilia '", u"subfamilia", u"glosa"}},
    ConceptKind{u"TipoProducto",
                {u"SELECT distinct( TipoProducto ), '' as glosa from producto WHERE Empresa='$Empresa$' "
                 u"and TipoProducto = '$Producto$' ",
                 u"Producto", u"TipoProducto '", u"TipoProducto", u"glosa"}},
};

const ConceptKind* conceptKind(const QString& SubTipo) {
    for (const ConceptKind& kind : conceptKinds)
        if (kind.SubTipo == SubTipo)
            return &kind;
    return nullptr;
}

} // namespace

bool DBDetail::Valida_Producto(const QString& code) {
    return trapped(u"Error al leer tabla de productos"_s, false, [&] {
        const ConceptKind* kind = conceptKind(SubTipo);
        // A line of another kind takes no code: there is nothing to look up and nothing is stored.
        if (kind == nullptr)
            return true;
        const std::optional<FoundCode> found = findCode(kind->check, table(), code);
        const bool all = kind->SubTipo == productKind && code.toUpper() == allCode;
        if (!found && !all)
            return tellNotFound(kind->check, code);
        Producto = all ? u"Todos"_s : found->code.toUpper();
        Descripcion = all ? QString() : found->text;
        return true;
    });
}

void DBDetail::clearCode() {
    Producto.clear();
    Descripcion.clear();
}

bool DBDetail::Validate() {
    return trapped(u"Error al validar campo de detalle"_s, false, [this] {
        SysErrorCol = 0;
        if (Producto.isEmpty() && SubTipo != u"Todos")
            return lacks(2, u"Debe ingresar "_s + SubTipo);
        if (Porcentaje == 0)
            return lacks(6, u"Debe ingresar Porcentaje"_s);
        if (calculo.isEmpty())
            return lacks(7, u"Debe ingresar Calculo"_s);
        return true;
    });
}

} // namespace dalvora
