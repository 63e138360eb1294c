#include "tests/drilldown/ClickFixture.h"
#include <QFile>

using namespace dalvora::test;

namespace {

class DrillDownProcess : public ClickTest {
protected:
    DrillDownProcess() { programs.installReal(home->path()); }
};

TEST_P(DrillDownProcess, TheFirstClickStartsTheDocumentProgramAndTheNextOnesReuseIt) {
    EXPECT_EQ(programs.running(), 0);
    click(u"FACTURA"_s, u"10250"_s);
    expectSilence();
    const qint64 process = programs.running();
    EXPECT_NE(process, 0);
    expectAlive();
    QElapsedTimer time;
    time.start();
    click(u"FACEXP"_s, u"10248"_s);
    click(u"NCREDITO"_s, u"1"_s);
    EXPECT_LT(time.elapsed(), 2000);
    expectSilence();
    EXPECT_EQ(programs.running(), process);
    EXPECT_EQ(link.linkMode(), quorvane::LinkNone);
}

TEST_P(DrillDownProcess, ADocumentThatDoesNotExistIsRefusedWithItsName) {
    click(u"FACTURA"_s, u"99999"_s);
    expectTold(u"Aplicación no procesó el requerimiento"_s,
               u"285 - La aplicación externa no realizó el método o la operación de DDE: No existe el "
               u"documento FACTURA 99999 de la cuenta corriente «»"_s);
    expectAlive();
    click(u"FACTURA"_s, u"10250"_s);
    expectSilence();
}

TEST_P(DrillDownProcess, AProgramThatWasKilledIsStartedAgain) {
    click(u"FACTURA"_s, u"10250"_s);
    const qint64 first = programs.running();
    ASSERT_NE(first, 0);
    programs.kill();
    ASSERT_EQ(programs.running(), 0);
    click(u"FACTURA"_s, u"10250"_s);
    expectSilence();
    EXPECT_NE(programs.running(), 0);
    EXPECT_NE(programs.running(), first);
}

TEST_P(DrillDownProcess, ADatabaseThatIsGoneIsARefusal) {
    click(u"FACTURA"_s, u"10250"_s);
    expectSilence();
    const QString profile = home->filePath(u"quorvane.ini"_s);
    ASSERT_TRUE(QFile::rename(profile, profile + u".x"_s));
    click(u"FACTURA"_s, u"10250"_s);
    ASSERT_TRUE(QFile::rename(profile + u".x"_s, profile));
    expectTold(u"Aplicación no procesó el requerimiento"_s,
               u"285 - La aplicación externa no realizó el método o la operación de DDE: No se encontró el "
               u"perfil "_s +
                   profile);
    click(u"FACTURA"_s, u"10250"_s);
    expectSilence();
}

INSTANTIATE_TEST_SUITE_P(Engines, DrillDownProcess, testing::ValuesIn(windowEngines), engineName);

} // namespace
