#include "tests/load/LoadChecker.h"

#include "platform/quorvane32/core/Session.h"
#include "tests/load/CellHistory.h"

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

enum class Failure { Refused, Duplicate, LockTimeout, Deadlock, Unknown };

const QString changedByOther = u" porque ha sido modificado por otro usuario. Debe leer nuevamente."_s;
constexpr QStringView duplicateKey =
    u"Error al grabar registro\nYa existe un registro con esas características";

QString nameOf(const LoadOperation& operation) {
    static const char* const names[] = {"start",  "read",   "create", "change",
                                        "delete", "assign", "list",   "end"};
    return u"%1 of %2 by u%3"_s.arg(QLatin1String(names[static_cast<int>(operation.kind)]), operation.scheme)
        .arg(operation.client);
}

bool isWrite(const LoadOperation& operation) {
    return operation.kind == LoadKind::Create || operation.kind == LoadKind::Change ||
           operation.kind == LoadKind::Delete || operation.kind == LoadKind::Assign;
}

/// Names what a write is based on.
QString readingOf(const LoadOperation& operation) {
    return operation.scheme + u' ' + operation.based;
}

int auditCode(LoadKind kind) {
    switch (kind) {
    case LoadKind::Start:
        return quorvane::AuditStart;
    case LoadKind::Create:
        return quorvane::AuditCreate;
    case LoadKind::Change:
        return quorvane::AuditChange;
    case LoadKind::Delete:
        return quorvane::AuditDelete;
    case LoadKind::End:
        return quorvane::AuditEnd;
    default:
        return quorvane::AuditRead;
    }
}

/// The texts that an operation puts before a native error, and the rest of the message.
Failure failureOf(const LoadOperation& operation, const Message& message) {
    const bool deletes = operation.kind == LoadKind::Delete;
    if (message ==
        Message{(deletes ? u"No se eliminó el registro"_s : u"No se grabó el registro"_s) + changedByOther,
                deletes ? MessageWarning : MessageInformation})
        return operation.kind == LoadKind::Create ? Failure::Unknown : Failure::Refused;
    if (message.style != MessageError)
        return Failure::Unknown;
    if (operation.kind == LoadKind::Create && message.text == duplicateKey)
        return Failure::Duplicate;
    if (operation.kind == LoadKind::Assign)
        return message.text.contains(u"inténtelo de nuevo") ? Failure::LockTimeout : Failure::Unknown;
    const QString first = message.text.section(u'\n', 0, 0).section(u" (Línea "_s, 0, 0);
    const QString second = message.text.section(u'\n', 1);
    if (first != (deletes ? u"Error al eliminar registro"_s : u"Error al grabar registro"_s))
        return Failure::Unknown;
    if (second.startsWith(u"1222 - Otro programa"))
        return Failure::LockTimeout;
    return second.startsWith(u"1205 - Otro programa") ? Failure::Deadlock : Failure::Unknown;
}

class Checker {
public:
    Checker(const LoadHistory& history, LoadSummary& summary) : m_history(history), m_summary(summary) {}

    QStringList check() {
        m_found = m_history.faults;
        collectWrites();
        for (const LoadOperation& operation : m_history.operations)
            checkOperation(operation);
        checkEnd();
        checkAudit();
        return m_found;
    }

private:
    void collectWrites() {
        for (const LoadCell& cell : m_history.before)
            m_cells[cell.name].addFirst(cell.value);
        for (const LoadOperation& operation : m_history.operations) {
            if (!isWrite(operation) || !operation.done)
                continue;
            for (const LoadCell& cell : operation.cells)
                m_cells[cell.name].add({operation.start, operation.end, cell.value});
            const auto it = m_savedFrom.find(readingOf(operation));
            if (it == m_savedFrom.end())
                m_savedFrom.insert(readingOf(operation), operation.start);
            else
                *it = std::min(*it, operation.start);
        }
        for (auto& [name, cell] : m_cells)
            cell.sort();
    }

    void checkOperation(const LoadOperation& operation) {
        for (const QString& fault : operation.faults)
            m_found << nameOf(operation) + u": "_s + fault;
        m_summary.longest[operation.kind] =
            std::max(m_summary.longest[operation.kind], operation.end - operation.start);
        m_summary.repeated += operation.repeated ? 1 : 0;
        if (!operation.done)
            return checkFailure(operation);
        ++m_summary.done[operation.kind];
        checkSilence(operation);
        if (operation.audit)
            ++m_expectedAudit[{u"u%1"_s.arg(operation.client), auditCode(operation.kind), *operation.audit}];
        if (operation.kind == LoadKind::Read || operation.kind == LoadKind::List)
            checkSeen(operation);
        if (operation.kind == LoadKind::Change || operation.kind == LoadKind::Delete)
            checkOverwritten(operation);
    }

