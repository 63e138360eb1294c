#include "benchmarks/Benches.h"
#include "benchmarks/Company.h"
#include "benchmarks/Harness.h"
#include "demo/Database.h"
#include "platform/quorvane32/core/Connection.h"
#include "tests/support/PostgresCluster.h"
#include "tests/support/Relay.h"
#include <algorithm>
#include <libpq-fe.h>
#include <memory>
#include <stdexcept>
#include <vector>

namespace bench {

namespace {

constexpr double serverGoal = 1.5;
constexpr int rounds = 15;

/// The server's C library and nothing else: what our operations are held against.
class ServerFloor {
public:
    explicit ServerFloor(const QString& host)
        : m_link(PQconnectdb(("dbname=postgres user=quorvane host=" + host).toUtf8().constData()), PQfinish) {
        run("SET DateStyle = 'ISO, DMY'");
    }
    void run(const QByteArray& statement) const { fetch(statement); }
    void runInTransaction(const std::vector<QByteArray>& statements) const {
        run("BEGIN");
        for (const QByteArray& statement : statements)
            run(statement);
        run("COMMIT");
    }
    /// Fetches every value of a query into texts.
    std::vector<std::string> fetch(const QByteArray& statement) const {
        const std::unique_ptr<PGresult, decltype(&PQclear)> result(
            PQexec(m_link.get(), statement.constData()), PQclear);
        const ExecStatusType status = PQresultStatus(result.get());
        if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
            throw std::runtime_error(PQerrorMessage(m_link.get()));
        std::vector<std::string> values;
        for (int row = 0; row < PQntuples(result.get()); ++row)
            for (int column = 0; column < PQnfields(result.get()); ++column)
                values.emplace_back(PQgetvalue(result.get(), row, column));
        return values;
    }

private:
    std::unique_ptr<PGconn, decltype(&PQfinish)> m_link;
};

/// The statements that an operation sends.
template<class Operation> std::vector<QByteArray> statementsOf(Company& company, Operation operation) {
    std::vector<QByteArray> statements;
    company.context().Connection->setStatementObserver(
        [&](const QString& sql) { statements.push_back(sql.toUtf8()); });
    operation();
    company.context().Connection->setStatementObserver({});
    return statements;
}

/// True for what begins or ends a transaction and nothing else.
bool isStep(const QByteArray& question) {
    return question.contains("BEGIN") ? !question.contains("SELECT") && !question.contains("select")
                                      : question.contains("COMMIT");
}

/// How often the server is asked and answers, over a link that takes 20 ms, against the statements of all
/// connections.
void countRoundTrips(Report& report, const dalvora::test::PostgresCluster& cluster) {
    constexpr int delay = 20;
    constexpr double besideStatements = 3;
    constexpr int lines = 100;
    dalvora::test::Relay relay(cluster.host());
    QString connectString = cluster.connectString("postgres");
    Company company(connectString.replace(cluster.host(), relay.host()));
    const auto add = [&](const char* name, const std::function<void()>& work) {
        relay.setDelay(delay);
        relay.takeQuestions();
        const int before = relay.roundTrips();
        work();
        const double trips = relay.roundTrips() - before;
        relay.setDelay(0);
        const auto questions = relay.takeQuestions();
        const auto statements =
            static_cast<double>(questions.size() - std::ranges::count_if(questions, isStep));
        report.add({name, "rt", trips, statements, (statements + besideStatements) / statements});
    };
    add("server, 20 ms: round trips, read of 1000 lines", [&] { company.read("BENCHNEW"); });
    company.enterScheme("BENCHLINK", lines);
    add("server, 20 ms: round trips, save of 100 lines", [&] { company.save(); });
}

} // namespace

void benchServer(Report& report, Company&) {
    const dalvora::test::PostgresCluster cluster;
    const QString connectString = cluster.connectString("postgres");
    quorvane::Connection loading;
    loading.open(connectString);
    dalvora::demo::createTables(loading);
    dalvora::demo::loadDemonstration(loading);
    Company company(connectString);
    const ServerFloor floor(cluster.host());
    const auto remove = [&] {
        floor.run("DELETE FROM Comisiones WHERE Empresa = '001' and Codigo = 'BENCHNEW'");
        floor.run("DELETE FROM ComisionesD WHERE Empresa = '001' and Codigo = 'BENCHNEW'");
    };
    company.enterScheme("BENCHNEW", 1000);
    const auto saving = statementsOf(company, [&] { company.save(); });
    const auto reading = statementsOf(company, [&] { company.read("BENCHNEW"); });
    report.add(compare("server: read a scheme of 1000 lines", serverGoal, rounds,
                       {[&] { company.read("BENCHNEW"); }}, {[&] {
                           for (const QByteArray& statement : reading)
                               floor.fetch(statement);
                       }}));
    report.add(compare("server: save a new scheme of 1000 lines", serverGoal, rounds,
                       {[&] { company.save(); },
                        [&] {
                            remove();
                            company.enterScheme("BENCHNEW", 1000);
                        }},
                       {[&] { floor.runInTransaction(saving); }, remove}));
    remove();
    company.enterScheme("BENCHNEW", 1000);
    company.save();
    countRoundTrips(report, cluster);
}

} // namespace bench
