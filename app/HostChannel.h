#pragma once

#include "platform/dde/RequestAnswerer.h"
#include <QObject>
#include <QStringList>
#include <map>
#include <memory>

namespace dalvora {

/// Makes the running program reachable for others.
class HostChannel : public QObject {
    Q_OBJECT
public:
    using Executor = quorvane::RequestAnswerer::Executor;

    explicit HostChannel(Executor execute) : m_execute(std::move(execute)) {}

    /// Answers those of the topics that no program answers yet. False when some were left to others, which
    /// may end: asked again later, it takes them. A program whose channel cannot be loaded works unreachable.
    bool begin(const QStringList& topics);
    /// Answers nothing any more.
    void close() { m_answerers.clear(); }

private:
    Executor m_execute;
    std::map<QString, std::unique_ptr<quorvane::RequestAnswerer>> m_answerers; ///< by topic
};

} // namespace dalvora
