#include "tests/load/LoadRun.h"

#include "platform/quorvane32/core/Connection.h"
#include "tests/load/LoadCompany.h"
#include "tests/load/LoadScheme.h"
#include <QProcess>
#include <QTextStream>
#include <memory>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int lockTimeout = 600; // ms
constexpr int patience = 120000; // ms that a process may take to begin or to end

/// The processes of a run, ended with it.
class Crew {
public:
    Crew(const LoadRun& run, const LoadCompany& company) {
        for (int user = 0; user < run.users; ++user)
            start({company.profileFolder(user), QString::number(user), QString::number(run.users),
                   QString::number(run.seed), run.missing});
        start({company.profileFolder(0), u"another-program"_s});
    }

    void work(int time, QStringList& faults) {
        for (const auto& process : m_processes)
            while (!process->canReadLine() && process->waitForReadyRead(patience)) {
            }
        for (const auto& process : m_processes) {
            process->write(QByteArray::number(time) + '\n');
            process->waitForBytesWritten(patience);
        }
        for (const auto& process : m_processes) {
            process->waitForFinished(patience);
            if (process->exitStatus() != QProcess::NormalExit || process->exitCode() != 0)
                faults << u"%1 did not end well: %2"_s.arg(
                    process->arguments().join(u' '), QString::fromUtf8(process->readAllStandardError()));
        }
    }

private:
    void start(const QStringList& arguments) {
        m_processes.push_back(std::make_unique<QProcess>());
        m_processes.back()->start(QStringLiteral(LOAD_USER), arguments);
    }

    std::vector<std::unique_ptr<QProcess>> m_processes;
};

std::vector<LoadOperation> operationsOf(const LoadCompany& company, int users) {
    std::vector<LoadOperation> operations;
    for (int user = 0; user < users; ++user) {
        QFile file(company.historyFile(user));
        if (file.open(QIODevice::ReadOnly))
            while (!file.atEnd())
                operations.push_back(fromLine(file.readLine()));
    }
    return operations;
}

std::map<AuditKey, int> auditOf(quorvane::Connection& connection) {
    std::map<AuditKey, int> entries;
    auto row = connection.openRecordset(u"SELECT Usuario, Codigo, Texto FROM ses_auditoria"_s);
    for (; !row.eof(); row.moveNext())
        ++entries[{row.value(0).toText({}), static_cast<int>(row.value(1).toNumber({})),
                   row.value(2).toText({})}];
    return entries;
}

} // namespace

LoadHistory LoadRun::run() const {
    if (engine == TestEngine::PostgreSql)
        // So that programs that stop each other are told before their patience ends.
        TestDatabase(engine).run(u"ALTER ROLE quorvane SET deadlock_timeout = '200ms'"_s);
    const LoadCompany company(engine, users, lockTimeout);
    quorvane::Connection connection;
    connection.open(company.database().connectString());
    LoadHistory history;
    history.before = storedCells(connection, history.faults);
    Crew(*this, company).work(time, history.faults);
    history.operations = operationsOf(company, users);
    history.after = storedCells(connection, history.faults);
    history.audit = auditOf(connection);
    return history;
}

QString reportOf(const LoadRun& run, const LoadHistory& history, const LoadSummary& summary) {
    static const std::pair<LoadKind, const char*> kinds[] = {
        {LoadKind::Read, "read"},     {LoadKind::Create, "create"}, {LoadKind::Change, "change"},
        {LoadKind::Delete, "delete"}, {LoadKind::Assign, "assign"}, {LoadKind::List, "list"}};
    QString text;
    QTextStream out(&text);
    out << (run.engine == TestEngine::Sqlite ? "embedded file" : "PostgreSQL") << ", " << run.users
        << " programs, " << run.time << " ms, seed " << run.seed << ": " << history.operations.size()
        << " operations\n  ";
    for (const auto& [kind, name] : kinds) {
        const auto done = summary.done.find(kind);
        const auto longest = summary.longest.find(kind);
        out << name << ' ' << (done == summary.done.end() ? 0 : done->second) << " (longest "
            << (longest == summary.longest.end() ? 0 : longest->second / 1000000) << " ms)  ";
    }
    out << "\n  refused as changed by another " << summary.refused << ", duplicate key " << summary.duplicates
        << ", lock time-outs " << summary.lockTimeouts << ", deadlocks " << summary.deadlocks
        << ", saves tried again after these " << summary.repeated << "\n  reads that found nothing "
        << summary.notFound << ", audit entries " << summary.auditEntries << ", compared at the end "
        << summary.cells << '\n';
    return text;
}

} // namespace dalvora::test