    /// A success tells nothing; a moved period has been asked for.
    void checkSilence(const LoadOperation& operation) {
        for (const Message& message : operation.messages)
            if (operation.kind != LoadKind::Change || message.style != MessageQuestion ||
                !message.text.contains(u" ha sido modificada, esto puede provocar inconsistencias"))
                m_found << nameOf(operation) + u" succeeded and told: "_s + message.text;
    }

    void checkSeen(const LoadOperation& operation) {
        for (const LoadCell& cell : operation.cells) {
            m_summary.notFound += cell.value == absentValue ? 1 : 0;
            const QString problem = m_cells[cell.name].problem(cell.value, operation.start, operation.end);
            if (!problem.isEmpty())
                m_found << nameOf(operation) + u" saw "_s + cell.name + u" = "_s + cell.value + u": "_s +
                               problem;
        }
    }

    /// Where every save moves the period, nobody writes over what he has not read.
    void checkOverwritten(const LoadOperation& operation) {
        if (!operation.scheme.startsWith(u'M'))
            return;
        const LoadOperation*& earlier = m_overwritten[readingOf(operation)];
        if (earlier)
            m_found << u"%1 and %2 both succeeded from %3: a lost update"_s.arg(
                nameOf(*earlier), nameOf(operation), operation.based);
        earlier = &operation;
    }

    void checkFailure(const LoadOperation& operation) {
        std::vector<Message> told;
        for (const Message& message : operation.messages)
            if (message.style != MessageQuestion)
                told.push_back(message);
        if (told.size() != 1) {
            m_found << u"%1 failed with %2 messages"_s.arg(nameOf(operation)).arg(told.size());
            return;
        }
        switch (failureOf(operation, told.front())) {
        case Failure::Refused:
            ++m_summary.refused;
            return checkRefusal(operation);
        case Failure::Duplicate:
            ++m_summary.duplicates;
            return checkDuplicate(operation);
        case Failure::LockTimeout:
            ++m_summary.lockTimeouts;
            return;
        case Failure::Deadlock:
            ++m_summary.deadlocks;
            return;
        case Failure::Unknown:
            m_found << nameOf(operation) + u" told: "_s + told.front().text;
        }
    }

    /// Whether somebody had saved, by the end of an operation, what it was based on.
    bool cameLate(const LoadOperation& operation) const {
        const auto it = m_savedFrom.find(readingOf(operation));
        return it != m_savedFrom.end() && *it <= operation.end;
    }

    void checkRefusal(const LoadOperation& operation) {
        if (!operation.scheme.startsWith(u'M') || !cameLate(operation))
            m_found << nameOf(operation) + u" was refused, and nobody else had saved "_s + operation.based;
    }

    void checkDuplicate(const LoadOperation& operation) {
        if (!cameLate(operation))
            m_found << nameOf(operation) + u" was told a duplicate, and nobody else had made it"_s;
    }

    void checkEnd() {
        std::map<QString, QString> stored;
        for (const LoadCell& cell : m_history.after)
            stored[cell.name] = cell.value;
        for (const auto& [name, cell] : m_cells)
            stored.try_emplace(name, absentValue);
        for (const auto& [name, value] : stored) {
            ++m_summary.cells;
            const QString problem = m_cells[name].problem(value, CellHistory::last, CellHistory::last);
            if (!problem.isEmpty())
                m_found << u"at the end "_s + name + u" = "_s + value + u": "_s + problem;
        }
    }

    void checkAudit() {
        for (const auto& [key, count] : m_history.audit) {
            m_summary.auditEntries += count;
            m_expectedAudit.try_emplace(key, 0);
        }
        for (const auto& [key, expected] : m_expectedAudit) {
            const auto it = m_history.audit.find(key);
            const int count = it == m_history.audit.end() ? 0 : it->second;
            if (count != expected)
                m_found << u"the audit trail has %1 entries of %2, code %3, \"%4\" for %5 operations"_s
                               .arg(count)
                               .arg(key.user)
                               .arg(key.code)
                               .arg(key.text)
                               .arg(expected);
        }
    }

    const LoadHistory& m_history;
    LoadSummary& m_summary;
    QStringList m_found;
    std::map<QString, CellHistory> m_cells;
    QHash<QString, const LoadOperation*> m_overwritten;
    QHash<QString, qint64> m_savedFrom; ///< when the first that succeeded from a reading began
    std::map<AuditKey, int> m_expectedAudit;
};

} // namespace

QStringList checkHistory(const LoadHistory& history, LoadSummary& summary) {
    return Checker(history, summary).check();
}

} // namespace dalvora::test
