#pragma once

#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/Engine.h"
#include <QtPlugin>

namespace quorvane {

/// What an engine module offers. Engines of servers live in modules of their own, loaded when a connect
/// string names one: a program that works on the embedded database never loads a server's client library.
class EngineFactory {
public:
    virtual ~EngineFactory() = default;
    /// Opens the database that a connect string describes; the engine's errors as RunTimeError.
    virtual std::unique_ptr<Engine> open(const ConnectString& options) = 0;
};

} // namespace quorvane

#define QUORVANE_ENGINE_FACTORY "quorvane.EngineFactory/1"
Q_DECLARE_INTERFACE(quorvane::EngineFactory, QUORVANE_ENGINE_FACTORY)
