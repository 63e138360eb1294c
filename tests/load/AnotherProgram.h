#pragma once

#include "platform/quorvane32/core/Connection.h"
#include <QString>

namespace dalvora::test {

/// Another program of the ERP on the same tables: it holds a scheme's header for longer than the others wait,
/// and takes lines before their header, the other way round than a save, so that the two stop each other. It
/// stores nothing.
class AnotherProgram {
public:
    /// Works on the database of a user's profile.
    explicit AnotherProgram(const QString& profileFolder);

    /// Gets in the way for this time (ms).
    void work(int time);

private:
    void holdHeader();
    void takeLinesFirst();

    quorvane::Connection m_connection;
};

} // namespace dalvora::test
