#include "platform/quorvane32/session/ErpSession.h"

#include "tests/quorvane32_session/SessionSupport.h"
#include <QFile>

namespace {

using namespace quorvane;
using namespace quorvane::test;

class ErpSessionTest : public testing::TestWithParam<TestEngine> {
protected:
    /// Initialize as the program calls it; true when it signed in.
    bool initialize(const QString& company = {}) {
        bool cancel = false;
        session.SetClientInfo(QStringLiteral("pc-1"));
        session.Initialize(connection, QStringLiteral("DALVORA"), QStringLiteral("VELTRANO"),
                           QStringLiteral("1.0.01"), company, cancel);
        return !cancel;
    }
    LoginAnswer answer(const char* company, const char* user, const QString& given) {
        return {QLatin1String(company), QLatin1String(user), given};
    }
    const QString correct = QString::fromUtf16(password);
    SessionFolder folder{GetParam()};
    StoppedClock clock;
    PreparedPrompt prompt;
    Connection connection;
    ErpSession session{folder.path(), &prompt, clock.clock()};
};

class AutomaticSignIn : public ErpSessionTest {
protected:
    void SetUp() override { folder.setAutomatic(QStringLiteral("ana")); }
    QStringList audited(const QString& columns) {
        return folder.rows(QStringLiteral("SELECT %1 FROM ses_auditoria ORDER BY Id").arg(columns));
    }
};

/// What only a database that is a file can suffer.
class SignInToAFile : public AutomaticSignIn {};

TEST_P(AutomaticSignIn, TakesTheProfilesCompanyWhenNoneIsGiven) {
    EXPECT_TRUE(initialize());
    EXPECT_EQ(session.CompanyCode(), QStringLiteral("001"));
    EXPECT_EQ(session.CompanyName(), QStringLiteral("Viento Norte"));
    EXPECT_EQ(session.UserName(), QStringLiteral("ana"));
    EXPECT_EQ(session.AccessRights(), QStringLiteral("RWXD"));
    EXPECT_EQ(session.Warning(), QString());
    EXPECT_TRUE(connection.isOpen());
    EXPECT_TRUE(prompt.questions.empty());
}

TEST_P(AutomaticSignIn, TakesTheCompanyGiven) {
    EXPECT_TRUE(initialize(QStringLiteral(" 002 ")));
    EXPECT_EQ(session.CompanyCode(), QStringLiteral("002"));
}

TEST_P(AutomaticSignIn, AnUnknownCompanyIsAClearError) {
    const RunTimeError error = errorOf([&] { initialize(QStringLiteral("9")); });
    EXPECT_EQ(error.number(), ErrorInvalidCall);
    EXPECT_EQ(error.description(), QStringLiteral("La empresa «9» no existe o no está en el perfil."));
    EXPECT_FALSE(connection.isOpen());
}

TEST_P(AutomaticSignIn, ACompanyOutsideTheProfileIsRefused) {
    folder.execute(QStringLiteral("INSERT INTO ses_empresa VALUES ('003', 'Otra')"));
    EXPECT_EQ(errorOf([&] { initialize(QStringLiteral("003")); }).number(), ErrorInvalidCall);
}

TEST_P(AutomaticSignIn, AUserWhoDoesNotExistOrHasNoRightsIsRefused) {
    folder.setAutomatic(QStringLiteral("nadie"));
    EXPECT_TRUE(errorOf([&] { initialize(); }).description().startsWith(u"El usuario «nadie» del perfil "));
    folder.setAutomatic(QStringLiteral("sin"));
    EXPECT_EQ(errorOf([&] { initialize(); }).description(),
              QStringLiteral("El usuario «sin» no tiene acceso al programa VELTRANO."));
}

TEST_P(AutomaticSignIn, AProfileWithoutAKnownCompanyIsRefused) {
    folder.execute(QStringLiteral("DELETE FROM ses_empresa"));
    EXPECT_TRUE(errorOf([&] { initialize(); }).description().contains(u"no nombra ninguna empresa"));
}

TEST_P(SignInToAFile, AMissingDatabaseOrOneThatIsNoneIsToldAndNothingIsMade) {
    QFile::remove(folder.database());
    EXPECT_EQ(errorOf([&] { initialize(); }).number(), ErrorFileNotFound);
    EXPECT_FALSE(QFile::exists(folder.database()));
    QFile file(folder.database());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(4096, 'x'));
    file.close();
    EXPECT_EQ(errorOf([&] { initialize(); }).number(), ErrorDatabaseFormat);
}

