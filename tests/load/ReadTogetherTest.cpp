// A scheme is read with four SELECTs; what they find belongs together whatever others save meanwhile.
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/core/Connection.h"
#include "tests/load/LoadCompany.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/Relay.h"
#include <QCoreApplication>
#include <QDir>
#include <gtest/gtest.h>

namespace {

using namespace dalvora;
using namespace dalvora::test;
using namespace Qt::StringLiterals;

class ReadTogether : public testing::TestWithParam<TestEngine> {
protected:
    void SetUp() override {
        DBTable& table = writer.table();
        ASSERT_TRUE(writer.read(u"C1"_s));
        table.setTextValue(6, u"31/12/2006"_s);
        table.setTextValue(5, u"01/01/2006"_s);
        add(table.Details(1), {{1, u"Producto"_s}, {2, u"P1"_s}, {6, u"1"_s}, {7, u"Neto"_s}});
        add(table.montos(1), {{1, u"D1"_s}, {4, u"1"_s}, {5, u"Neto"_s}});
        add(table.Precios(1), {{1, u"L1"_s}, {3, u"1"_s}, {4, u"Neto"_s}});
        save(u"1"_s);
    }

    static void add(CommissionLine& line, const std::vector<std::pair<int, QString>>& texts) {
        for (const auto& [column, text] : texts)
            ASSERT_TRUE(line.setTextValue(column, text));
    }
    /// Gives the header and every line of the writer's record the percentage and saves.
    void save(const QString& percentage) {
        DBTable& table = writer.table();
        table.setTextValue(4, percentage);
        table.Details(1).setTextValue(6, percentage);
        table.montos(1).setTextValue(4, percentage);
        table.Precios(1).setTextValue(3, percentage);
        ASSERT_TRUE(table.DBWrite(true));
    }
    void saveAnew(const QString& percentage) {
        ASSERT_TRUE(writer.read(u"C1"_s));
        save(percentage);
    }
    /// What the reader's record holds: "header product amount list".
    QString seen() {
        DBTable& table = reader.table();
        return QStringList{table.TextValue(4), table.Details(1).TextValue(6), table.montos(1).TextValue(4),
                           table.Precios(1).TextValue(3)}
            .join(u' ');
    }
    /// Lets the writer save right before the reader's statement of this number.
    void saveBeforeStatement(int number, const QString& percentage) {
        reader.connection().setStatementObserver(
            [this, number, percentage, count = 0](const QString&) mutable {
                if (++count == number)
                    saveAnew(percentage);
            });
    }
    QString stored() {
        const auto row =
            reader.connection().openRecordset(u"SELECT Porcentaje FROM Comisiones WHERE Codigo = 'C1'"_s);
        return row.value(0).toText({});
    }

