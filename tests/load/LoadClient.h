#pragma once

#include "data/Salespeople.h"
#include "tests/load/LoadCompany.h"
#include "tests/load/LoadScheme.h"
#include <QFile>
#include <functional>

namespace dalvora::test {

/// One user at work: reads, changes, saves, deletes and assigns schemes, one call of the record for each turn
/// of the event loop with a little thinking in between, and writes down what came of it.
class LoadClient {
public:
    LoadClient(LoadProgram& program, int number, int users, quint32 seed, const QString& historyFile);
    ~LoadClient();
    LoadClient(const LoadClient&) = delete;
    LoadClient& operator=(const LoadClient&) = delete;

    /// Does the next thing. Returns how long the user then thinks (ms).
    int turn();
    /// Finishes what is begun and signs off.
    void finish();

private:
    LoadOperation begin(LoadKind kind, const QString& scheme) const;
    void end(LoadOperation& operation, bool done);

    void readMoved();
    void readShared();
    void readContested();
    void assign();
    void list();
    /// Reads a scheme and gives its value; "" when the read failed.
    QString read(const QString& code);
    void plan(LoadKind kind, const QString& scheme, const QString& based, std::vector<LoadCell> cells);
    void save();
    bool call(const LoadOperation& operation);
    QString nextMark() { return QStringLiteral("%1.%2").arg(m_number).arg(++m_marks); }
    int random(int first, int last) { return std::uniform_int_distribution(first, last)(m_random); }

    LoadProgram& m_program;
    MessageRecorder m_messages;
    int m_number;
    int m_movedSchemes;
    LoadRandom m_random;
    QFile m_history;
    int m_marks = 0;
    int m_incarnation = 0; ///< how often this user has made his own scheme
    int m_contested = 0;
    QString m_keyText; ///< what the record's audit texts begin with
    std::optional<LoadOperation> m_planned;
};

} // namespace dalvora::test
