#include "tools/quorvane-admin/CompanyMove.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/base/SpanishText.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/SessionSql.h"
#include <QSet>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

constexpr qsizetype mostRowsAtOnce = 100;
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
    /// Which row it is, for messages.
    QString keyOf(const Recordset& row) const {
        QString words;
        for (const QString& column : key)
            words += (words.isEmpty() ? u""_s : u", "_s) + column + u' ' + readable(row.value(column));
        return words;
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

/// What was sent of a table.
struct CompanyMove::Copied {
    Rows rows;
    QStringList names; ///< of the columns, in the order in which they were sent
    RowSum sum;
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
        m_source.beginReading();
        std::vector<Copied> copied;
        for (const Rows& rows : plan(moved, also))
            copied.push_back(copy(rows));
        // A server gives up a state that nobody reads for long.
        m_source.endReading();
        for (const Copied& table : copied) {
            verify(table);
            moved.tables.push_back({table.rows.table, table.sum});
        }
        m_target.commitTrans();
    } catch (...) {
        m_target.rollbackTrans();
        m_source.endReading();
        throw;
    }
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

CompanyMove::Copied CompanyMove::copy(const Rows& rows) {
    Recordset row = m_source.openRecordset(rows.select(rows.condition) + rows.order);
    Copied copied{rows, {}, {}};
    for (int i = 0; i < row.fieldCount(); ++i)
        copied.names.append(row.fieldName(i));
    Batch batch{rows, u"INSERT INTO %1 (%2) VALUES "_s.arg(rows.table, copied.names.join(u',')), {}, {}, 0};
    for (; !row.eof(); row.moveNext()) {
        add(batch, row, copied);
        if (batch.values.size() >= mostRowsAtOnce)
            send(batch);
        if (copied.sum.rows() % progressStep == 0)
            m_progress(rows.table, copied.sum.rows());
    }
    send(batch);
    return copied;
}

void CompanyMove::add(Batch& batch, const Recordset& row, Copied& copied) {
    batch.keys.append(batch.rows.keyOf(row));
    QString values;
    for (int i = 0; i < copied.names.size(); ++i) {
        const Value value = row.value(i);
        copied.sum.addValue(value);
        const QString literal = literalOf(value);
        if (m_targetEngine != dalvora::SchemaEngine::Sqlite && literal.contains(QChar(u'\0')))
            throw RunTimeError(
                ErrorInvalidCall,
                u"El servidor no guarda textos con el carácter nulo: tabla %1 "
                "(%2), columna %3"_s.arg(batch.rows.table, batch.keys.back(), copied.names[i]));
        values += (i == 0 ? u'(' : u',') + literal;
    }
    copied.sum.endRow();
    batch.values.append(values + u')');
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

void CompanyMove::verify(const Copied& copied) {
    Rows there = copied.rows;
    there.columns = copied.names.join(u',');
    RowSum sum;
    for (Recordset row = m_target.openRecordset(there.select(there.conditionThere)); !row.eof();
         row.moveNext()) {
        for (int i = 0; i < copied.names.size(); ++i)
            sum.addValue(row.value(i));
        sum.endRow();
    }
    if (!(sum == copied.sum))
        tellDifference(copied.rows);
}

/// What arrived is not what was sent: the target's columns hold less, or other rows came in between.
void CompanyMove::tellDifference(const Rows& rows) {
    for (Recordset row = m_source.openRecordset(rows.select(rows.condition));
         !rows.key.isEmpty() && !row.eof(); row.moveNext()) {
        QStringList where;
        for (const QString& column : rows.key)
            where.append(column + u" = "_s + literalOf(row.value(column)));
        const Recordset there = m_target.openRecordset(rows.select(where.join(u" AND "_s)));
        for (int i = 0; i < row.fieldCount(); ++i) {
            const QString column = row.fieldName(i);
            if (there.eof() || !isSame(row.value(i), there.value(column)))
                throw RunTimeError(
                    ErrorTypeMismatch,
                    u"La base de datos de destino no guarda lo mismo: tabla %1 (%2), columna %3, origen %4, "
                    "destino %5. No se trasladó nada"_s.arg(
                        rows.table, rows.keyOf(row), column, readable(row.value(i)),
                        there.eof() ? u"ninguna fila"_s : readable(there.value(column))));
        }
    }
    throw RunTimeError(
        ErrorTypeMismatch,
        u"La base de datos de destino no tiene las mismas filas en la tabla %1. No se trasladó "
        "nada"_s.arg(rows.table));
}

} // namespace quorvane::admin
