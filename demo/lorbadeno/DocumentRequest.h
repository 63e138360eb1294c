#pragma once

#include <QString>

namespace dalvora::lorbadeno {

/// Which document a command asks to see.
struct DocumentRequest {
    QString company;
    QString type;
    QString account;
    QString number;
};

/// Reads a command such as
/// "EMPRESA=001;TIPODOCTO=FACTURA;CTACTE=VINET;DOCTOINI=10248;DOCTOFIN=10248;ACCION=V": pairs key=value
/// separated by ";", keys in any case and order, others ignored. Error 5 with the reason in Spanish for a
/// command that is not understood or asks for anything but to see one document.
DocumentRequest readRequest(const QString& command);

} // namespace dalvora::lorbadeno
