#include "platform/quorvane32/base/RunTimeError.h"

namespace quorvane {

void raise(int number) {
    switch (number) {
    case ErrorInvalidCall:
        throw RunTimeError(number, QStringLiteral("Llamada a procedimiento o argumento no válidos"));
    case ErrorOverflow:
        throw RunTimeError(number, QStringLiteral("Desbordamiento"));
    case ErrorSubscript:
        throw RunTimeError(number, QStringLiteral("Subíndice fuera del intervalo"));
    case ErrorTypeMismatch:
        throw RunTimeError(number, QStringLiteral("No coinciden los tipos"));
    case ErrorFileNotFound:
        throw RunTimeError(number, QStringLiteral("No se encontró el archivo"));
    case ErrorObjectNotSet:
        throw RunTimeError(number, QStringLiteral("Variable de objeto no establecida"));
    case ErrorInvalidNull:
        throw RunTimeError(number, QStringLiteral("Uso no válido de Null"));
    case ErrorItemNotFound:
        throw RunTimeError(number,
                           QStringLiteral("No se encontró el elemento en la colección que corresponde "
                                          "con el nombre o el ordinal pedido"));
    default:
        throw RunTimeError(number, QStringLiteral("Error definido por la aplicación o el objeto"));
    }
}

} // namespace quorvane
