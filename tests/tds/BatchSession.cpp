#include "tests/tds/BatchSession.h"

#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/SqlLexer.h"
#include "platform/quorvane32/core/sqlite/SqliteEngine.h"
#include "tests/tds/ResultRows.h"
#include "tests/tds/SetStatement.h"
#include <QDeadlineTimer>
#include <QRegularExpression>
#include <algorithm>
#include <array>

namespace dalvora::test::tds {

using quorvane::RunTimeError;

namespace {

/// The client has given up what it asked for.
struct GivenUp {};

constexpr int lookAtLock = 10; // ms between tries

QStringList statementsIn(const QString& batch) {
    std::vector<quorvane::SqlToken> tokens;
    quorvane::tokenize(batch, tokens);
    QStringList statements;
    QString statement;
    bool hasWords = false;
    const auto end = [&] {
        if (hasWords)
            statements += statement;
        statement.clear();
        hasWords = false;
    };
    for (const quorvane::SqlToken& token : tokens) {
        if (token.text(batch) == u";") {
            end();
            continue;
        }
        statement += token.text(batch);
        hasWords = hasWords || token.significant();
    }
    end();
    return statements;
}

QString firstWord(const QString& sql) {
    std::vector<quorvane::SqlToken> tokens;
    quorvane::tokenize(sql, tokens);
    const auto first = std::ranges::find_if(tokens, &quorvane::SqlToken::significant);
    return first == tokens.end() ? QString() : first->text(sql).toString().toLower();
}

std::unique_ptr<quorvane::Engine> openEmbedded(const QString& path) {
    quorvane::ConnectString options;
    options.setValue(QStringLiteral("database"), path);
    options.setValue(QStringLiteral("synchronous"), QStringLiteral("normal"));
    auto engine = quorvane::sqlite::openSqlite(options);
    // From now on locks are waited for here, where the session's time and the client are looked at.
    engine->execute(QStringLiteral("PRAGMA busy_timeout = %1").arg(lookAtLock));
    return engine;
}

} // namespace

BatchSession::BatchSession(SessionSettings settings, const QString& path, Faults& faults, Observer observer)
    : m_settings(std::move(settings))
    , m_faults(faults)
    , m_observer(std::move(observer))
    , m_engine(openEmbedded(path)) {}

void BatchSession::requireTransaction(quint64 transaction) const {
    if (transaction != m_transaction)
        throw ServerFault(3971, QString::number(transaction, 16));
}

void BatchSession::run(const BatchRequest& request, Answer& answer) {
    const QStringList statements = statementsIn(request.sql);
    try {
        requireTransaction(request.transaction);
        for (qsizetype i = 0; i < statements.size(); ++i) {
            const bool more = i + 1 < statements.size();
            if (runStatement(statements[i], more, answer, [&] { dispatch(statements[i], more, answer); }) ==
                End::Batch)
                break;
        }
        if (statements.isEmpty())
            done(answer, DoneFinal);
    } catch (const ServerFault& fault) {
        fail(fault.message, answer);
    } catch (const GivenUp&) {
        done(answer, DoneAttention);
    }
    answer.finish();
}

void BatchSession::run(const TransactionRequest& request, Answer& answer) {
    const QString name = request.kind == TransactionRequest::Begin ? QStringLiteral("BEGIN TRANSACTION")
                         : request.kind == TransactionRequest::Commit
                             ? QStringLiteral("COMMIT TRANSACTION")
                             : QStringLiteral("ROLLBACK TRANSACTION");
    runStatement(name, false, answer, [&] {
        requireTransaction(request.transaction);
        if (request.kind == TransactionRequest::Begin)
            begin(answer);
        else if (request.kind == TransactionRequest::Commit)
            commit(answer);
        else if (request.kind == TransactionRequest::Rollback)
            rollback(answer);
        else
            throw ServerFault(quorvane::ErrorSyntax, QStringLiteral("SAVE"));
        if (request.beginsNext)
            begin(answer);
        done(answer, DoneFinal);
    });
    answer.finish();
}

BatchSession::End BatchSession::runStatement(const QString& sql, bool more, Answer& answer,
                                             const std::function<void()>& work) {
    m_observer(sql);
    const std::optional<Faults::Moment> cut = m_faults.takeCut(sql);
    if (cut == Faults::Moment::BeforeItRuns)
        answer.link().cut();
    m_cutInRows = cut == Faults::Moment::InItsRows;
    End end = End::Statement;
    try {
        if (const auto failure = m_faults.takeFailure(sql))
            throw ServerFault(failure->number, failure->name);
        work();
    } catch (const ServerFault& fault) {
        end = fail(fault.message, answer);
    } catch (const RunTimeError& error) {
        end = fail(serverMessage(error), answer);
    }
    if (cut)
        answer.link().cut();
    if (end == End::Statement && more)
        answer.sendFullPackets();
    return end;
}

void BatchSession::dispatch(const QString& sql, bool more, Answer& answer) {
    const int status = more ? DoneMore : DoneFinal;
    const QString word = firstWord(sql);
    if (word == u"set") {
        applySet(sql, m_settings);
        done(answer, status);
    } else if (word == u"use") {
        if (!sql.contains(m_settings.database, Qt::CaseInsensitive))
            throw ServerFault(911, sql.trimmed().section(u' ', 1));
        writeChange(answer.tokens(), Change::Database, m_settings.database, m_settings.database);
        done(answer, status);
    } else if (word == u"exec" || word == u"execute") {
        throw ServerFault(2812, sql.simplified().section(u' ', 1, 1));
    } else if (runTransactionStatement(sql, answer)) {
        done(answer, status);
    } else if (word == u"select") {
        select(sql, more, answer);
    } else {
        change(sql, more, answer);
    }
}

bool BatchSession::runTransactionStatement(const QString& sql, Answer& answer) {
    static const QRegularExpression form(
        QStringLiteral("^\\s*(IF\\s+@@TRANCOUNT\\s*>\\s*0\\s+)?(BEGIN|COMMIT|ROLLBACK)(\\s+(TRAN|TRANSACTION|"
                       "WORK))?\\s*$"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = form.match(sql);
    const QString word = match.captured(2).toLower();
    if (word.isEmpty() || (word == u"begin" && match.captured(3).isEmpty()))
        return false;
    if (!match.captured(1).isEmpty() && m_transaction == 0)
        return true;
    if (word == u"begin")
        begin(answer);
    else if (word == u"commit")
        commit(answer);
    else
        rollback(answer);
    return true;
}

void BatchSession::patiently(Answer& answer, const std::function<void()>& work) {
    QDeadlineTimer time(m_settings.lockTimeout < 0 ? QDeadlineTimer::Forever
                                                   : QDeadlineTimer(m_settings.lockTimeout));
    for (;;) {
        try {
            return work();
        } catch (const RunTimeError& error) {
            if (error.number() != quorvane::ErrorLockTimeout || time.hasExpired())
                throw;
            if (!answer.link().pause(lookAtLock))
                throw GivenUp();
        }
    }
}

void BatchSession::select(const QString& sql, bool more, Answer& answer) {
    std::unique_ptr<ResultRows> rows;
    holdState();
    patiently(answer,
              [&] { rows = std::make_unique<ResultRows>(m_engine->select(toEmbedded(sql, m_settings))); });
    writeColumns(answer.tokens(), rows->columns());
    quint64 count = 0;
    while (rows->next()) {
        writeRow(answer.tokens(), rows->columns(), rows->values());
        answer.sendFullPackets();
        ++count;
        if (m_cutInRows) {
            answer.sendTorn();
            answer.link().cut();
        }
        constexpr quint64 rowsBetweenLooks = 64;
        if (count % rowsBetweenLooks == 0 && answer.link().takeAttention())
            throw GivenUp();
    }
    done(answer, DoneCount | (more ? DoneMore : DoneFinal), count);
}

void BatchSession::holdState() {
    if (m_transaction == 0 || !m_settings.snapshot || m_begun || m_holdsState)
        return;
    if (!m_settings.allowsSnapshots)
        throw ServerFault(3952, m_settings.database);
    m_engine->beginReading();
    m_holdsState = true;
}

void BatchSession::releaseState() {
    if (std::exchange(m_holdsState, false))
        m_engine->endReading();
}

void BatchSession::change(const QString& sql, bool more, Answer& answer) {
    static const QStringList counted{QStringLiteral("insert"), QStringLiteral("update"),
                                     QStringLiteral("delete")};
    const bool counts = m_settings.counts && counted.contains(firstWord(sql));
    qint64 rows = 0;
    patiently(answer, [&] {
        if (m_transaction != 0 && !m_begun) {
            releaseState();
            m_engine->begin();
            m_begun = true;
        }
        rows = m_engine->execute(toEmbedded(sql, m_settings));
    });
    done(answer, (counts ? DoneCount : 0) | (more ? DoneMore : DoneFinal), rows);
}

void BatchSession::begin(Answer& answer) {
    if (m_settings.openTransactions++ > 0)
        return;
    m_transaction = (quint64(1) << 32) + ++m_transactions;
    writeTransactionChange(answer.tokens(), Change::Begin, m_transaction, 0);
}

void BatchSession::commit(Answer& answer) {
    if (m_transaction == 0)
        throw ServerFault(3902, {});
    if (--m_settings.openTransactions > 0)
        return;
    releaseState();
    if (m_begun)
        m_engine->commit();
    m_begun = false;
    writeTransactionChange(answer.tokens(), Change::Commit, 0, std::exchange(m_transaction, 0));
}

void BatchSession::rollback(Answer& answer) {
    if (m_transaction == 0)
        throw ServerFault(3903, {});
    m_settings.openTransactions = 0;
    releaseState();
    if (m_begun)
        m_engine->rollback();
    m_begun = false;
    writeTransactionChange(answer.tokens(), Change::Rollback, 0, std::exchange(m_transaction, 0));
}

BatchSession::End BatchSession::fail(const ServerMessage& message, Answer& answer) {
    // What hurts a rule of the table ends its statement alone, as on the server; everything else the batch.
    constexpr std::array hurtRules{quorvane::ErrorNullNotAllowed, quorvane::ErrorForeignKey,
                                   quorvane::ErrorDuplicateKey};
    constexpr int duplicateIndexRow = 2601;
    const bool rule = message.number == duplicateIndexRow ||
                      std::ranges::find(hurtRules, message.number) != hurtRules.end();
    writeMessage(answer.tokens(), message);
    if (rule)
        writeMessage(answer.tokens(), statementTerminated());
    const bool undone = message.number == quorvane::ErrorDeadlock || m_settings.rollsBackOnError;
    if (undone && m_transaction != 0)
        rollback(answer);
    done(answer, DoneError);
    return rule && !undone ? End::Statement : End::Batch;
}

void BatchSession::done(Answer& answer, int status, quint64 rows) const {
    writeDone(answer.tokens(), status | (m_transaction != 0 ? DoneInTransaction : 0), rows);
}

} // namespace dalvora::test::tds
