#pragma once

#include "tests/faults/ProgramFixture.h"
#include "tests/support/Relay.h"
#include <functional>

namespace dalvora::test {

/// What happens to the server, or to the way to it.
enum class Blow {
    BackendKilled, ///< the server's process that serves the program gets signal 9
    ServerStopped, ///< the server ends at once and stays away until it is mended
    NetworkCut,    ///< every socket between the program and the server is dropped
};

const char* nameOf(Blow blow);
inline std::string blowName(const testing::TestParamInfo<Blow>& info) {
    return nameOf(info.param);
}

/// The real program on a PostgreSQL server of the test's own, over a link that can be cut and is counted. The
/// company holds the stored scheme C1; the program is not yet started.
class ServerProgram : public ProgramFixture {
protected:
    ServerProgram();
    ~ServerProgram() override;

    /// Happens now: when the call returns the program's connections are gone.
    void strike(Blow blow);
    /// The server takes connections again.
    void mend();
    /// Strikes when the program's connection sends its statement of this number from now on.
    void strikeAtStatement(int number, Blow blow);

    /// The connect string with another value of a key; "" leaves the key out.
    QString with(const QString& key, const QString& value) const;
    QString databaseName() const;
    /// The one message since the last call starts with this text; returns it whole.
    QString toldStarting(const QString& start, int style = MessageError);

    PostgresCluster& cluster = TestDatabase::cluster();
    Relay relay{cluster.host()};

private:
    void killBackend() const;

    bool m_stopped = false;
};

} // namespace dalvora::test
