#include "platform/quorvane32/session/Accounts.h"

#include "platform/quorvane32/session/Passwords.h"
#include "tests/quorvane32_session/SessionSupport.h"

namespace {

using namespace quorvane;
using namespace quorvane::test;

TEST(Passwords, AHashFitsItsPasswordAndNoOther) {
    const QString hash = hashPassword(QStringLiteral("Contraseña 1"));
    EXPECT_TRUE(hash.startsWith(u"$argon2id$"));
    EXPECT_TRUE(verifyPassword(hash, QStringLiteral("Contraseña 1")));
    EXPECT_FALSE(verifyPassword(hash, QStringLiteral("contraseña 1")));
    EXPECT_NE(hashPassword(QStringLiteral("Contraseña 1")), hash) << "the same salt twice";
}

TEST(Passwords, ALetterTypedWithAnAccentOfItsOwnIsTheSame) {
    const QString hash = hashPassword(QStringLiteral("Contrase\u00f1a"));
    EXPECT_TRUE(verifyPassword(hash, QStringLiteral("Contrasen\u0303a")));
}

TEST(Passwords, AnEmptyOrDamagedHashFitsNothing) {
    for (const char* hash : {"", "x", "$argon2id$v=19$m=65536,t=2,p=1$broken"}) {
        EXPECT_FALSE(verifyPassword(QLatin1String(hash), QString()));
        EXPECT_FALSE(verifyPassword(QLatin1String(hash), QLatin1String(hash)));
    }
}

class AccountsTest : public testing::TestWithParam<TestEngine> {
protected:
    void SetUp() override { connection.open(folder.connectString()); }
    QString refusal(const QString& user, const QString& given) { return accounts.refusal(user, given, now); }
    const QString correct = QString::fromUtf16(password);
    const QString wrong = QStringLiteral("otra");
    const QString wrongText = QStringLiteral("Usuario o contraseña incorrectos.");
    SessionFolder folder{GetParam()};
    Connection connection;
    Accounts accounts{connection};
    QDateTime now{QDate(2026, 3, 5), QTime(9, 30)};
};

TEST_P(AccountsTest, TheRightPasswordSignsInInAnyCaseOfTheUser) {
    EXPECT_EQ(refusal(QStringLiteral("ana"), correct), QString());
    EXPECT_EQ(refusal(QStringLiteral("ANA"), correct), QString());
}

TEST_P(AccountsTest, UnknownUsersAndWrongPasswordsAreToldAlike) {
    EXPECT_EQ(refusal(QStringLiteral("ana"), wrong), wrongText);
    EXPECT_EQ(refusal(QStringLiteral("nadie"), correct), wrongText);
    EXPECT_EQ(refusal(QStringLiteral("' or 1=1 --"), correct), wrongText);
    EXPECT_EQ(refusal(QString(), QString()), wrongText);
}

TEST_P(AccountsTest, ThreeWrongPasswordsLockForFiveMinutes) {
    const QString user = QStringLiteral("ana");
    EXPECT_EQ(refusal(user, wrong), wrongText);
    EXPECT_EQ(refusal(user, wrong), wrongText);
    EXPECT_EQ(
        refusal(user, wrong),
        QStringLiteral("El usuario «ana» está bloqueado hasta las 09:35:00 por 3 contraseñas incorrectas "
                       "seguidas."));
    EXPECT_TRUE(refusal(user, correct).contains(u"bloqueado")) << "the right password lets in a locked user";
    EXPECT_EQ(refusal(QStringLiteral("luis"), correct), QString());
    now = now.addSecs(Accounts::lockSeconds - 1);
    EXPECT_TRUE(refusal(user, correct).contains(u"bloqueado"));
    now = now.addSecs(1);
    EXPECT_EQ(refusal(user, correct), QString());
}

TEST_P(AccountsTest, TheLockOutlivesTheProgram) {
    for (int i = 0; i < 3; ++i)
        refusal(QStringLiteral("ana"), wrong);
    Connection another;
    another.open(folder.connectString());
    EXPECT_TRUE(Accounts(another).refusal(QStringLiteral("ana"), correct, now).contains(u"bloqueado"));
}

TEST_P(AccountsTest, ASuccessForgetsTheFailuresBefore) {
    const QString user = QStringLiteral("ana");
    refusal(user, wrong);
    refusal(user, wrong);
    EXPECT_EQ(refusal(user, correct), QString());
    EXPECT_EQ(refusal(user, wrong), wrongText);
    EXPECT_EQ(refusal(user, wrong), wrongText);
    EXPECT_EQ(refusal(user, correct), QString());
}

TEST_P(AccountsTest, FailuresThatCannotBeStoredLockAllTheSame) {
    connection.open(folder.connectString(10));
    {
        const WriteLock lock(folder);
        EXPECT_EQ(refusal(QStringLiteral("ana"), wrong), wrongText);
        EXPECT_EQ(refusal(QStringLiteral("ANA"), wrong), wrongText);
        EXPECT_TRUE(refusal(QStringLiteral("ana"), wrong).contains(u"bloqueado"));
    }
    EXPECT_TRUE(refusal(QStringLiteral("ana"), correct).contains(u"bloqueado"));
    now = now.addSecs(Accounts::lockSeconds);
    EXPECT_EQ(refusal(QStringLiteral("ana"), correct), QString());
}

TEST_P(AccountsTest, AnotherLayoutIsToldByNameAndVersion) {
    accounts.checkLayout(QStringLiteral("q.db"));
    folder.execute(QStringLiteral("UPDATE ses_esquema SET Version = 0"));
    RunTimeError error = errorOf([&] { accounts.checkLayout(QStringLiteral("q.db")); });
    EXPECT_EQ(error.number(), ErrorDatabaseFormat);
    EXPECT_EQ(
        error.description(),
        QStringLiteral("La base de datos q.db tiene una versión anterior (0); este programa necesita la "
                       "versión 2. Pida al administrador que la actualice."));
    folder.execute(QStringLiteral("UPDATE ses_esquema SET Version = 3"));
    error = errorOf([&] { accounts.checkLayout(QStringLiteral("q.db")); });
    EXPECT_TRUE(error.description().startsWith(u"La base de datos q.db tiene una versión posterior (3)"));
    folder.execute(QStringLiteral("DROP TABLE ses_esquema"));
    error = errorOf([&] { accounts.checkLayout(QStringLiteral("q.db")); });
    EXPECT_TRUE(error.description().startsWith(u"q.db no es una base de datos de Quorvane ERP"));
}

TEST_P(AccountsTest, RightsAreFourLettersAndGoWithTheUser) {
    const QString program = QStringLiteral("veltrano");
    EXPECT_EQ(accounts.rights(QStringLiteral("ana"), program), QStringLiteral("RWXD"));
    EXPECT_EQ(accounts.rights(QStringLiteral("sin"), program), std::nullopt);
    EXPECT_EQ(accounts.rights(QStringLiteral("ana"), QStringLiteral("OTRO")), std::nullopt);
    folder.execute(QStringLiteral("UPDATE ses_derecho SET Derechos = 'R'"));
    EXPECT_EQ(accounts.rights(QStringLiteral("ana"), program), QStringLiteral("R---"));
    folder.execute(QStringLiteral("DELETE FROM ses_usuario WHERE Usuario = 'ana'"));
    EXPECT_EQ(accounts.rights(QStringLiteral("ana"), program), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Engines, AccountsTest, testing::ValuesIn(allEngines), engineName);

} // namespace
