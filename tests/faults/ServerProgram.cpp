#include "tests/faults/ServerProgram.h"
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/Connection.h"
#include <QTest>
#include <csignal>

namespace dalvora::test {

const char* nameOf(Blow blow) {
    switch (blow) {
    case Blow::BackendKilled:
        return "BackendKilled";
    case Blow::ServerStopped:
        return "ServerStopped";
    case Blow::NetworkCut:
        return "NetworkCut";
    }
    return "";
}

ServerProgram::ServerProgram() : ProgramFixture(TestEngine::PostgreSql) {
    company.writeProfile(with(u"host"_s, relay.host()));
}

ServerProgram::~ServerProgram() {
    mend();
}

void ServerProgram::strike(Blow blow) {
    switch (blow) {
    case Blow::BackendKilled:
        killBackend();
        EXPECT_TRUE(QTest::qWaitFor([this] { return relay.links() == 0; })) << "the server goes on";
        return;
    case Blow::ServerStopped:
        cluster.kill();
        m_stopped = true;
        return;
    case Blow::NetworkCut:
        relay.cutAll();
        return;
    }
}

// The server ends all its other processes when one of them is killed, and begins anew.
void ServerProgram::killBackend() const {
    pid_t process = 0;
    {
        quorvane::Connection administrator;
        administrator.open(cluster.connectString(u"postgres"_s));
        // The one in a transaction, when there is one.
        const auto row = administrator.openRecordset(
            u"SELECT pid FROM pg_stat_activity WHERE datname = '%1' AND backend_type = 'client backend' "
            u"ORDER BY xact_start IS NULL, pid DESC"_s.arg(databaseName()));
        ASSERT_FALSE(row.eof()) << "nobody serves the program";
        process = static_cast<pid_t>(row.value(0).toNumber({}));
    }
    ASSERT_EQ(::kill(process, SIGKILL), 0);
}

void ServerProgram::mend() {
    if (m_stopped)
        cluster.start();
    else
        cluster.waitUntilReady();
    m_stopped = false;
}

void ServerProgram::strikeAtStatement(int number, Blow blow) {
    program.context().Connection->setStatementObserver(
        [this, number, blow, sent = 0](const QString&) mutable {
            if (++sent == number)
                strike(blow);
        });
}

QString ServerProgram::with(const QString& key, const QString& value) const {
    auto options = quorvane::ConnectString::parse(company.connectString());
    options.setValue(key, value);
    return options.toString();
}

QString ServerProgram::databaseName() const {
    return quorvane::ConnectString::parse(company.connectString()).value(u"database"_s);
}

QString ServerProgram::toldStarting(const QString& start, int style) {
    const Message message = told();
    EXPECT_TRUE(message.text.startsWith(start)) << qPrintable(message.text);
    EXPECT_EQ(message.style, style);
    return message.text;
}

} // namespace dalvora::test
