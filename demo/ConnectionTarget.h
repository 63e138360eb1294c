#pragma once

#include "demo/RowTarget.h"
#include <vector>

namespace quorvane {
class Connection;
}

namespace dalvora::demo {

/// A database of any engine that is being filled through its connection, a hundred rows a statement. Rows
/// that are still waiting are sent by finish().
class ConnectionTarget final : public RowTarget {
public:
    explicit ConnectionTarget(quorvane::Connection& connection) : m_connection(connection) {}
    std::unique_ptr<RowSink> open(const char* table, const char* columns) override;
    void finish();

private:
    /// Rows of one table on their way.
    struct Batch {
        QString insert;
        QString values;
        int rows = 0;
    };
    class Sink;
    void send(Batch& batch);

    quorvane::Connection& m_connection;
    std::vector<std::shared_ptr<Batch>> m_batches;
};

} // namespace dalvora::demo
