#pragma once

#include "data/DBTable.h"
#include "tests/support/FailEngine.h"
#include "tests/support/FakeEngine.h"
#include "tests/support/FakeSession.h"
#include "tests/support/MessageRecorder.h"
#include <gtest/gtest.h>

namespace dalvora::test {

using namespace Qt::StringLiterals;
using quorvane::Date;
using quorvane::Decimal;
using quorvane::RunTimeError;
using quorvane::Value;

/// A record of company 01 on a made-up database, its messages recorded.
class RecordTest : public testing::Test {
protected:
    RecordTest() {
        connection.open(u"fake"_s);
        table.SysEmpresa = u"01"_s;
        table.carga_inicio();
    }

    /// What has been told since the last call must be this.
    void expectTold(const std::vector<Message>& expected) { EXPECT_EQ(recorder.take(), expected); }
    void expectSilence() { EXPECT_EQ(recorder.take(), std::vector<Message>()); }
    /// What has reached the database since the last call must be this.
    void expectCalls(const std::vector<QString>& expected) { EXPECT_EQ(database.take(), expected); }

    /// Makes the database hold one header: code C1 of 01/01/2006 to 31/12/2006.
    void storeHeader(double percentage = 10, const QString& accumulates = u"S"_s) {
        database.answer(u"FROM Comisiones "_s,
                        {u"Empresa"_s, u"Codigo"_s, u"Descripcion"_s, u"FechaInicio"_s, u"FechaFinal"_s,
                         u"Porcentaje"_s, u"Acumulable"_s},
                        {{u"01"_s, u"C1"_s, u"Esquema"_s, Date::fromYmd(2006, 1, 1),
                          Date::fromYmd(2006, 12, 31), Decimal::fromDouble(percentage), accumulates}});
    }
    /// Rows of one kind: concept, description, bracket, percentage, sub-kind, calculation.
    void storeLines(const QString& tipo, std::vector<Row> rows) {
        database.answer(u"tipo= '"_s + tipo + u'\'',
                        {u"CONCEPTO"_s, u"Descripcion"_s, u"CantidadInicio"_s, u"CantidadFinal"_s,
                         u"Porcentaje"_s, u"SubTipo"_s, u"Calculo"_s},
                        std::move(rows));
    }
    static Row lineRow(const QString& concept_, const QString& text, double start, double end,
                       double percentage, const QString& subKind = {}) {
        return {concept_,
                text,
                Decimal::fromDouble(start),
                Decimal::fromDouble(end),
                Decimal::fromDouble(percentage),
                subKind,
                u"Neto"_s};
    }
    /// Reads code C1 as the form does and forgets what the database was asked for it.
    void readStored() {
        table.setTextValue(2, u"C1"_s);
        ASSERT_TRUE(table.DBRead());
        table.SaveDates();
        database.take();
        session.audits.clear();
        expectSilence();
    }

    MessageRecorder recorder;
    FakeDatabase database;
    FailPlan plan;
    FakeSession session;
    quorvane::RegionalSettings regional;
    quorvane::Connection connection{[this](const QString&) {
        return std::make_unique<FailEngine>(std::make_unique<FakeEngine>(database), plan);
    }};
    DBTable table{connection, session, regional};
};

} // namespace dalvora::test
