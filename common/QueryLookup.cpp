#include "common/QueryLookup.h"
#include "common/Blanks.h"
#include "common/ComponentMessages.h"
#include "common/ComponentServices.h"
#include "common/ShowMessage.h"
#include "platform/quorvane32/core/Components.h"
#include "platform/quorvane32/core/Session.h"
#include <QDir>

namespace dalvora {

using namespace Qt::StringLiterals;

namespace {

/// On Windows "\" separates folders. Elsewhere "/" does, and "\" counts too, since file names come from the
/// ERP in its own spelling.
bool namesFolder(const QString& file) {
    return file.contains(u'\\') || file.contains(QDir::separator());
}

std::unique_ptr<quorvane::LookupComponent> createLookup(quorvane::ComponentFactory& components) {
    const QString programId = u"Quorvane32.QuorQuery"_s;
    try {
        return components.createLookup(programId);
    } catch (const quorvane::RunTimeError& error) {
        showComponentError(
            u"Error al instanciar componente de consulta a base de datos ("_s + programId + u")"_s, error);
        return nullptr;
    }
}

} // namespace

bool QueryLookup(const ComponentServices& services, const QString& queryName, const QString& queryFile,
                 const QString& parameters, QStringList& values) {
    values.clear();
    const QString file =
        namesFolder(queryFile) ? queryFile : services.application.path + QDir::separator() + queryFile;
    const auto component = createLookup(services.components);
    if (!component)
        return false;
    try {
        component->setConexion(services.connection);
        component->setArchivoQuery(queryName + u'@' + file + u'#' + parameters);
        const QString shown = component->Muestra();
        const QString chosen = withoutOuterBlanks(shown).toString();
        if (chosen.isEmpty())
            return false;
        values = chosen.split(u'#');
        return true;
    } catch (const quorvane::RunTimeError& error) {
        ShowMessage(u"Error al procesar consulta "_s + queryName + u'@' + file + u"\n\n"_s +
                        numberedText(error),
                    MessageError, componentTitle.toString());
        return false;
    }
}

} // namespace dalvora
