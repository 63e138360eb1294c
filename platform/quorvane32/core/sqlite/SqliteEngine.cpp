#include "platform/quorvane32/core/sqlite/SqliteEngine.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/sqlite/SqliteCursor.h"
#include <sqlite3.h>

namespace quorvane::sqlite {

namespace {

constexpr std::size_t mostCompiled = 32;

QString columnText(sqlite3_stmt* statement, int column) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
}

/// Reads which columns are dates.
DateColumns readDateColumns(sqlite3* database) {
    DateColumns columns;
    const Statement statement =
        prepare(database, "SELECT t.name, c.name, c.type FROM sqlite_master t, "
                          "pragma_table_info(t.name) c WHERE t.type IN ('table', 'view')");
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(statement.get())) == SQLITE_ROW) {
        const auto* type = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 2));
        columns.add(columnText(statement.get(), 0), columnText(statement.get(), 1), declaresDate(type));
    }
    if (result != SQLITE_DONE)
        raiseLastError(database);
    return columns;
}

/// Error 3705 unless the statement takes just the values at hand: one that nobody filled in ("?", $Codigo$)
/// would leave an empty value or move all values by one place.
void requireFilled(sqlite3_stmt* statement, std::size_t values) {
    const int expected = sqlite3_bind_parameter_count(statement);
    if (expected == static_cast<int>(values))
        return;
    // The dialect's own parameters have no name.
    const char* name = nullptr;
    for (int i = 1; i <= expected && !name; ++i)
        name = sqlite3_bind_parameter_name(statement, i);
    throw RunTimeError(ErrorRefusedStatement,
                       QStringLiteral("La instrucción tiene un parámetro sin valor: %1")
                           .arg(QString::fromUtf8(name ? name : "?")));
}

} // namespace

SqliteEngine::SqliteEngine(const QString& path, int timeout)
    : m_database(open(path, Access::ReadWrite, timeout)) {
    // The first look into the file, where one that is no database is told.
    run(m_database.get(), "PRAGMA schema_version");
}

