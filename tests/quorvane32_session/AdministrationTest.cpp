#include "platform/quorvane32/session/Administration.h"

#include "tests/quorvane32_session/SessionSupport.h"

namespace {

using namespace quorvane;
using namespace quorvane::test;

class AdministrationTest : public testing::TestWithParam<TestEngine> {
protected:
    void SetUp() override { connection.open(folder.connectString()); }
    const QString program = QStringLiteral("VELTRANO");
    const QString eva = QStringLiteral("eva");
    const QString newPassword = QStringLiteral("Larga-y-nueva");
    SessionFolder folder{GetParam()};
    Connection connection;
    Administration administration{connection};
    Accounts accounts{connection};
    QDateTime now{QDate(2026, 3, 5), QTime(9, 30)};
};

TEST_P(AdministrationTest, ANewUserSignsInOnceHeHasRights) {
    administration.addUser(eva, QStringLiteral("Eva Núñez"), newPassword);
    EXPECT_EQ(accounts.refusal(eva, newPassword, now), QString());
    EXPECT_EQ(accounts.rights(eva, program), std::nullopt);
    administration.setRights(eva, QStringLiteral("veltrano"), QStringLiteral("rw--"));
    EXPECT_EQ(accounts.rights(eva, program), QStringLiteral("RW--"));
    administration.setRights(QStringLiteral("EVA"), program, QStringLiteral("R-XD"));
    EXPECT_EQ(accounts.rights(eva, program), QStringLiteral("R-XD"));
}

TEST_P(AdministrationTest, RefusesWhatIsNotAllowed) {
    EXPECT_EQ(errorOf([&] { administration.addUser(eva, QString(), QStringLiteral("corta")); }).number(), 5);
    EXPECT_EQ(errorOf([&] { administration.addUser(QStringLiteral(" "), QString(), newPassword); }).number(),
              5);
    EXPECT_EQ(
        errorOf([&] { administration.addUser(QStringLiteral("ANA"), QString(), newPassword); }).number(),
        ErrorDuplicateKey);
    for (const char* letters : {"RWX", "RWXDD", "WRXD", "R W ", "1234", ""})
        EXPECT_EQ(errorOf([&] {
                      administration.setRights(QStringLiteral("ana"), program, QLatin1String(letters));
                  }).number(),
                  5)
            << letters;
    for (const auto& work : std::initializer_list<std::function<void()>>{
             [&] { administration.removeUser(eva); }, [&] { administration.setPassword(eva, newPassword); },
             [&] { administration.unlock(eva); },
             [&] { administration.setRights(eva, program, QStringLiteral("R---")); }})
        EXPECT_EQ(errorOf(work).number(), ErrorItemNotFound);
}

TEST_P(AdministrationTest, ARemovedUserLeavesNothingBehind) {
    administration.removeUser(QStringLiteral("Ana"));
    EXPECT_EQ(accounts.userCode(QStringLiteral("ana")), std::nullopt);
    EXPECT_EQ(folder.value(QStringLiteral("SELECT count(*) FROM ses_derecho WHERE Usuario = 'ana'")),
              QStringLiteral("0"));
}

TEST_P(AdministrationTest, ANewPasswordOrUnlockEndsALock) {
    const QString ana = QStringLiteral("ana");
    const auto lock = [&] {
        for (int i = 0; i < 3; ++i)
            accounts.refusal(ana, QStringLiteral("mala"), now);
    };
    lock();
    EXPECT_EQ(administration.users(now).front().lockedUntil, now.addSecs(300));
    administration.unlock(ana);
    EXPECT_FALSE(administration.users(now).front().lockedUntil.isValid());
    EXPECT_EQ(accounts.refusal(ana, QString::fromUtf16(password), now), QString());
    lock();
    administration.setPassword(ana, newPassword);
    EXPECT_EQ(accounts.refusal(ana, newPassword, now), QString());
}

TEST_P(AdministrationTest, ListsUsersWithTheirRights) {
    administration.setRights(QStringLiteral("ana"), QStringLiteral("OTRO"), QStringLiteral("R---"));
    const std::vector<UserRecord> users = administration.users(now);
    ASSERT_EQ(users.size(), 3U);
    EXPECT_EQ(users[0].code, QStringLiteral("ana"));
    ASSERT_EQ(users[0].rights.size(), 2U);
    EXPECT_EQ(users[0].rights[1].first, program);
    EXPECT_EQ(users[0].rights[1].second, QStringLiteral("RWXD"));
    EXPECT_TRUE(users[2].rights.empty());
}

INSTANTIATE_TEST_SUITE_P(Engines, AdministrationTest, testing::ValuesIn(allEngines), engineName);

} // namespace
