#pragma once

#include "platform/dde/RequestLink.h"
#include <QtPlugin>
#include <memory>

namespace quorvane {

/// What the module of the request channel offers.
class RequestLinkFactory {
public:
    virtual ~RequestLinkFactory() = default;
    virtual std::unique_ptr<RequestLink> makeLink() = 0;
};

/// The request channel of this system. It comes from a module that is loaded when the first request is made:
/// most of a day's work makes none, and no start of the program waits for the network library under it.
/// Besides the channel's own errors every call can raise 429, when the module cannot be loaded.
class SystemRequestLink final : public RequestLink {
public:
    void setLinkTimeout(int tenths) override { link().setLinkTimeout(tenths); }
    void setLinkTopic(const QString& topic) override { link().setLinkTopic(topic); }
    void setLinkMode(int mode) override { link().setLinkMode(mode); }
    int linkMode() const override { return m_link ? m_link->linkMode() : LinkNone; }
    void LinkExecute(const QString& command) override { link().LinkExecute(command); }

private:
    RequestLink& link();

    std::unique_ptr<RequestLink> m_link;
};

} // namespace quorvane

#define QUORVANE_REQUEST_LINK_FACTORY "quorvane.RequestLinkFactory/1"
Q_DECLARE_INTERFACE(quorvane::RequestLinkFactory, QUORVANE_REQUEST_LINK_FACTORY)