TEST_P(SignInToAFile, AnEmptyFileAndAnotherProgramsDatabaseAreNoQuorvaneDatabase) {
    QFile::remove(folder.database());
    QFile file(folder.database());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const RunTimeError error = errorOf([&] { initialize(); });
    EXPECT_EQ(error.number(), ErrorDatabaseFormat);
    EXPECT_TRUE(error.description().contains(u"no es una base de datos de Quorvane ERP"));
}

TEST_P(AutomaticSignIn, AnOlderLayoutIsTold) {
    folder.execute(QStringLiteral("UPDATE ses_esquema SET Version = 0"));
    EXPECT_TRUE(errorOf([&] { initialize(); }).description().contains(u"tiene una versión anterior"));
}

TEST_P(AutomaticSignIn, ARightWithdrawnIsGoneWithinASecond) {
    ASSERT_TRUE(initialize());
    ASSERT_EQ(session.AccessRights(), QStringLiteral("RWXD"));
    folder.execute(QStringLiteral("UPDATE ses_derecho SET Derechos = 'R-X-' WHERE Usuario = 'ana'"));
    clock.pass(1);
    EXPECT_EQ(session.AccessRights(), QStringLiteral("R-X-"));
}

TEST_P(AutomaticSignIn, AUserRemovedMeanwhileHasNoRights) {
    ASSERT_TRUE(initialize());
    folder.execute(QStringLiteral("DELETE FROM ses_usuario WHERE Usuario = 'ana'"));
    clock.pass(1);
    EXPECT_EQ(session.AccessRights(), QStringLiteral("----"));
}

TEST_P(AutomaticSignIn, WhileTheRightsCannotBeReadTheyStayWhatTheyWere) {
    ASSERT_TRUE(initialize());
    ASSERT_EQ(session.AccessRights(), QStringLiteral("RWXD"));
    folder.execute(QStringLiteral("ALTER TABLE ses_derecho RENAME TO gone"));
    clock.pass(1);
    EXPECT_EQ(session.AccessRights(), QStringLiteral("RWXD"));
    folder.execute(QStringLiteral("ALTER TABLE gone RENAME TO ses_derecho"));
    folder.execute(QStringLiteral("DELETE FROM ses_derecho"));
    clock.pass(1);
    EXPECT_EQ(session.AccessRights(), QStringLiteral("----"));
}

TEST_P(AutomaticSignIn, AuditStoresTimeUserCompanyProgramCodeTextAndMachine) {
    ASSERT_TRUE(initialize());
    session.Audit(AuditStart, QString());
    session.Audit(AuditCreate, QStringLiteral("001:COMISION:C1"));
    EXPECT_EQ(
        audited(QStringLiteral("Momento, Usuario, Empresa, Programa, Codigo, Texto, Equipo")),
        (QStringList{QStringLiteral("2026-03-05 09:30:00.000|ana|001|VELTRANO|2||pc-1"),
                     QStringLiteral("2026-03-05 09:30:00.000|ana|001|VELTRANO|6|001:COMISION:C1|pc-1")}));
}

TEST_P(AutomaticSignIn, AuditNeverRaisesAndDoesNotStandInTheProgramsTransaction) {
    ASSERT_TRUE(initialize());
    connection.beginTrans();
    session.Audit(AuditRead, QStringLiteral("uno"));
    // A file has one writer at a time; on a server the entry is stored at once.
    EXPECT_EQ(session.WaitingAuditEntries(), folder.isFile() ? 1U : 0U);
    connection.rollbackTrans();
    session.Audit(AuditRead, QStringLiteral("dos"));
    EXPECT_EQ(session.WaitingAuditEntries(), 0U);
    EXPECT_EQ(audited(QStringLiteral("Texto")).join(u','), QStringLiteral("uno,dos"));
}

TEST_P(AutomaticSignIn, TheSessionsStatementsAreNotSeenOnTheProgramsConnection) {
    ASSERT_TRUE(initialize());
    int seen = 0;
    connection.setStatementObserver([&](const QString&) { ++seen; });
    session.Audit(AuditRead, QStringLiteral("x"));
    clock.pass(2);
    session.AccessRights();
    EXPECT_EQ(seen, 0);
}

TEST_P(AutomaticSignIn, ALockHeldByAnotherProgramDoesNotKeepTheProgramFromStarting) {
    const WriteLock lock(folder);
    EXPECT_TRUE(initialize());
    EXPECT_EQ(session.AccessRights(), QStringLiteral("RWXD"));
    EXPECT_EQ(session.Warning(), QString());
}

TEST_P(ErpSessionTest, BeforeInitializeNothingIsAllowed) {
    EXPECT_EQ(session.AccessRights(), QStringLiteral("----"));
    EXPECT_EQ(session.CompanyCode(), QString());
}

