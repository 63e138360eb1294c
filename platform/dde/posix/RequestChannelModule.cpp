#include "platform/dde/LocalRequestLink.h"
#include "platform/dde/RequestChannelFactory.h"
#include "platform/dde/RequestServer.h"
#include <QObject>

namespace quorvane {

/// The module's door: local sockets.
class RequestChannelModule final : public QObject, public RequestChannelFactory {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QUORVANE_REQUEST_CHANNEL_FACTORY)
    Q_INTERFACES(quorvane::RequestChannelFactory)

public:
    std::unique_ptr<RequestLink> makeLink() override { return std::make_unique<LocalRequestLink>(); }
    std::unique_ptr<RequestAnswerer> makeAnswerer(const QString& topic,
                                                  RequestAnswerer::Executor execute) override {
        return std::make_unique<RequestServer>(topic, std::move(execute));
    }
};

} // namespace quorvane

#include "RequestChannelModule.moc"
