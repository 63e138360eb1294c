#pragma once

#include "tests/support/MessageRecorder.h"
#include <QString>
#include <QStringList>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

namespace dalvora::test {

/// Something stored that is always written whole: a scheme, one user's lines of a shared scheme, the code of
/// a salesperson. Its value names the save that wrote it and what that save wrote; "-" is absent.
struct LoadCell {
    QString name;
    QString value;
    bool operator==(const LoadCell&) const = default;
};

inline const QString absentValue = QStringLiteral("-");

enum class LoadKind : int { Start, Read, Create, Change, Delete, Assign, List, End };

/// What one user did: one call of the record (or of the salespeople) and everything that came of it.
struct LoadOperation {
    int client = 0;
    LoadKind kind = LoadKind::Read;
    QString scheme;   ///< code; empty where there is none
    qint64 start = 0; ///< of the machine's steady clock (ns), one clock for all programs
    qint64 end = 0;
    bool done = false;             ///< what the call returned
    bool repeated = false;         ///< the same save once more, after a lock had stopped it
    QString based;                 ///< writes of a scheme: the value that the record had read
    std::optional<QString> audit;  ///< text of the audit entry that it makes when it is done
    std::vector<LoadCell> cells;   ///< what a read saw, what a write was to write
    std::vector<Message> messages; ///< what the user was told
    QStringList faults;            ///< what the user's program itself found wrong
};

QByteArray toLine(const LoadOperation& operation);
LoadOperation fromLine(const QByteArray& line);

/// An entry of the audit trail as it is counted.
struct AuditKey {
    QString user;
    int code = 0;
    QString text;
    bool operator<(const AuditKey& other) const {
        return std::tie(user, code, text) < std::tie(other.user, other.code, other.text);
    }
};

/// All that is known of a run.
struct LoadHistory {
    std::vector<LoadOperation> operations;
    std::vector<LoadCell> before; ///< what was stored when it began
    std::vector<LoadCell> after;  ///< what is stored now
    std::map<AuditKey, int> audit;
    QStringList faults; ///< programs that did not end well, lines without a header, ...
};

} // namespace dalvora::test