SqliteEngine::~SqliteEngine() {
    // A result still open keeps the file open as well: an unfinished transaction shall not live on with it.
    if (!sqlite3_get_autocommit(m_database.get()))
        sqlite3_exec(m_database.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

SqliteDialect& SqliteEngine::dialect() {
    if (!m_dialect)
        m_dialect.emplace(readDateColumns(m_database.get()));
    return *m_dialect;
}

void SqliteEngine::useWriteAheadLog() {
    // A file that cannot be written stays as it is: the statement that follows tells why.
    if (!m_writesAhead)
        m_writesAhead = sqlite3_exec(m_database.get(), "PRAGMA journal_mode = WAL", nullptr, nullptr,
                                     nullptr) == SQLITE_OK;
}

void SqliteEngine::requireItsFile() {
    if (!sqlite3_get_autocommit(m_database.get()))
        return; // one look for a whole transaction
    int moved = 0;
    sqlite3_file_control(m_database.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    if (moved != 0)
        throw RunTimeError(
            ErrorConnectionLost,
            QStringLiteral("El archivo de la base de datos fue borrado o reemplazado mientras se trabajaba"));
}

std::unique_ptr<Cursor> SqliteEngine::select(const QString& sql) {
    requireItsFile();
    const SqliteDialect::Query query = dialect().adaptQuery(sql);
    Statement statement = prepare(m_database.get(), query.sql);
    if (!sqlite3_stmt_readonly(statement.get()))
        throw RunTimeError(ErrorRefusedStatement, QStringLiteral("Una consulta no puede guardar datos"));
    requireFilled(statement.get(), query.parameters.size());
    for (std::size_t i = 0; i < query.parameters.size(); ++i)
        bind(statement.get(), static_cast<int>(i) + 1, query.parameters[i]);
    return std::make_unique<SqliteCursor>(m_database, std::move(statement));
}

SqliteEngine::Compiled& SqliteEngine::compiled(const QString& sql, const QString& shape) {
    for (auto it = m_compiled.begin(); it != m_compiled.end(); ++it) {
        if (it->shape != shape)
            continue;
        m_compiled.splice(m_compiled.begin(), m_compiled, it);
        return m_compiled.front();
    }
    Statement statement = prepare(m_database.get(), dialect().adaptShape(shape));
    if (m_compiled.size() >= mostCompiled)
        m_compiled.pop_back();
    m_compiled.push_front({shape, dialect().dateLiterals(sql), std::move(statement)});
    return m_compiled.front();
}

qint64 SqliteEngine::execute(const QString& sql) {
    requireItsFile();
    const SqliteDialect::Command command = dialect().split(sql);
    if (!command.bound) {
        const Statement statement = prepare(m_database.get(), dialect().adaptShape(command.shape));
        requireFilled(statement.get(), 0);
        runToEnd(statement.get());
        return 0;
    }
    useWriteAheadLog();
    Compiled& entry = compiled(sql, command.shape);
    requireFilled(entry.statement.get(), command.literals.size());
    for (std::size_t i = 0; i < command.literals.size(); ++i)
        bind(entry.statement.get(), static_cast<int>(i) + 1,
             SqliteDialect::parameter(sql, command.literals[i], entry.dates[i]));
    runToEnd(entry.statement.get());
    // The engine counts for commands only: behind a definition or a query its number is an older one.
    return sqlite3_stmt_readonly(entry.statement.get()) ? 0 : sqlite3_changes64(m_database.get());
}

void SqliteEngine::bind(sqlite3_stmt* statement, int position, const Parameter& parameter) {
    int result = SQLITE_OK;
    if (const auto* whole = std::get_if<qint64>(&parameter))
        result = sqlite3_bind_int64(statement, position, *whole);
    else if (const auto* number = std::get_if<double>(&parameter))
        result = sqlite3_bind_double(statement, position, *number);
    else if (const auto* text = std::get_if<QByteArray>(&parameter))
        result = sqlite3_bind_text(statement, position, text->constData(), static_cast<int>(text->size()),
                                   SQLITE_TRANSIENT);
    if (result != SQLITE_OK)
        raiseLastError(m_database.get());
}

void SqliteEngine::runToEnd(sqlite3_stmt* statement) {
    int result = SQLITE_ROW;
    while (result == SQLITE_ROW)
        result = sqlite3_step(statement);
    if (result != SQLITE_DONE) {
        sqlite3_reset(statement);
        raiseLastError(m_database.get());
    }
    sqlite3_reset(statement);
}

void SqliteEngine::beginReading() {
    requireItsFile();
    run(m_database.get(), "BEGIN");
}

void SqliteEngine::endReading() {
    if (!sqlite3_get_autocommit(m_database.get()))
        run(m_database.get(), "COMMIT");
}

void SqliteEngine::begin() {
    requireItsFile();
    useWriteAheadLog();
    run(m_database.get(), "BEGIN IMMEDIATE");
}

void SqliteEngine::commit() {
    // A full disk or a failed write may have ended the transaction already.
    if (sqlite3_get_autocommit(m_database.get()))
        throw RunTimeError(ErrorConnectionLost, QStringLiteral("La base de datos deshizo la transacción"));
    run(m_database.get(), "COMMIT");
}

void SqliteEngine::rollback() {
    if (!sqlite3_get_autocommit(m_database.get()))
        run(m_database.get(), "ROLLBACK");
}

std::unique_ptr<Engine> openSqlite(const ConnectString& options) {
    constexpr int usualTimeout = 5000;
    auto engine = std::make_unique<SqliteEngine>(options.value(QStringLiteral("database")),
                                                 options.number(QStringLiteral("timeout"), usualTimeout));
    if (options.value(QStringLiteral("synchronous")).compare(u"normal", Qt::CaseInsensitive) == 0)
        engine->execute(QStringLiteral("PRAGMA synchronous = NORMAL"));
    if (options.value(QStringLiteral("readonly")).compare(u"s", Qt::CaseInsensitive) == 0)
        engine->execute(QStringLiteral("PRAGMA query_only = ON"));
    return engine;
}

} // namespace quorvane::sqlite
