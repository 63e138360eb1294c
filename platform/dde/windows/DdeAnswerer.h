#pragma once

#include "platform/dde/ChannelLock.h"
#include "platform/dde/RequestAnswerer.h"
#include <memory>

namespace quorvane {

/// The answering end over DDE, for any program of the user's desktop that asks, in Unicode or not. The first
/// part of the topic is the service, the second the topic. A command that comes while another is carried out
/// is turned away as busy. The reason of a refusal is lost: DDE carries none. Lives in a thread that runs
/// events.
class DdeAnswerer final : public RequestAnswerer {
public:
    DdeAnswerer(QString topic, Executor execute);
    ~DdeAnswerer() override;

    /// False, too, when this thread answers eight topics already. Programs that are not of this house may
    /// answer the same topic beside this one.
    bool listen() override;
    void close() override;

private:
    class Service;

    QString m_topic;
    Executor m_execute;
    ChannelLock m_lock;
    std::unique_ptr<Service> m_service;
};

} // namespace quorvane
