#pragma once

#include "platform/dde/RequestLink.h"
#include <memory>

namespace quorvane {

/// The asking end of this system's request channel. Its module is loaded with the first call; besides the
/// channel's own errors every call can raise 429, when the module cannot be loaded.
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
