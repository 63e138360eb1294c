#include "common/ShowAbout.h"
#include "common/ComponentMessages.h"
#include "common/ComponentServices.h"
#include "platform/quorvane32/core/Components.h"
#include "platform/quorvane32/core/Session.h"

namespace dalvora {

using namespace Qt::StringLiterals;

void ShowAbout(const ComponentServices& services, const QString& title, const QString& description) {
    const QString programId = u"Quorvane32.QuorAbout"_s;
    try {
        const auto about = services.components.createAbout(programId);
        about->setApTitulo(title);
        about->setApDescripcion(description);
        about->setApVerMayor(services.application.major);
        about->setApVerMenor(services.application.minor);
        about->setApRevision(services.application.revision);
        about->Mostrar();
    } catch (const quorvane::RunTimeError& error) {
        showComponentError(u"Error al instanciar componente AcercaDe para Quorvane ("_s + programId + u")"_s,
                           error);
    }
}

} // namespace dalvora
