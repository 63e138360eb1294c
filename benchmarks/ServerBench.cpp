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
constexpr int rounds = 6;
/// A pair of connections is faster or slower by half for as long as it lives, ours or the floor's, as the
/// system happens to place its processes. So several pairs are measured.
constexpr int sittings = 5;

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

/// One scheme of 1000 lines over and over, by the record and by the floor, each on a connection of its own.
class Sitting {
public:
    explicit Sitting(const dalvora::test::PostgresCluster& cluster)
        : m_company(cluster.connectString("postgres")), m_floor(cluster.host()) {
        prepareSave();
        m_saving = statementsOf(m_company, [this] { m_company.save(); });
        m_reading = statementsOf(m_company, [this] { read(); });
    }
    Result compareReads() {
        return compare("server: read a scheme of 1000 lines", serverGoal, rounds, {[this] { read(); }},
                       {[this] {
                           for (const QByteArray& statement : m_reading)
                               m_floor.fetch(statement);
                       }});
    }
    Result compareSaves() {
        return compare("server: save a new scheme of 1000 lines", serverGoal, rounds,
                       {[this] { m_company.save(); }, [this] { prepareSave(); }},
                       {[this] { m_floor.runInTransaction(m_saving); }, [this] { remove(); }});
    }

private:
    void read() { m_company.read("BENCHNEW"); }
    void remove() const {
        m_floor.run("DELETE FROM Comisiones WHERE Empresa = '001' and Codigo = 'BENCHNEW'");
        m_floor.run("DELETE FROM ComisionesD WHERE Empresa = '001' and Codigo = 'BENCHNEW'");
    }
    void prepareSave() {
        remove();
        m_company.enterScheme("BENCHNEW", 1000);
    }

    Company m_company;
    ServerFloor m_floor;
    std::vector<QByteArray> m_saving;
    std::vector<QByteArray> m_reading;
};

} // namespace

void benchServer(Report& report, Company&) {
    const dalvora::test::PostgresCluster cluster;
    quorvane::Connection loading;
    loading.open(cluster.connectString("postgres"));
    dalvora::demo::createTables(loading);
    dalvora::demo::loadDemonstration(loading);
    Sitting first(cluster);
    Result reads = first.compareReads();
    Result saves = first.compareSaves();
    for (int number = 1; number < sittings; ++number) {
        Sitting sitting(cluster);
        reads.keepBest(sitting.compareReads());
        saves.keepBest(sitting.compareSaves());
    }
    report.add(reads);
    report.add(saves);
    countRoundTrips(report, cluster);
}

} // namespace bench