TEST_P(ErpSessionTest, AMissingProfileIsTold) {
    QFile::remove(folder.profileFile());
    EXPECT_EQ(errorOf([&] { initialize(); }).number(), ErrorFileNotFound);
}

TEST_P(ErpSessionTest, GivingUpSetsTheCancelFlag) {
    EXPECT_FALSE(initialize());
    EXPECT_FALSE(connection.isOpen());
}

TEST_P(ErpSessionTest, TheGivenCompanyIsNotAskedFor) {
    prompt.answers = {answer("001", "luis", correct)};
    EXPECT_TRUE(initialize(QStringLiteral("001")));
    ASSERT_EQ(prompt.questions.size(), 1U);
    EXPECT_FALSE(prompt.questions[0].askCompany);
    EXPECT_EQ(prompt.questions[0].message, QString());
    EXPECT_EQ(session.AccessRights(), QStringLiteral("R---"));
}

TEST_P(ErpSessionTest, WithoutACompanyTheProfilesAreOffered) {
    prompt.answers = {answer("002", "ANA", correct)};
    EXPECT_TRUE(initialize());
    EXPECT_TRUE(prompt.questions[0].askCompany);
    EXPECT_EQ(prompt.questions[0].company, QStringLiteral("001"));
    ASSERT_EQ(prompt.questions[0].companies.size(), 2U);
    EXPECT_EQ(prompt.questions[0].companies[1].name, QStringLiteral("Bebidas del Sur"));
    EXPECT_EQ(session.CompanyCode(), QStringLiteral("002"));
    EXPECT_EQ(session.UserName(), QStringLiteral("ana")) << "the user is named as stored";
}

TEST_P(ErpSessionTest, AnUnknownCompanyIsToldAndAskedForAgain) {
    prompt.answers = {answer("9", "ana", correct), answer("001", "ana", correct)};
    EXPECT_TRUE(initialize(QStringLiteral("9")));
    EXPECT_TRUE(prompt.questions[0].askCompany);
    EXPECT_EQ(prompt.questions[0].message,
              QStringLiteral("La empresa «9» no existe o no está en el perfil."));
    EXPECT_EQ(prompt.refusals, QStringList(prompt.questions[0].message));
    EXPECT_EQ(session.CompanyCode(), QStringLiteral("001"));
}

TEST_P(ErpSessionTest, ThreeWrongPasswordsLockTheUserAcrossProgramStarts) {
    prompt.answers = {answer("001", "ana", QStringLiteral("a")), answer("001", "ana", QStringLiteral("b")),
                      answer("001", "ana", QStringLiteral("c")), answer("001", "ana", correct)};
    EXPECT_FALSE(initialize());
    ASSERT_EQ(prompt.refusals.size(), 4);
    EXPECT_EQ(prompt.refusals[1], QStringLiteral("Usuario o contraseña incorrectos."));
    EXPECT_TRUE(prompt.refusals[2].contains(u"bloqueado hasta las 09:35:00"));
    EXPECT_TRUE(prompt.refusals[3].contains(u"bloqueado"));
    ErpSession later(folder.path(), &prompt, clock.clock());
    prompt.answers = {answer("001", "ana", correct)};
    bool cancel = false;
    later.Initialize(connection, {}, QStringLiteral("VELTRANO"), {}, {}, cancel);
    EXPECT_TRUE(cancel);
    clock.pass(Accounts::lockSeconds);
    later.Initialize(connection, {}, QStringLiteral("VELTRANO"), {}, {}, cancel);
    EXPECT_FALSE(cancel);
}

TEST_P(ErpSessionTest, AUserWithoutRightsInTheProgramIsToldAndAnotherMaySignIn) {
    prompt.answers = {answer("001", "sin", correct), answer("001", "luis", correct)};
    EXPECT_TRUE(initialize());
    EXPECT_EQ(prompt.refusals,
              QStringList(QStringLiteral("El usuario «sin» no tiene acceso al programa VELTRANO.")));
}

TEST_P(ErpSessionTest, WithoutAWindowAProfileThatAsksIsAnError) {
    ErpSession silent(folder.path(), nullptr);
    bool cancel = false;
    EXPECT_TRUE(errorOf([&] { silent.Initialize(connection, {}, {}, {}, {}, cancel); })
                    .description()
                    .contains(u"pide iniciar sesión"));
}

INSTANTIATE_TEST_SUITE_P(Engines, ErpSessionTest, testing::ValuesIn(allEngines), engineName);
INSTANTIATE_TEST_SUITE_P(Engines, AutomaticSignIn, testing::ValuesIn(allEngines), engineName);
INSTANTIATE_TEST_SUITE_P(Engines, SignInToAFile, testing::Values(TestEngine::Sqlite), engineName);

} // namespace
