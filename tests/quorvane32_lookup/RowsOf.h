#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Recordset.h"
#include "tests/support/ErrorOf.h"
#include <QStringList>
#include <functional>
#include <vector>

/// Results made by a function of row and column, for tests that need no database.
namespace rows {

using MakeValue = std::function<quorvane::Value(int row, int column)>;

class MadeCursor final : public quorvane::Cursor {
public:
    MadeCursor(QStringList names, int count, MakeValue make)
        : m_names(std::move(names)), m_count(count), m_make(std::move(make)) {}
    bool next() override { return ++m_row < m_count; }
    int columnCount() const override { return static_cast<int>(m_names.size()); }
    QString columnName(int ordinal) const override { return m_names[ordinal]; }
    quorvane::Value value(int ordinal) override { return m_make(m_row, ordinal); }

private:
    QStringList m_names;
    int m_count;
    MakeValue m_make;
    int m_row = -1;
};

inline quorvane::Recordset made(const QStringList& names, int count, MakeValue make) {
    return quorvane::Recordset(std::make_unique<MadeCursor>(names, count, std::move(make)));
}

/// A result of texts.
inline quorvane::Recordset of(const QStringList& names, const std::vector<QStringList>& lines) {
    return made(names, static_cast<int>(lines.size()), [lines](int row, int column) {
        return quorvane::Value(lines[static_cast<size_t>(row)][column]);
    });
}

using quorvane::test::errorOf;

/// Description of the error that an action raises; "" when it raises none.
template<class Action> QString descriptionOf(Action action) {
    try {
        action();
        return {};
    } catch (const quorvane::RunTimeError& error) {
        return error.description();
    }
}

} // namespace rows
