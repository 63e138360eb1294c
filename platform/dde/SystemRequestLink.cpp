#include "platform/dde/SystemRequestLink.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QPluginLoader>

namespace quorvane {

RequestLink& SystemRequestLink::link() {
    if (m_link)
        return *m_link;
    QPluginLoader loader(QStringLiteral("quorvane/quorvane_dde_module"));
    auto* factory = qobject_cast<RequestLinkFactory*>(loader.instance());
    if (!factory)
        throw RunTimeError(
            ErrorCannotCreateObject,
            QStringLiteral("No se puede cargar el canal de requerimientos [%1]").arg(loader.errorString()));
    m_link = factory->makeLink();
    return *m_link;
}

} // namespace quorvane
