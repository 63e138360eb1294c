#include "tests/load/MissingParts.h"

#include <QThread>

namespace dalvora::test {

namespace {

using quorvane::Connection;
using quorvane::Cursor;
using quorvane::Engine;
using quorvane::Session;

/// An engine that stores each statement by itself, or reads each by itself, and takes its time between them,
/// so that somebody comes in between.
class LooseEngine final : public Engine {
public:
    static constexpr int pause = 3; // ms

    LooseEngine(std::unique_ptr<Engine> engine, bool transactions)
        : m_engine(std::move(engine)), m_transactions(transactions) {}

    std::unique_ptr<Cursor> select(const QString& sql) override {
        QThread::msleep(pause);
        return m_engine->select(sql);
    }
    qint64 execute(const QString& sql) override {
        QThread::msleep(pause);
        return m_engine->execute(sql);
    }
    // beginReading and endReading stay those of an engine that has no such thing.
    void begin() override {
        if (m_transactions)
            m_engine->begin();
    }
    void commit() override {
        if (m_transactions)
            m_engine->commit();
    }
    void rollback() override {
        if (m_transactions)
            m_engine->rollback();
    }

private:
    std::unique_ptr<Engine> m_engine;
    bool m_transactions;
};

/// A session that forgets entries of the audit trail.
class ForgetfulSession final : public Session {
public:
    explicit ForgetfulSession(std::unique_ptr<Session> session) : m_session(std::move(session)) {}

    void SetApplication(const quorvane::ApplicationInfo& application) override {
        m_session->SetApplication(application);
    }
    void SetClientInfo(const QString& info) override { m_session->SetClientInfo(info); }
    void Initialize(Connection& connection, const QString& module, const QString& program,
                    const QString& version, const QString& company, bool& cancel) override {
        m_session->Initialize(connection, module, program, version, company, cancel);
    }
    QString CompanyName() const override { return m_session->CompanyName(); }
    QString CompanyCode() const override { return m_session->CompanyCode(); }
    QString UserName() const override { return m_session->UserName(); }
    QString AccessRights() const override { return m_session->AccessRights(); }
    void Audit(int code, const QString& text) override {
        if (++m_entries % 5 != 0)
            m_session->Audit(code, text);
    }

private:
    std::unique_ptr<Session> m_session;
    int m_entries = 0;
};

} // namespace

LoadParts withoutPart(const QString& part) {
    LoadParts parts;
    if (part == u"no-audit")
        parts.session = [](std::unique_ptr<Session> session) {
            return std::make_unique<ForgetfulSession>(std::move(session));
        };
    else if (!part.isEmpty())
        parts.engine = [transactions = part != u"no-transactions"](std::unique_ptr<Engine> engine) {
            return std::make_unique<LooseEngine>(std::move(engine), transactions);
        };
    return parts;
}

} // namespace dalvora::test
