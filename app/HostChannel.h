#pragma once

#include "platform/dde/RequestAnswerer.h"
#include <QObject>
#include <QStringList>
#include <memory>
#include <vector>

namespace dalvora {

/// Makes the running program reachable for others. It begins a moment after the start, since the channel
/// brings libraries that no start should wait for.
class HostChannel : public QObject {
    Q_OBJECT
public:
    using Executor = quorvane::RequestAnswerer::Executor;

    explicit HostChannel(Executor execute) : m_execute(std::move(execute)) {}

    /// Answers the topics as soon as the program has been idle. One that another program answers already is
    /// left to it, and a program whose channel cannot be loaded works unreachable.
    void beginSoon(const QStringList& topics);
    void begin(const QStringList& topics);
    /// Answers nothing any more.
    void close() { m_answerers.clear(); }

private:
    Executor m_execute;
    std::vector<std::unique_ptr<quorvane::RequestAnswerer>> m_answerers;
};

} // namespace dalvora
