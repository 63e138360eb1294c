#pragma once

#include "data/DBTable.h"
#include "tests/support/FailEngine.h"
#include "tests/support/FakeSession.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestDatabase.h"
#include <gtest/gtest.h>

namespace dalvora::test {

using namespace Qt::StringLiterals;
using quorvane::Date;
using quorvane::Recordset;
using quorvane::RunTimeError;

/// A program at work on a database: its own connection, session and record.
struct Program {
    explicit Program(const TestDatabase& database, int timeout = 5000)
        : Program(database.connectString(timeout)) {}
    explicit Program(const QString& connectString) {
        connection.open(connectString);
        table.SysEmpresa = session.company;
        table.SysDecimales = 3;
        table.carga_inicio();
    }

    /// What the main form does when a key is entered: reads, keeps the dates, gives each grid a line.
    bool read(const QString& code, const QString& start = {}, const QString& end = {}) {
        table.DBClear();
        table.carga_inicio();
        table.ClearDates();
        table.setTextValue(2, code);
        table.setTextValue(5, start);
        table.setTextValue(6, end);
        if (!table.DBRead())
            return false;
        table.SaveDates();
        if (!table.SysRecordFound)
            table.carga_inicio();
        return true;
    }
    /// Reads a new code of the year 2006 and gives it a description.
    void begin(const QString& code) {
        ASSERT_TRUE(read(code, u"01/01/2006"_s, u"31/12/2006"_s));
        ASSERT_FALSE(table.SysRecordFound);
        table.setTextValue(3, u"Esquema "_s + code);
        table.setTextValue(4, u"10"_s);
        table.Acumulable = u"S"_s;
    }
    DBDetail& addDetail(const QString& code, double start = 0, double end = 10, double percentage = 5) {
        DBDetail& line = table.DetailsAdd(table.DetailsCount());
        static_cast<DetailValues&>(line) = {u"Producto"_s, code,       u"Texto "_s + code, start,
                                            end,           percentage, u"Neto"_s};
        return line;
    }
    DBMonto& addMonto(const QString& code, double start = 0, double end = 10, double percentage = 5) {
        DBMonto& line = table.MontosAdd(table.MontosCount());
        static_cast<MontoValues&>(line) = {code, start, end, percentage, u"Total"_s};
        return line;
    }
    DBPrecio& addPrecio(const QString& code, double percentage = 5) {
        DBPrecio& line = table.PreciosAdd(table.PreciosCount());
        static_cast<PrecioValues&>(line) = {code, u"Lista "_s + code, percentage, u"Neto"_s};
        return line;
    }

    FailPlan plan;
    FakeSession session;
    quorvane::RegionalSettings regional;
    quorvane::Connection connection{[this](const QString& connectString) {
        return std::make_unique<FailEngine>(quorvane::openEngine(connectString), plan);
    }};
    DBTable table{connection, session, regional};
};

/// Programs on one empty database of each engine, their messages recorded.
class StoredTest : public testing::TestWithParam<TestEngine> {
protected:
    void expectTold(const std::vector<Message>& expected) { EXPECT_EQ(recorder.take(), expected); }
    void expectSilence() { EXPECT_EQ(recorder.take(), std::vector<Message>()); }

    /// Every row of the two tables, each as one text, sorted: what is stored.
    QStringList stored() { return stored(database); }
    static QStringList stored(const TestDatabase& database) {
        quorvane::Connection connection;
        connection.open(database.connectString());
        QStringList rows;
        for (const QString& name : {u"Comisiones"_s, u"ComisionesD"_s}) {
            Recordset row = connection.openRecordset(u"select * from "_s + name);
            for (; !row.eof(); row.moveNext()) {
                QStringList fields;
                for (int i = 0; i < row.fieldCount(); ++i)
                    fields += row.value(i).toText({});
                rows += name + u'|' + fields.join(u'|');
            }
        }
        rows.sort();
        return rows;
    }
    int countStored(const QString& table, const QString& condition) {
        quorvane::Connection connection;
        connection.open(database.connectString());
        Recordset row =
            connection.openRecordset(u"select count(*) from "_s + table + u" where "_s + condition);
        return *row.value(0).get<qint32>();
    }

    MessageRecorder recorder;
    TestDatabase database{GetParam()};
};

} // namespace dalvora::test
