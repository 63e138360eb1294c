#pragma once

#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/Profile.h"
#include <QStringList>
#include <vector>

namespace quorvane::admin {

/// What a check of a database has to say.
struct HealthLine {
    enum Kind : quint8 {
        Good,
        Note, ///< worth knowing, nothing to mend
        Finding,
    };
    Kind kind = Good;
    QString text;
};

/// What the checks look at, and where they tell what they saw. They only read.
struct HealthCheck {
    Connection& connection;
    const Profile& profile;
    QString folder; ///< of the profile
    std::vector<HealthLine> lines;

    void good(const QString& text) { lines.push_back({HealthLine::Good, text}); }
    void note(const QString& text) { lines.push_back({HealthLine::Note, text}); }
    void finding(const QString& text) { lines.push_back({HealthLine::Finding, text}); }

    /// The rows of a query as texts, the first ones of many.
    std::vector<QStringList> rows(const QString& sql) const;
    /// The first value of the first row as text, "" for no row.
    QString value(const QString& sql) const;
};

// The checks, a file for each group. The database's errors leave them.

/// Profile's file, its companies.
void checkProfile(HealthCheck& check);
/// Engine, version, integrity of the file, encoding, room on the disk.
void checkEngine(HealthCheck& check);
/// Layout, tables, columns, keys, indexes.
void checkTables(HealthCheck& check);
/// Rows that belong to nothing, schemes that contradict each other, users who cannot work.
void checkData(HealthCheck& check);

} // namespace quorvane::admin
