#pragma once

#include "platform/dde/RequestAnswerer.h"
#include "platform/dde/RequestLink.h"
#include <QtPlugin>
#include <memory>

namespace quorvane {

/// What the module of the request channel offers: both ends in the way of this system. It is loaded with the
/// first use: most of a day's work makes no request, and no start of the program waits for the libraries
/// under it.
class RequestChannelFactory {
public:
    virtual ~RequestChannelFactory() = default;
    virtual std::unique_ptr<RequestLink> makeLink() = 0;
    /// The topic is "application|topic".
    virtual std::unique_ptr<RequestAnswerer> makeAnswerer(const QString& topic,
                                                          RequestAnswerer::Executor execute) = 0;
};

/// The module, loaded when need be; error 429 when it cannot be.
RequestChannelFactory& requestChannel();

} // namespace quorvane

#define QUORVANE_REQUEST_CHANNEL_FACTORY "quorvane.RequestChannelFactory/2"
Q_DECLARE_INTERFACE(quorvane::RequestChannelFactory, QUORVANE_REQUEST_CHANNEL_FACTORY)
