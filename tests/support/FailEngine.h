#pragma once

#include "platform/quorvane32/core/Connection.h"
#include <memory>
#include <optional>

namespace dalvora::test {

/// When an engine fails, and with what. Statements are counted from 1 over queries and commands.
struct FailPlan {
    /// Statements and transaction steps from now on go well again.
    void heal() { *this = FailPlan{}; }

    int atStatement = 0;
    int atRow = 0; ///< while the row of this number (from 1) of the failing query is fetched
    bool onBegin = false;
    bool onCommit = false;
    bool onRollback = false;
    quorvane::RunTimeError error{quorvane::ErrorDiskFull, QStringLiteral("Disco lleno")};
    int statements = 0; ///< counted so far
};

class FailCursor final : public quorvane::Cursor {
public:
    FailCursor(std::unique_ptr<quorvane::Cursor> cursor, int atRow, quorvane::RunTimeError error)
        : m_cursor(std::move(cursor)), m_rowsLeft(atRow), m_error(std::move(error)) {}
    bool next() override {
        if (--m_rowsLeft == 0)
            throw m_error;
        return m_cursor->next();
    }
    int columnCount() const override { return m_cursor->columnCount(); }
    QString columnName(int ordinal) const override { return m_cursor->columnName(ordinal); }
    quorvane::Value value(int ordinal) override { return m_cursor->value(ordinal); }

private:
    std::unique_ptr<quorvane::Cursor> m_cursor;
    int m_rowsLeft;
    quorvane::RunTimeError m_error;
};

/// An engine around another one that fails where its plan says: a fault at the very place where real ones
/// happen. A lost connection (3709) makes the connection open a new engine, which goes by the same plan.
class FailEngine final : public quorvane::Engine {
public:
    FailEngine(std::unique_ptr<quorvane::Engine> engine, FailPlan& plan)
        : m_engine(std::move(engine)), m_plan(plan) {}

    std::unique_ptr<quorvane::Cursor> select(const QString& sql) override {
        const bool fails = ++m_plan.statements == m_plan.atStatement;
        if (fails && m_plan.atRow == 0)
            throw m_plan.error;
        auto cursor = m_engine->select(sql);
        return fails ? std::make_unique<FailCursor>(std::move(cursor), m_plan.atRow, m_plan.error)
                     : std::move(cursor);
    }
    qint64 execute(const QString& sql) override {
        failIf(++m_plan.statements == m_plan.atStatement);
        return m_engine->execute(sql);
    }
    void beginReading() override { m_engine->beginReading(); }
    void endReading() override { m_engine->endReading(); }
    void begin() override {
        failIf(m_plan.onBegin);
        m_engine->begin();
    }
    void commit() override {
        failIf(m_plan.onCommit);
        m_engine->commit();
    }
    void rollback() override {
        failIf(m_plan.onRollback);
        m_engine->rollback();
    }

private:
    void failIf(bool fails) {
        if (fails)
            throw m_plan.error;
    }

    std::unique_ptr<quorvane::Engine> m_engine;
    FailPlan& m_plan;
};

} // namespace dalvora::test
