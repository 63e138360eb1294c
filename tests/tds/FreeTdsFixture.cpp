#include "tests/tds/FreeTdsFixture.h"

#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include <QSqlResult>
#include <QUuid>
#include <array>
#include <sql.h>
#include <sqlext.h>

namespace dalvora::test::tds {

namespace {

SQLHANDLE handleOf(const QSqlQuery& query) {
    return *static_cast<void* const*>(query.result()->handle().constData());
}

} // namespace

Client::Client(const QString& options)
    : m_name(QUuid::createUuid().toString()), m_database(QSqlDatabase::addDatabase(u"QODBC"_s, m_name)) {
    m_database.setDatabaseName(options);
}

Client::~Client() {
    m_database.close();
    m_database = {};
    QSqlDatabase::removeDatabase(m_name);
}

QSqlQuery Client::run(const QString& sql) {
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    query.exec(sql);
    return query;
}

QList<int> Client::errorsOf(const QString& sql) {
    const QSqlQuery query = run(sql);
    QList<int> numbers;
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 1024> text{};
    SQLINTEGER number = 0;
    SQLSMALLINT length = 0;
    while (SQL_SUCCEEDED(SQLGetDiagRecW(SQL_HANDLE_STMT, handleOf(query),
                                        static_cast<SQLSMALLINT>(numbers.size() + 1), state.data(), &number,
                                        text.data(), text.size(), &length)))
        numbers += number;
    return numbers;
}

int Client::errorOf(const QString& sql) {
    return errorsOf(sql).value(0);
}

QVariant Client::one(const QString& sql) {
    QSqlQuery query = run(sql);
    return query.next() ? query.value(0) : QVariant();
}

QString textOf(const QSqlQuery& query, int column) {
    QString text;
    std::array<SQLWCHAR, 1024> piece{};
    SQLLEN length = 0;
    SQLRETURN result = SQL_SUCCESS_WITH_INFO;
    while (result == SQL_SUCCESS_WITH_INFO) {
        result = SQLGetData(handleOf(query), static_cast<SQLUSMALLINT>(column + 1), SQL_C_WCHAR, piece.data(),
                            piece.size() * sizeof(SQLWCHAR), &length);
        if (SQL_SUCCEEDED(result) && length != SQL_NULL_DATA)
            text += QString::fromUtf16(reinterpret_cast<const char16_t*>(piece.data()));
    }
    return text;
}

FreeTdsFixture::FreeTdsFixture() {
    const QString path = folder.filePath(u"empresa.db"_s);
    const auto database = quorvane::sqlite::open(path, quorvane::sqlite::Access::Create, 1000);
    quorvane::sqlite::run(
        database.get(),
        "PRAGMA journal_mode = WAL;"
        "CREATE TABLE t (Codigo varchar(20) COLLATE ERP_ES PRIMARY KEY, Valor decimal(18, 6), Medida float,"
        " Fecha date, Momento datetime, Veces int, Muchas bigint, Marca bit, Ancho nvarchar(40), Largo "
        "text)");
    server.addDatabase(u"empresa"_s, path);
    server.addLogin(u"ana"_s, u"clave ñ€"_s);
}

QString FreeTdsFixture::options(const QString& user, const QString& password, const QString& name) const {
    return u"DRIVER=%1;SERVER=127.0.0.1;PORT=%2;UID=%3;PWD=%4;DATABASE=%5;TDS_Version=7.4;ClientCharset=UTF-8"_s
        .arg(QStringLiteral(FREETDS_DRIVER))
        .arg(server.port())
        .arg(user, password, name);
}

} // namespace dalvora::test::tds
