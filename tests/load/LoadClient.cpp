#include "tests/load/LoadClient.h"

#include <chrono>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int usersOfAMovedScheme = 5;
constexpr int firstDay = 36526;     // 1 January 2000
constexpr int daysOfAnOwner = 4000; // a scheme made again never meets a period of its earlier life
constexpr int longestThought = 25;  // ms

qint64 now() {
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

} // namespace

LoadClient::LoadClient(LoadProgram& program, int number, int users, quint32 seed, const QString& historyFile)
    : m_program(program)
    , m_number(number)
    , m_movedSchemes(std::max(2, users / usersOfAMovedScheme))
    , m_random(seed * 1000 + static_cast<quint32>(number))
    , m_history(historyFile) {
    if (!m_history.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(historyFile));
    LoadOperation start = begin(LoadKind::Start, {});
    start.audit = u""_s; // DBInitialize of the program that is handed in
    end(start, true);
}

LoadClient::~LoadClient() = default;

LoadOperation LoadClient::begin(LoadKind kind, const QString& scheme) const {
    LoadOperation operation;
    operation.client = m_number;
    operation.kind = kind;
    operation.scheme = scheme;
    operation.start = now();
    return operation;
}

void LoadClient::end(LoadOperation& operation, bool done) {
    operation.end = now();
    operation.done = done;
    operation.messages = m_messages.take();
    m_history.write(toLine(operation));
}

int LoadClient::turn() {
    if (m_planned) {
        save();
    } else if (m_number < m_movedSchemes && m_incarnation == 0) {
        readMoved();
    } else {
        const int what = random(1, 100);
        if (what <= 45)
            readMoved();
        else if (what <= 75)
            readShared();
        else if (what <= 85)
            readContested();
        else if (what <= 93)
            assign();
        else
            list();
    }
    return random(0, longestThought);
}

QString LoadClient::read(const QString& code) {
    // The entry tells the company that the record had before.
    m_keyText = m_program.table().TextValue(1);
    LoadOperation operation = begin(LoadKind::Read, code);
    const bool done = m_program.read(code);
    DBTable& table = m_program.table();
    if (done && table.SysRecordFound) {
        operation.cells = cellsOf(table, operation.faults);
        operation.audit = m_keyText + u":COMISION:"_s + code;
    } else if (done) {
        operation.cells = {{code, absentValue}};
    }
    end(operation, done);
    return done ? operation.cells.front().value : QString();
}

void LoadClient::plan(LoadKind kind, const QString& scheme, const QString& based,
                      std::vector<LoadCell> cells) {
    m_planned = begin(kind, scheme);
    m_planned->based = based;
    m_planned->cells = std::move(cells);
    m_planned->audit = m_keyText + u":COMISION:"_s + scheme;
}

void LoadClient::readMoved() {
    const bool owner = m_number < m_movedSchemes;
    // Owners begin with their own scheme and look after it more than after others.
    const bool own = owner && (m_incarnation == 0 || random(1, 3) == 1);
    const int scheme = own ? m_number : random(0, m_movedSchemes - 1);
    const QString code = u"M%1"_s.arg(scheme);
    const QString value = read(code);
    DBTable& table = m_program.table();
    QStringList faults;
    if (value == absentValue) {
        if (scheme != m_number)
            return;
        makeScheme(table, nextMark(), firstDay + daysOfAnOwner * m_incarnation++, m_random);
        plan(LoadKind::Create, code, value, cellsOf(table, faults));
    } else if (const int what = random(1, 100); value.isEmpty() || what > 80) {
        return;
    } else if (what > 68) { // more than people do, so that it meets the rest
        plan(LoadKind::Delete, code, value, {{code, absentValue}});
    } else {
        changeScheme(table, nextMark(), m_random);
        plan(LoadKind::Change, code, value, cellsOf(table, faults));
    }
    m_planned->faults = faults;
}

void LoadClient::readShared() {
    const QString code = u"S%1"_s.arg(m_number % sharedSchemes + 1);
    const QString value = read(code);
    if (!value.isEmpty() && value != absentValue && random(1, 100) <= 70)
        plan(LoadKind::Change, code, value, changeShare(m_program.table(), nextMark()));
}

void LoadClient::readContested() {
    const QString code = u"N%1"_s.arg(m_contested);
    if (read(code) != absentValue) {
        ++m_contested;
        return;
    }
    QStringList faults;
    makeScheme(m_program.table(), nextMark(), firstDay, m_random);
    plan(LoadKind::Create, code, absentValue, cellsOf(m_program.table(), faults));
    m_planned->faults = faults;
}

void LoadClient::assign() {
    const QString person = u"V%1"_s.arg(random(1, salespeople));
    LoadOperation operation = begin(LoadKind::Assign, person);
    operation.cells = {{person, nextMark()}};
    bool done = true;
    try {
        Salespeople(m_program.context()).assign(operation.cells.front().value, person);
    } catch (const quorvane::RunTimeError& error) {
        // As the salesperson window tells it.
        ShowMessage(error.description(), MessageError);
        done = false;
    }
    end(operation, done);
}

void LoadClient::list() {
    LoadOperation operation = begin(LoadKind::List, {});
    std::vector<Salesperson> people;
    const Salespeople reader(m_program.context());
    if (reader.mayRead())
        reader.read(u"V"_s, people);
    for (const Salesperson& person : people)
        operation.cells.push_back({person.Codigo, person.texto});
    if (people.size() != salespeople)
        operation.faults << u"%1 salespeople"_s.arg(people.size());
    end(operation, true);
}

bool LoadClient::call(const LoadOperation& operation) {
    return operation.kind == LoadKind::Delete ? m_program.table().DBDelete()
                                              : m_program.table().DBWrite(true);
}

void LoadClient::save() {
    LoadOperation operation = *std::exchange(m_planned, {});
    DBTable& table = m_program.table();
    const QStringList before = entriesOf(table);
    operation.start = now();
    const bool done = call(operation);
    if (!done && entriesOf(table) != before)
        operation.faults << u"the entries changed with a failure"_s;
    if (!done && !table.SysRecordEnabled)
        operation.faults << u"the record is no longer loaded after a failure"_s;
    end(operation, done);
    if (done)
        return;
    const QString told = operation.messages.empty() ? QString() : operation.messages.back().text;
    const bool locked = told.contains(u"1222 - "_s) || told.contains(u"1205 - "_s);
    // A refused save stays refused until the scheme has been read anew.
    if (locked || random(1, 10) == 1) {
        m_planned = operation;
        m_planned->repeated = locked;
        m_planned->faults.clear();
        m_planned->messages.clear();
    }
}

void LoadClient::finish() {
    for (int attempt = 0; m_planned && m_planned->repeated && attempt < 20; ++attempt)
        save();
    // Entries of the audit trail that wait for a lock are stored with the next one.
    do {
        LoadOperation operation = begin(LoadKind::End, {});
        m_program.table().DBTerminate();
        operation.audit = u""_s;
        end(operation, true);
    } while (m_program.waitingAudits() > 0);
    m_history.close();
}

} // namespace dalvora::test
