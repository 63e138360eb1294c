// How often the server is asked and answers, over a link that takes 20 ms: counted, not timed.
#include "forms/vendedor/FM_Vendedor.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/grid/XGrid.h"
#include "tests/faults/ServerProgram.h"
#include <QApplication>
#include <QDir>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <algorithm>
#include <iostream>

namespace dalvora::test {

namespace {

constexpr int delay = 20; // ms

class ServerTrips : public ServerProgram {
protected:
    void SetUp() override { relay.setDelay(delay); }

    struct Count {
        int trips = 0;
        int statements = 0; ///< of any connection, without those that begin and end a transaction
    };
    Count count(const char* what, const std::function<void()>& work) {
        relay.takeQuestions();
        const int before = relay.roundTrips();
        work();
        Count counted{relay.roundTrips() - before, 0};
        for (const QByteArray& question : relay.takeQuestions())
            if (std::ranges::any_of(beginnings, [&](const char* word) { return question.contains(word); }))
                ++counted.statements;
        std::cout << "  " << what << ": " << counted.statements << " statements, " << counted.trips
                  << " round trips\n";
        return counted;
    }
    void storeLines(int lines) { SchemeStates(u"L%1"_s.arg(lines), lines).store(company, 1); }
    Count readOf(int lines) {
        program.click(u"limpiar"_s);
        const QByteArray name = "read of " + QByteArray::number(lines) + " lines";
        return count(name.constData(), [&] {
            program.read(u"L%1"_s.arg(lines));
            EXPECT_TRUE(program.table().SysRecordFound);
        });
    }

    static constexpr const char* beginnings[] = {"SELECT ", "Select ", "select ", "INSERT ",
                                                 "UPDATE ", "update ", "DELETE "};
};

} // namespace

TEST_F(ServerTrips, AReadCostsTheSameWhateverItReads) {
    relay.setDelay(0);
    storeLines(3);
    storeLines(900);
    ASSERT_TRUE(program.start());
    program.click(u"limpiar"_s);
    relay.setDelay(delay);
    const Count few = readOf(3);
    const Count many = readOf(900);
    EXPECT_EQ(few.trips, many.trips);
    // Four statements of the record, the rights, the audit entry, and the end of the reading.
    EXPECT_LE(many.trips, 7);
}

TEST_F(ServerTrips, ASaveCostsNoMoreThanItsStatementsAndThree) {
    relay.setDelay(0);
    storeLines(60);
    readC1();
    program.click(u"limpiar"_s);
    program.read(u"L60"_s);
    for (int row = 1; row <= 20; ++row)
        program.enterCell(*program.controls().XGrid, row, 6, u"%1"_s.arg(40 + row));
    relay.setDelay(delay);
    const Count save = count("save of 20 changed lines", [&] { program.click(u"grabar"_s); });
    expectSilence();
    EXPECT_GE(save.statements, 21);
    EXPECT_LE(save.trips, save.statements + 3);
}

TEST_F(ServerTrips, AssigningCostsOneForEachSalespersonAndTheListAgain) {
    relay.setDelay(0);
    company.execute(u"INSERT INTO gen_tabcod (Empresa, Tipo, Codigo, Descripcion) SELECT '001', "
                    u"'GEN_VENDEDOR', '1' || g, 'Vendedor ' || g FROM generate_series(1, 6) g"_s);
    readC1();
    program.click(u"cliente"_s);
    auto* form = qobject_cast<FM_Vendedor*>(QApplication::activeWindow());
    ASSERT_NE(form, nullptr);
    auto* view = form->controls().XGrid->findChild<QTableView*>();
    for (int row = 0; row < 5; ++row)
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualRect(view->model()->index(row, 1)).center());
    relay.setDelay(delay);
    const Count assigned = count("assigning to 5 salespeople",
                                 [&] { QTest::mouseClick(form->controls().CmdAsignar, Qt::LeftButton); });
    expectSilence();
    EXPECT_GE(assigned.statements, 6);
    EXPECT_LE(assigned.trips, assigned.statements + 3);
}

TEST_F(ServerTrips, AStartCostsTheSameWhateverTheCompanyHolds) {
    const Count small = count("start of the program", [&] { EXPECT_TRUE(program.start()); });
    relay.setDelay(0);
    company.execute(u"INSERT INTO producto (Empresa, Producto, Unidad) SELECT '001', 'X' || g, 'kg' FROM "
                    u"generate_series(1, 3000) g;"
                    u"INSERT INTO gen_tabcod (Empresa, Tipo, Codigo, Valor2) SELECT '001', 'GEN_MONEDA', 'M' "
                    u"|| g, 2 FROM "
                    u"generate_series(1, 200) g"_s);
    relay.setDelay(delay);
    ProgramFiles plain;
    ASSERT_TRUE(QFile::remove(plain.styleFile())); // one process has one look
    RunningProgram second(company.path(), plain);
    const Count large = count("start with 3000 products more", [&] { EXPECT_TRUE(second.start()); });
    EXPECT_EQ(told().style, MessageWarning);
    EXPECT_EQ(large.trips, small.trips);
    // Three connections of seven questions each, and what the session and the record want to know.
    EXPECT_LE(small.trips, 40);
}

// While the rows are on their way the heading comes over a second link, which is opened with it.
TEST_F(ServerTrips, AReportBeginsWithABoundedCountWhateverItHolds) {
    relay.setDelay(0);
    const QString folder = files.programFolder() + u"/reportes/VELTRANO"_s;
    QDir().mkpath(folder);
    ASSERT_TRUE(QFile::copy(QStringLiteral(DALVORA_SOURCE "/reportes/VELTRANO/ListaCodigos.rpt"),
                            folder + u"/ListaCodigos.rpt"_s));
    ASSERT_TRUE(program.start());
    DBTable& table = program.table();
    table.reportName = u"ListaCodigos"_s;
    relay.setDelay(delay);
    const Count few = count("report of 30 lines", [&] { EXPECT_EQ(table.CR_ProcessReport(), 0); });
    relay.setDelay(0);
    storeLines(900);
    relay.setDelay(delay);
    const Count many = count("report of 930 lines", [&] { EXPECT_EQ(table.CR_ProcessReport(), 0); });
    relay.setDelay(0);
    SchemeStates(u"L1800"_s, 1800).store(company, 1);
    relay.setDelay(delay);
    const Count more = count("report of 2700 lines", [&] { EXPECT_EQ(table.CR_ProcessReport(), 0); });
    EXPECT_LE(few.trips, 3);
    constexpr int newLink = 8;
    EXPECT_LE(many.trips, few.trips + newLink);
    EXPECT_LE(more.trips, few.trips + newLink);
    expectSilence();
}

} // namespace dalvora::test
