#include "tools/quorvane-admin/CompanyMove.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/base/SpanishText.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/SessionSql.h"
#include <QSet>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

constexpr std::size_t mostRowsAtOnce = 100;
constexpr qint64 progressStep = 50000;

const QString auditColumns = u"Momento, Usuario, Empresa, Programa, Codigo, Texto, Equipo"_s;

qint64 numberOf(Connection& connection, const QString& sql) {
    return static_cast<qint64>(connection.openRecordset(sql).value(0).toNumber({}));
}

QStringList textsOf(Connection& connection, const QString& sql) {
    QStringList texts;
    for (Recordset row = connection.openRecordset(sql); !row.eof(); row.moveNext())
        texts.append(row.value(0).toText({}));
    return texts;
}

} // namespace

/// The rows of a table that belong to the company.
struct CompanyMove::Rows {
    QString table;
    QString columns;
    QString condition;      ///< at the source
    QString conditionThere; ///< what finds them at the target
    QString order;
    QStringList key; ///< of the table; empty when its rows have none of their own

    QString select(const QString& where) const {
        return u"SELECT %1 FROM %2 WHERE %3"_s.arg(columns, table, where);
    }
};

/// Rows on their way, with the words that tell which they are.
struct CompanyMove::Batch {
    const Rows& rows;
    QString insert;
    QStringList values;
    QStringList keys;
    qint64 sent = 0;
};

CompanyMove::CompanyMove(Connection& source, Connection& target, Progress progress)
    : m_source(source)
    , m_target(target)
    , m_progress(std::move(progress))
    , m_sourceEngine(dalvora::schemaEngineOf(source))
    , m_targetEngine(dalvora::schemaEngineOf(target)) {}

MovedCompany CompanyMove::run(const QString& company, Also also) {
    MovedCompany moved;
    const QStringList found =
        textsOf(m_source, u"SELECT Empresa FROM ses_empresa WHERE Empresa = "_s + sqlText(company));
    if (found.isEmpty())
        throw RunTimeError(ErrorItemNotFound,
                           u"La empresa «%1» no existe en la base de datos de origen"_s.arg(company));
    moved.code = found.front();
    m_target.beginTrans();
    try {
        requireNew(moved.code);
        beginReading();
        for (const Rows& rows : plan(moved, also))
            moved.tables.push_back(move(rows));
        m_target.commitTrans();
    } catch (...) {
        m_target.rollbackTrans();
        m_source.rollbackTrans();
        throw;
    }
    m_source.rollbackTrans();
    return moved;
}

void CompanyMove::requireNew(const QString& code) {
    dalvora::SchemaLayout layout = dalvora::readLayout(dalvora::erpTables(m_targetEngine));
    QStringList tables{u"ses_empresa"_s};
    for (const dalvora::TableLayout& table : layout.tables)
        tables.append(table.name);
    for (const QString& table : tables) {
        const qint64 rows =
            numberOf(m_target, u"SELECT count(*) FROM %1 WHERE Empresa = %2"_s.arg(table, sqlText(code)));
        if (rows > 0)
            throw RunTimeError(
                ErrorFileExists,
                u"La empresa «%1» ya está en la base de datos de destino (%2 filas en %3): no se "
                "trasladó nada"_s.arg(code, QString::number(rows), table));
    }
}

void CompanyMove::beginReading() {
    try {
        m_source.beginTrans();
    } catch (const RunTimeError& error) {
        // An archive that cannot be written needs no lock.
        if (error.number() != ErrorPermissionDenied)
            throw;
        return;
    }
    // The embedded database's transaction keeps writers out; a server gives one state for all tables.
    if (m_sourceEngine == dalvora::SchemaEngine::PostgreSql)
        m_source.execute(u"SET TRANSACTION ISOLATION LEVEL REPEATABLE READ"_s);
}

std::vector<CompanyMove::Rows> CompanyMove::plan(MovedCompany& moved, Also also) {
    std::vector<Rows> rows;
    const QString mine = u"Empresa = "_s + sqlText(moved.code);
    rows.push_back({u"ses_empresa"_s, u"*"_s, mine, mine, {}, {u"Empresa"_s}});
    for (const dalvora::TableLayout& table : dalvora::readLayout(dalvora::erpTables(m_sourceEngine)).tables)
        rows.push_back({table.name, u"*"_s, mine, mine, {}, table.key});
    if (also.users) {
        const QString list = u"SELECT Usuario FROM ses_usuario ORDER BY Usuario"_s;
        QSet<QString> there;
        for (const QString& user : textsOf(m_target, list))
            there.insert(foldText(user));
        QStringList missing;
        for (const QString& user : textsOf(m_source, list))
            (there.contains(foldText(user)) ? moved.usersThere : missing).append(user);
        rows.push_back(usersMissingThere(u"ses_usuario"_s, missing));
        rows.push_back(usersMissingThere(u"ses_derecho"_s, missing));
    }
    if (also.audit) {
        const qint64 last = numberOf(m_target, u"SELECT isnull(max(Id), 0) FROM ses_auditoria"_s);
        rows.push_back({u"ses_auditoria"_s,
                        auditColumns,
                        mine,
                        mine + u" AND Id > %1"_s.arg(last),
                        u" ORDER BY Id"_s,
                        {}});
    }
    return rows;
}

