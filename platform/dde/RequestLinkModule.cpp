#include "platform/dde/LocalRequestLink.h"
#include "platform/dde/SystemRequestLink.h"
#include <QObject>

namespace quorvane {

/// The module's door.
class RequestLinkModule final : public QObject, public RequestLinkFactory {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QUORVANE_REQUEST_LINK_FACTORY)
    Q_INTERFACES(quorvane::RequestLinkFactory)

public:
    std::unique_ptr<RequestLink> makeLink() override { return std::make_unique<LocalRequestLink>(); }
};

} // namespace quorvane

#include "RequestLinkModule.moc"
