#pragma once

#include "platform/quorvane32/core/Connection.h"
#include "tests/support/QtPrinters.h"
#include <QStringList>
#include <utility>
#include <vector>

namespace dalvora::test {

using Row = std::vector<quorvane::Value>;

/// What a made-up database answers, and what it was asked, in order: "begin", "commit", "rollback" and every
/// statement as it came.
struct FakeDatabase {
    struct Answer {
        QString fragment;
        QStringList columns;
        std::vector<Row> rows;
    };

    /// A SELECT that holds the fragment (the first that fits) gives these rows; any other gives none.
    void answer(const QString& fragment, const QStringList& columns, std::vector<Row> rows) {
        answers.push_back({fragment, columns, std::move(rows)});
    }
    /// A command that holds the fragment affects this many rows; any other one.
    void affect(const QString& fragment, qint64 rows) { affected.emplace_back(fragment, rows); }
    std::vector<QString> take() { return std::exchange(calls, {}); }

    std::vector<Answer> answers;
    std::vector<std::pair<QString, qint64>> affected;
    std::vector<QString> calls;
};

class FakeCursor final : public quorvane::Cursor {
public:
    explicit FakeCursor(FakeDatabase::Answer answer) : m_answer(std::move(answer)) {}
    bool next() override { return ++m_row < static_cast<int>(m_answer.rows.size()); }
    int columnCount() const override { return static_cast<int>(m_answer.columns.size()); }
    QString columnName(int ordinal) const override { return m_answer.columns[ordinal]; }
    quorvane::Value value(int ordinal) override { return m_answer.rows.at(m_row).at(ordinal); }

private:
    FakeDatabase::Answer m_answer;
    int m_row = -1;
};

class FakeEngine final : public quorvane::Engine {
public:
    explicit FakeEngine(FakeDatabase& database) : m_database(database) {}
    std::unique_ptr<quorvane::Cursor> select(const QString& sql) override {
        m_database.calls.push_back(sql);
        for (const auto& answer : m_database.answers)
            if (sql.contains(answer.fragment))
                return std::make_unique<FakeCursor>(answer);
        return std::make_unique<FakeCursor>(FakeDatabase::Answer{});
    }
    qint64 execute(const QString& sql) override {
        m_database.calls.push_back(sql);
        for (const auto& [fragment, rows] : m_database.affected)
            if (sql.contains(fragment))
                return rows;
        return 1;
    }
    void begin() override { m_database.calls.push_back(QStringLiteral("begin")); }
    void commit() override { m_database.calls.push_back(QStringLiteral("commit")); }
    void rollback() override { m_database.calls.push_back(QStringLiteral("rollback")); }

private:
    FakeDatabase& m_database;
};

} // namespace dalvora::test
