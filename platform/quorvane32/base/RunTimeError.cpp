#include "platform/quorvane32/base/RunTimeError.h"

namespace quorvane {

namespace {

struct Description {
    int number;
    const char16_t* text;
};

constexpr Description descriptions[] = {
    {ErrorInvalidCall, u"Llamada a procedimiento o argumento no válidos"},
    {ErrorOverflow, u"Desbordamiento"},
    {ErrorSubscript, u"Subíndice fuera del intervalo"},
    {ErrorTypeMismatch, u"No coinciden los tipos"},
    {ErrorFileNotFound, u"No se encontró el archivo"},
    {ErrorObjectNotSet, u"Variable de objeto no establecida"},
    {ErrorInvalidNull, u"Uso no válido de Null"},
    {ErrorLinkNoAnswer, u"Ninguna aplicación externa respondió a una iniciación de DDE"},
    {ErrorLinkRefused, u"La aplicación externa no realizó el método o la operación de DDE"},
    {ErrorLinkTimeout, u"Se agotó el tiempo de espera de la respuesta de DDE"},
    {ErrorLinkFormat, u"Los datos de DDE tienen un formato incorrecto"},
    {ErrorLinkQuit, u"La aplicación externa terminó"},
    {ErrorLinkNotOpen, u"Se llamó a un método de DDE sin un canal abierto"},
    {ErrorLinkTopic, u"No se puede establecer LinkMode: LinkTopic no es válido"},
    {ErrorPropertyValue, u"Valor de propiedad no válido"},
    {ErrorReadOnlyProperty, u"La propiedad es de sólo lectura"},
    {ErrorNoSuchProperty, u"El objeto no admite esta propiedad"},
    {ErrorNoCurrentRecord, u"El valor de BOF o EOF es True, o el registro actual se eliminó; la operación "
                           u"solicitada requiere un registro actual"},
    {ErrorItemNotFound, u"No se encontró el elemento en la colección que corresponde con el nombre o el "
                        u"ordinal pedido"},
    {ErrorObjectClosed, u"La operación solicitada no está permitida si el objeto está cerrado"},
    {ErrorDialogCancelled, u"Se seleccionó Cancelar"},
};

} // namespace

void raise(int number) {
    for (const Description& description : descriptions)
        if (description.number == number)
            throw RunTimeError(number, QString::fromUtf16(description.text));
    throw RunTimeError(number, QStringLiteral("Error definido por la aplicación o el objeto"));
}

} // namespace quorvane
