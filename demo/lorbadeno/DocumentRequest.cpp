#include "demo/lorbadeno/DocumentRequest.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QHash>
#include <QStringList>

namespace dalvora::lorbadeno {

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void refuse(const QString& why) {
    throw quorvane::RunTimeError(quorvane::ErrorInvalidCall, why);
}

QHash<QString, QString> pairsOf(const QString& command) {
    QHash<QString, QString> pairs;
    for (const QString& part : command.split(u';', Qt::SkipEmptyParts)) {
        const qsizetype equals = part.indexOf(u'=');
        if (equals <= 0)
            refuse(u"No se entiende el requerimiento"_s);
        pairs.insert(part.left(equals).trimmed().toUpper(), part.mid(equals + 1).trimmed());
    }
    return pairs;
}

} // namespace

DocumentRequest readRequest(const QString& command) {
    const QHash<QString, QString> pairs = pairsOf(command);
    const QString action = pairs.value(u"ACCION"_s);
    if (action.compare(u"V", Qt::CaseInsensitive) != 0)
        refuse(action.isEmpty() ? u"El requerimiento no dice qué hacer con el documento"_s
                                : u"Este programa sólo muestra documentos"_s);
    DocumentRequest request{pairs.value(u"EMPRESA"_s), pairs.value(u"TIPODOCTO"_s), pairs.value(u"CTACTE"_s),
                            pairs.value(u"DOCTOINI"_s)};
    if (request.company.isEmpty())
        refuse(u"El requerimiento no indica la empresa"_s);
    if (request.type.isEmpty() || request.number.isEmpty())
        refuse(u"El requerimiento no indica el documento"_s);
    const QString last = pairs.value(u"DOCTOFIN"_s, request.number);
    if (last.compare(request.number, Qt::CaseInsensitive) != 0)
        refuse(u"Este programa muestra un documento a la vez"_s);
    return request;
}

} // namespace dalvora::lorbadeno
