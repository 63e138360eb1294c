#include "platform/dde/RequestChannelFactory.h"
#include "platform/dde/SystemEnds.h"
#include <QObject>

namespace quorvane {

/// The module's door.
class RequestChannelModule final : public QObject, public RequestChannelFactory {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QUORVANE_REQUEST_CHANNEL_FACTORY)
    Q_INTERFACES(quorvane::RequestChannelFactory)

public:
    std::unique_ptr<RequestLink> makeLink() override { return makeSystemLink(); }
    std::unique_ptr<RequestAnswerer> makeAnswerer(const QString& topic,
                                                  RequestAnswerer::Executor execute) override {
        return makeSystemAnswerer(topic, std::move(execute));
    }
};

} // namespace quorvane

#include "RequestChannelModule.moc"
