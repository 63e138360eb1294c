#pragma once

#include "platform/quorvane32/base/RegionalSettings.h"
#include <QString>
#include <memory>

namespace quorvane {
class Connection;
class Session;
} // namespace quorvane

namespace dalvora {

class DBTable;

/// What start-up makes once and every other part reads: handed down by reference.
struct SessionContext {
    SessionContext();
    /// The record goes first, the session next, the connection last.
    ~SessionContext();
    SessionContext(const SessionContext&) = delete;
    SessionContext& operator=(const SessionContext&) = delete;

    std::unique_ptr<DBTable> Table;
    std::unique_ptr<quorvane::Connection> Connection;
    std::unique_ptr<quorvane::Session> Session;
    QString AppTitle;
    QString Version;
    quorvane::RegionalSettings Regional;
};

} // namespace dalvora
