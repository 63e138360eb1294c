#include "platform/quorvane32/session/AuditTrail.h"
#include "tests/tools/AdminSupport.h"
#include "tools/quorvane-admin/CsvText.h"

namespace {

using namespace quorvane;
using namespace quorvane::admin;
using namespace quorvane::admin::test;

class AuditOrders : public EveryEngine {
protected:
    void SetUp() override {
        Connection connection;
        connection.open(desk.database.connectString());
        AuditTrail trail(connection);
        for (int day = 1; day <= 60; ++day)
            trail.add({QDate(2026, 1, 1).addDays(day - 1).toString(Qt::ISODate) + u" 10:00:00.000"_s,
                       day % 2 == 0 ? u"ana"_s : u"luis"_s, u"001"_s, u"VELTRANO"_s, 7,
                       u"COMISION:%1"_s.arg(day), u"PC-1"_s});
        ASSERT_TRUE(trail.store());
    }
    qsizetype lines() const { return desk.out.count(u'\n'); }
};

TEST_P(AuditOrders, FiftyEntriesAreShownUnlessAnotherNumberIsGiven) {
    ASSERT_EQ(desk.run(u"auditoria"_s), ExitSuccess);
    EXPECT_EQ(lines(), 50);
    EXPECT_TRUE(desk.out.startsWith(u"2026-01-11"));
    ASSERT_EQ(desk.run(u"auditoria 2"_s), ExitSuccess);
    EXPECT_EQ(desk.out,
              u"2026-02-28 10:00:00.000  luis                 001   VELTRANO          7  COMISION:59\n"
              "2026-03-01 10:00:00.000  ana                  001   VELTRANO          7  COMISION:60\n"_s);
}

TEST_P(AuditOrders, UserCompanyProgramAndDaysNarrowTheTrail) {
    ASSERT_EQ(desk.run(u"auditoria --usuario ANA --desde 31/1/2026 --hasta 05/02/2026"_s), ExitSuccess);
    EXPECT_EQ(lines(), 3) << qPrintable(desk.out);
    ASSERT_EQ(desk.run(u"auditoria --empresa 002"_s), ExitSuccess);
    EXPECT_EQ(desk.out, QString());
    ASSERT_EQ(desk.run(u"auditoria 5 --programa veltrano --empresa 001"_s), ExitSuccess);
    EXPECT_EQ(lines(), 5);
}

TEST_P(AuditOrders, CommaSeparatedValuesHoldEverythingAndAHeading) {
    ASSERT_EQ(desk.run(u"auditoria --csv"_s), ExitSuccess);
    EXPECT_EQ(lines(), 61);
    EXPECT_TRUE(desk.out.startsWith(u"Momento,Usuario,Empresa,Programa,Codigo,Texto,Equipo\r\n"
                                    "2026-01-01 10:00:00.000,luis,001,VELTRANO,7,COMISION:1,PC-1\r\n"));
    ASSERT_EQ(desk.run(u"auditoria 1 --csv"_s), ExitSuccess);
    EXPECT_EQ(desk.out.section(u"\r\n"_s, 1),
              u"2026-03-01 10:00:00.000,ana,001,VELTRANO,7,COMISION:60,PC-1\r\n"_s);
}

INSTANTIATE_TEST_SUITE_P(Engines, AuditOrders, testing::ValuesIn(dalvora::test::allEngines),
                         dalvora::test::engineName);

TEST(CsvText, QuotesWhatWouldEndAFieldAndKeepsEveryLetter) {
    EXPECT_EQ(csvLine({u"año"_s, u"a,b"_s, u"dice \"sí\""_s, u"dos\nlíneas"_s, u" blanco "_s, u""_s}),
              u"año,\"a,b\",\"dice \"\"sí\"\"\",\"dos\nlíneas\", blanco ,\r\n"_s);
}

TEST(CsvText, ATextThatASpreadsheetWouldRunGetsAnApostrophe) {
    for (const auto* text : {u"=1+1", u"+1", u"-1", u"@SUM(A1)", u"\tx"})
        EXPECT_EQ(csvField(QString::fromUtf16(text)), u'\'' + QString::fromUtf16(text));
    EXPECT_EQ(csvField(u"=a,b"_s), u"\"'=a,b\""_s);
    EXPECT_EQ(csvField(u"a=b"_s), u"a=b"_s);
}

} // namespace
