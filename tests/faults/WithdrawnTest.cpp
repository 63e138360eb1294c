// Who may work with which company: unknown companies, rights withdrawn and users removed meanwhile.
#include "tests/faults/ProgramFixture.h"
#include "tests/faults/ProgramRun.h"
#include <QTest>

namespace dalvora::test {

namespace {

const Message mayNotWrite{u"Usuario no tiene permiso de escritura"_s, MessageWarning};
const Message mayNotRead{u"Usuario no tiene permiso de lectura"_s, MessageWarning};
const Message mayNotDelete{u"Usuario no tiene permiso de eliminación"_s, MessageWarning};

class CompanyOnTheCommandLine : public testing::TestWithParam<TestEngine> {
protected:
    /// The start with this command line ends with one message.
    void expectRefused(const QString& commandLine, const QString& told) {
        const QStringList before = company.contents();
        const ProgramRun run(company.path(), files, commandLine);
        EXPECT_FALSE(run.crashed);
        EXPECT_EQ(run.result, 1);
        EXPECT_EQ(run.told, u"Quorvane ERP - Dalvora: "_s + told + u'\n') << qPrintable(commandLine.left(80));
        EXPECT_EQ(company.contents(), before);
    }
    void expectUnknown(const QString& commandLine, const QString& code) {
        expectRefused(commandLine, u"Error al iniciar aplicación\n5 - La empresa «"_s + code +
                                       u"» no existe o no está en el perfil."_s);
    }

    const TestCompany company{GetParam()};
    const ProgramFiles files;
};

class Withdrawn : public EveryEngine {
protected:
    void SetUp() override { readC1(); }
    /// What another program does to the user's rights; the program looks again after a second.
    void change(const QString& statement) {
        company.execute(statement);
        QTest::qWait(1100);
    }
    void grant(const QString& letters) { change(u"UPDATE ses_derecho SET Derechos = '"_s + letters + u'\''); }
};

} // namespace

TEST_P(CompanyOnTheCommandLine, UnknownIsTold) {
    expectUnknown(u"EMPRESA=999"_s, u"999"_s);
    expectUnknown(u"USUARIO=ana;empresa=nadie;X=1"_s, u"nadie"_s);
}

TEST_P(CompanyOnTheCommandLine, WithoutConfigurationIsTold) {
    expectRefused(u"EMPRESA=002"_s,
                  u"No existe la siguiente configuración.\n\n"
                  u"- Definición de monedas en parámetros generales.\n"
                  u"- Definición de moneda local en parámetros o en la tabla de monedas.\n"_s);
}

TEST_P(CompanyOnTheCommandLine, ALineLongerThanItsPositionsIsTold) {
    expectRefused(u"EMPRESA="_s + QString(40'000, u'x'),
                  u"Error al iniciar aplicación\n6 - Desbordamiento"_s);
}

TEST_P(CompanyOnTheCommandLine, StatementsAreCodesThatNobodyHas) {
    expectUnknown(u"EMPRESA='; DROP TABLE Comisiones; --"_s, u"'"_s);
    expectUnknown(u"EMPRESA=001' OR '1'='1"_s, u"001' OR '1'='1"_s);
    expectUnknown(u"EMPRESA=001'/**/UNION/**/SELECT/**/Clave,Usuario/**/FROM/**/ses_usuario--"_s,
                  u"001'/**/UNION/**/SELECT/**/Clave,Usuario/**/FROM/**/ses_usuario--"_s);
    expectUnknown(u"EMPRESA=%"_s, u"%"_s);
    expectUnknown(u"EMPRESA=$Empresa$"_s, u"$Empresa$"_s);
}

TEST_P(Withdrawn, WithoutTheRightToWriteASaveIsRefusedAndNothingIsLost) {
    changeOneCell();
    const QStringList before = program.screen();
    grant(u"R-XD"_s);
    program.click(u"grabar"_s);
    EXPECT_EQ(told(), mayNotWrite);
    EXPECT_EQ(program.screen(), before);
    EXPECT_EQ(states.storedRows(company), states.rows(1));
    grant(u"RWXD"_s);
    program.click(u"grabar"_s);
    expectSilence();
    EXPECT_EQ(changedCells(), u"1"_s);
}

TEST_P(Withdrawn, WithoutTheRightToDeleteTheSchemeStays) {
    grant(u"RWX-"_s);
    program.click(u"eliminar"_s);
    EXPECT_EQ(recorder.take().back(), mayNotDelete);
    EXPECT_EQ(states.storedRows(company), states.rows(1));
}

TEST_P(Withdrawn, WithoutTheRightToReadNothingMoreIsRead) {
    program.click(u"limpiar"_s);
    grant(u"-WXD"_s);
    program.read(u"C1"_s);
    EXPECT_EQ(told(), mayNotRead);
    EXPECT_FALSE(program.table().SysRecordFound);
}

TEST_P(Withdrawn, AUserWhoWasRemovedCanDoNothingMoreButClose) {
    changeOneCell();
    change(u"DELETE FROM ses_derecho WHERE Usuario = 'ana'; DELETE FROM ses_usuario WHERE Usuario = 'ana'"_s);
    const QStringList before = company.contents();
    program.click(u"grabar"_s);
    EXPECT_EQ(told(), mayNotWrite);
    program.click(u"eliminar"_s);
    EXPECT_EQ(recorder.take().back(), mayNotDelete);
    program.click(u"limpiar"_s);
    program.read(u"C1"_s);
    EXPECT_EQ(told(), mayNotRead);
    EXPECT_EQ(company.contents(), before);
    program.click(u"limpiar"_s);
    program.form().close();
    expectSilence();
    EXPECT_FALSE(program.context().Table);
}

TEST_P(Withdrawn, ACompanyRemovedMeanwhileKeepsWhatIsOnScreen) {
    changeOneCell();
    change(u"DELETE FROM ses_empresa WHERE Empresa = '001'"_s);
    program.click(u"grabar"_s);
    expectSilence();
    EXPECT_EQ(changedCells(), u"1"_s) << "the rights are the user's, not the company's";
}

INSTANTIATE_TEST_SUITE_P(Engines, CompanyOnTheCommandLine, testing::ValuesIn(windowEngines), engineName);
INSTANTIATE_TEST_SUITE_P(Engines, Withdrawn, testing::ValuesIn(windowEngines), engineName);

} // namespace dalvora::test