    MessageRecorder recorder;
    LoadCompany company{GetParam(), 2, 1000};
    LoadProgram writer{company.profileFolder(0)};
    LoadProgram reader{company.profileFolder(1)};
};

TEST_P(ReadTogether, ASaveInTheMiddleOfAReadIsSeenWholeOrNotAtAll) {
    for (int number = 2; number <= 4; ++number) {
        ASSERT_TRUE(reader.read(u"C1"_s));
        const QString before = seen();
        saveBeforeStatement(number, QString::number(number));
        ASSERT_TRUE(reader.read(u"C1"_s));
        EXPECT_EQ(seen(), before) << "a save before statement " << number;
        reader.connection().setStatementObserver({});
        ASSERT_TRUE(reader.read(u"C1"_s));
        EXPECT_EQ(seen(), u"%1 %1,00 %1,00 %1,00"_s.arg(number)) << "the next read shows the new state";
    }
}

TEST_P(ReadTogether, ADeletionInTheMiddleOfAReadIsSeenByTheNextRead) {
    reader.connection().setStatementObserver([this, count = 0](const QString&) mutable {
        if (++count != 2)
            return;
        ASSERT_TRUE(writer.read(u"C1"_s));
        ASSERT_TRUE(writer.table().DBDelete());
    });
    ASSERT_TRUE(reader.read(u"C1"_s));
    EXPECT_EQ(seen(), u"1 1,00 1,00 1,00"_s);
    ASSERT_TRUE(reader.read(u"C1"_s));
    EXPECT_FALSE(reader.table().SysRecordFound);
}

TEST_P(ReadTogether, AReadKeepsNobodyFromSaving) {
    reader.connection().setStatementObserver([this](const QString&) { saveAnew(u"7"_s); });
    ASSERT_TRUE(reader.read(u"C1"_s));
    EXPECT_TRUE(recorder.take().empty());
}

TEST_P(ReadTogether, AfterAReadThatFoundNothingTheEventLoopEndsWhatBelongsTogether) {
    ASSERT_TRUE(reader.read(u"C2"_s));
    saveAnew(u"5"_s);
    EXPECT_EQ(stored(), u"1"_s) << "still the same command";
    QCoreApplication::processEvents();
    EXPECT_EQ(stored(), u"5"_s);
}

TEST_P(ReadTogether, AskingForTheRightsAloneLeavesNothingOpen) {
    EXPECT_EQ(reader.session().AccessRights(), u"RWXD"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(stored(), u"1"_s);
    saveAnew(u"5"_s);
    EXPECT_EQ(stored(), u"5"_s);
}

TEST_P(ReadTogether, AWriteEndsWhatBelongsTogether) {
    ASSERT_TRUE(reader.read(u"C2"_s));
    saveAnew(u"5"_s);
    EXPECT_EQ(reader.connection().execute(u"UPDATE Comisiones SET Acumulable = 'S' WHERE Codigo = 'C1'"_s),
              1);
    EXPECT_EQ(stored(), u"5"_s);
    reader.connection().beginReading();
    EXPECT_EQ(stored(), u"5"_s);
    saveAnew(u"6"_s);
    reader.connection().beginTrans();
    EXPECT_EQ(stored(), u"6"_s);
    reader.connection().rollbackTrans();
}

TEST_P(ReadTogether, AFailedStatementEndsItAndTheNextOneWorks) {
    reader.connection().beginReading();
    EXPECT_THROW(reader.connection().openRecordset(u"SELECT Nada FROM Comisiones"_s), quorvane::RunTimeError);
    EXPECT_EQ(stored(), u"1"_s);
    reader.connection().beginReading();
    EXPECT_EQ(stored(), u"1"_s);
    EXPECT_THROW(reader.connection().openRecordset(u"SELECT Nada FROM Comisiones"_s), quorvane::RunTimeError);
    saveAnew(u"5"_s);
    EXPECT_EQ(stored(), u"5"_s);
    ASSERT_TRUE(reader.read(u"C1"_s));
    EXPECT_EQ(seen(), u"5 5,00 5,00 5,00"_s);
}

TEST_P(ReadTogether, AListThatStaysOpenKeepsItsRowsAndNothingElse) {
    reader.connection().beginReading();
    auto list = reader.connection().openRecordset(u"SELECT Producto FROM producto ORDER BY Producto"_s);
    QCoreApplication::processEvents();
    int rows = 0;
    for (; !list.eof(); list.moveNext())
        ++rows;
    EXPECT_EQ(rows, codesOfAKind);
    saveAnew(u"5"_s);
    EXPECT_EQ(stored(), u"5"_s) << "its last row ended it";
}

INSTANTIATE_TEST_SUITE_P(Engines, ReadTogether, testing::ValuesIn(allEngines), engineName);

TEST(ReadTogetherOnAServer, ALinkThatBreaksInTheMiddleIsToldAndTheNextReadWorks) {
    MessageRecorder recorder;
    const LoadCompany company(TestEngine::PostgreSql, 1, 1000);
    Relay relay(TestDatabase::cluster().host());
    auto options = quorvane::ConnectString::parse(company.database().connectString());
    options.setValue(u"host"_s, relay.host());
    LoadProgram program(company.profileFolder(0));
    program.connection().open(options.toString());
    company.database().run(u"INSERT INTO Comisiones (Empresa, Codigo) VALUES ('001', 'C1')"_s);
    const int earlier = relay.roundTrips();
    ASSERT_TRUE(program.read(u"C1"_s));
    EXPECT_EQ(relay.roundTrips() - earlier, 5) << "four statements and the end";
    relay.cutAfter("tipo= 'Monto'");
    EXPECT_FALSE(program.read(u"C1"_s));
    EXPECT_EQ(recorder.take().size(), 1U);
    EXPECT_TRUE(program.read(u"C1"_s));
    EXPECT_TRUE(program.table().SysRecordFound);
    EXPECT_TRUE(recorder.take().empty());
}

} // namespace