CompanyMove::Rows CompanyMove::usersMissingThere(const QString& table, const QStringList& codes) const {
    QString condition = u"1 = 0"_s;
    if (!codes.isEmpty()) {
        QStringList literals;
        for (const QString& code : codes)
            literals.append(sqlText(code));
        condition = u"Usuario IN (%1)"_s.arg(literals.join(u','));
    }
    for (const dalvora::TableLayout& layout :
         dalvora::readLayout(dalvora::sessionTables(m_sourceEngine)).tables)
        if (layout.name == table)
            return {table, u"*"_s, condition, condition, {}, layout.key};
    return {table, u"*"_s, condition, condition, {}, {}};
}

MovedTable CompanyMove::move(const Rows& rows) {
    MovedTable moved{rows.table, {}};
    Recordset row = m_source.openRecordset(rows.select(rows.condition) + rows.order);
    QStringList names;
    std::vector<int> key;
    for (int i = 0; i < row.fieldCount(); ++i)
        names.append(row.fieldName(i));
    for (const QString& column : rows.key)
        key.push_back(row.ordinal(column));
    Batch batch{rows, u"INSERT INTO %1 (%2) VALUES "_s.arg(rows.table, names.join(u',')), {}, {}, 0};
    for (; !row.eof(); row.moveNext()) {
        QString words;
        for (std::size_t i = 0; i < key.size(); ++i)
            words += (i == 0 ? u""_s : u", "_s) + rows.key[static_cast<qsizetype>(i)] + u' ' +
                     readable(row.value(key[i]));
        QString values;
        for (int i = 0; i < names.size(); ++i) {
            const Value value = row.value(i);
            moved.sum.addValue(value);
            const QString literal = literalOf(value);
            if (m_targetEngine != dalvora::SchemaEngine::Sqlite && literal.contains(QChar(u'\0')))
                throw RunTimeError(
                    ErrorInvalidCall,
                    u"El servidor no guarda textos con el carácter nulo: tabla %1 (%2), columna "
                    "%3"_s.arg(rows.table, words, names[i]));
            values += (i == 0 ? u'(' : u',') + literal;
        }
        moved.sum.endRow();
        batch.values.append(values + u')');
        batch.keys.append(words);
        if (batch.values.size() >= static_cast<qsizetype>(mostRowsAtOnce))
            send(batch);
        if (moved.sum.rows() % progressStep == 0)
            m_progress(rows.table, moved.sum.rows());
    }
    send(batch);
    if (!(sumThere(rows) == moved.sum))
        tellDifference(rows);
    return moved;
}

void CompanyMove::send(Batch& batch) {
    if (batch.values.isEmpty())
        return;
    try {
        m_target.execute(batch.insert + batch.values.join(u','));
    } catch (const RunTimeError& error) {
        if (error.number() == ErrorConnectionLost)
            throw;
        tellRow(batch, error.description(), error.number());
    }
    batch.sent += batch.values.size();
    batch.values.clear();
    batch.keys.clear();
}

/// The statement held many rows: sends them one by one until the one that is refused. Nothing of it stays.
void CompanyMove::tellRow(const Batch& batch, const QString& why, int number) {
    m_target.rollbackTrans();
    QString where = u"entre las filas %1 y %2"_s.arg(batch.sent + 1).arg(batch.sent + batch.values.size());
    m_target.beginTrans();
    qsizetype i = 0;
    try {
        for (; i < batch.values.size(); ++i)
            m_target.execute(batch.insert + batch.values[i]);
    } catch (const RunTimeError&) {
        if (!batch.keys[i].isEmpty())
            where = batch.keys[i];
    }
    throw RunTimeError(number, u"%1: tabla %2, %3. No se trasladó nada"_s.arg(why, batch.rows.table, where));
}

RowSum CompanyMove::sumThere(const Rows& rows) {
    RowSum sum;
    // The columns in the source's order, which the target's need not have.
    const Recordset shape = m_source.openRecordset(rows.select(u"1 = 0"_s));
    QStringList names;
    for (int i = 0; i < shape.fieldCount(); ++i)
        names.append(shape.fieldName(i));
    Rows there = rows;
    there.columns = names.join(u',');
    for (Recordset row = m_target.openRecordset(there.select(rows.conditionThere)); !row.eof();
         row.moveNext()) {
        for (int i = 0; i < names.size(); ++i)
            sum.addValue(row.value(i));
        sum.endRow();
    }
    return sum;
}

/// What arrived is not what was sent: the target's columns hold less, or other rows came in between.
void CompanyMove::tellDifference(const Rows& rows) {
    for (Recordset row = m_source.openRecordset(rows.select(rows.condition));
         !rows.key.isEmpty() && !row.eof(); row.moveNext()) {
        QString where;
        QString words;
        for (const QString& column : rows.key) {
            where +=
                (where.isEmpty() ? u""_s : u" AND "_s) + column + u" = "_s + literalOf(row.value(column));
            words += (words.isEmpty() ? u""_s : u", "_s) + column + u' ' + readable(row.value(column));
        }
        const Recordset there = m_target.openRecordset(rows.select(where));
        for (int i = 0; i < row.fieldCount(); ++i) {
            const QString column = row.fieldName(i);
            if (there.eof() || !isSame(row.value(i), there.value(column)))
                throw RunTimeError(
                    ErrorTypeMismatch,
                    u"La base de datos de destino no guarda lo mismo: tabla %1 (%2), columna %3, origen %4, "
                    "destino %5. No se trasladó nada"_s.arg(rows.table, words, column, readable(row.value(i)),
                                                            there.eof() ? u"ninguna fila"_s
                                                                        : readable(there.value(column))));
        }
    }
    throw RunTimeError(
        ErrorTypeMismatch,
        u"La base de datos de destino no tiene las mismas filas en la tabla %1. No se trasladó "
        "nada"_s.arg(rows.table));
}

} // namespace quorvane::admin
