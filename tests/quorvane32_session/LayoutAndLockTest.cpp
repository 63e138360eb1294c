// What an administrator changes in a database reaches programs of every age: its layout, and locked users.
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/Administration.h"
#include "platform/quorvane32/session/AuditReader.h"
#include "sql/Schema.h"
#include "tests/quorvane32_session/SessionSupport.h"
#include "tests/support/TestDatabase.h"
#include <QFile>
#include <memory>
#include <vector>

namespace {

using namespace quorvane;
using namespace quorvane::test;
using namespace Qt::StringLiterals;
using dalvora::test::TestDatabase;
using dalvora::test::TestEngine;

/// The session's tables as the programs of layout 1 made them.
QString layoutOne(TestEngine engine) {
    QFile file(QStringLiteral(LAYOUT_ONE) +
               (engine == TestEngine::Sqlite ? u"/sqlite.sql"_s : u"/postgresql.sql"_s));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

class LayoutAndLock : public testing::TestWithParam<TestEngine> {
protected:
    void SetUp() override {
        Profile profile;
        profile.connectString = database.connectString();
        profile.companies = {u"001"_s};
        profile.defaultCompany = u"001"_s;
        profile.user = u"ana"_s;
        profile.automatic = true;
        profile.save(folder.path());
    }
    void fill() {
        own.open(database.connectString());
        own.execute(u"INSERT INTO ses_empresa (Empresa, Nombre) VALUES ('001', 'Comercial')"_s);
        administration.addUser(u"ana"_s, u"Ana"_s, u"Clave correcta"_s);
        administration.setRights(u"ana"_s, u"VELTRANO"_s, u"RWXD"_s);
    }
    bool signIn(ErpSession& session) {
        bool cancel = false;
        programs.push_back(std::make_unique<Connection>());
        session.Initialize(*programs.back(), {}, u"VELTRANO"_s, {}, u"001"_s, cancel);
        return !cancel;
    }
    QString refusal(const char16_t* text) {
        return Accounts(own).refusal(u"ana"_s, QString::fromUtf16(text), now);
    }

    TestDatabase database{GetParam(), TestDatabase::Tables::None};
    QTemporaryDir folder;
    Connection own;
    Administration administration{own};
    QDateTime now{QDate(2026, 3, 5), QTime(9, 30)};
    StoppedClock clock;
    std::vector<std::unique_ptr<Connection>> programs; ///< one for each session that signed in
};

class WithPresentLayout : public LayoutAndLock {
protected:
    void SetUp() override {
        const auto engine = GetParam() == TestEngine::Sqlite ? dalvora::SchemaEngine::Sqlite
                                                             : dalvora::SchemaEngine::PostgreSql;
        database.run(QString::fromUtf8(dalvora::erpTables(engine) + dalvora::sessionTables(engine)));
        LayoutAndLock::SetUp();
        fill();
    }
};

TEST_P(LayoutAndLock, ADatabaseOfLayoutOneIsWorkedWithAndLeftAsItIs) {
    const auto engine =
        GetParam() == TestEngine::Sqlite ? dalvora::SchemaEngine::Sqlite : dalvora::SchemaEngine::PostgreSql;
    database.run(QString::fromUtf8(dalvora::erpTables(engine)) + layoutOne(GetParam()));
    fill();
    ErpSession session(folder.path(), nullptr, clock.clock());
    ASSERT_TRUE(signIn(session));
    EXPECT_EQ(session.Warning(), QString());
    EXPECT_EQ(session.AccessRights(), u"RWXD"_s);
    session.Audit(AuditRead, u"leído"_s);
    EXPECT_EQ(session.WaitingAuditEntries(), 0U);
    EXPECT_EQ(Accounts(own).layout(u"q"_s), 1);
    int entries = 0;
    AuditReader(own).last({u"ana"_s, {}, {}, {}, {}}, 5, [&](const AuditEntry&) { ++entries; });
    EXPECT_EQ(entries, 1);
    administration.lock(u"ana"_s);
    clock.pass(1);
    EXPECT_EQ(session.AccessRights(), u"----"_s);
}

TEST_P(WithPresentLayout, ALockOfTheAdministratorLastsUntilHeEndsIt) {
    administration.lock(u"ANA"_s);
    EXPECT_EQ(refusal(u"Clave correcta"), u"El usuario «ana» está bloqueado por el administrador."_s);
    now = now.addYears(100);
    EXPECT_EQ(refusal(u"mala"), u"El usuario «ana» está bloqueado por el administrador."_s);
    administration.setPassword(u"ana"_s, u"Otra clave larga"_s);
    EXPECT_TRUE(Accounts(own).isLockedForGood(u"ana"_s));
    const UserRecord user = administration.users(now).front();
    EXPECT_TRUE(user.locked);
    EXPECT_FALSE(user.lockedUntil.isValid());
    administration.unlock(u"ana"_s);
    EXPECT_EQ(refusal(u"Otra clave larga"), QString());
    EXPECT_FALSE(administration.users(now).front().locked);
}

TEST_P(WithPresentLayout, AProgramOfAnOlderLayoutKeepsALockedUserOutAsWell) {
    administration.lock(u"ana"_s);
    const Recordset row = own.openRecordset(u"SELECT BloqueadoHasta FROM ses_usuario"_s);
    EXPECT_GT(row.value(0).toNumber({}),
              static_cast<double>(QDateTime(QDate(2999, 1, 1), QTime()).toSecsSinceEpoch()));
}

TEST_P(WithPresentLayout, AUserWhoIsLockedLosesHisRightsAndDoesNotSignInByHimself) {
    ErpSession session(folder.path(), nullptr, clock.clock());
    ASSERT_TRUE(signIn(session));
    ASSERT_EQ(session.AccessRights(), u"RWXD"_s);
    administration.lock(u"ana"_s);
    clock.pass(1);
    EXPECT_EQ(session.AccessRights(), u"----"_s);
    ErpSession second(folder.path(), nullptr, clock.clock());
    EXPECT_EQ(errorOf([&] { signIn(second); }).description(),
              u"El usuario «ana» está bloqueado por el administrador."_s);
    administration.unlock(u"ana"_s);
    clock.pass(1);
    EXPECT_EQ(session.AccessRights(), u"RWXD"_s);
    EXPECT_TRUE(signIn(second));
}

TEST_P(WithPresentLayout, CompaniesAreListedInTheirOrderAndNotAddedTwice) {
    administration.addCompany(u" 000 "_s, u"Primera"_s);
    const std::vector<Company> companies = administration.companies();
    ASSERT_EQ(companies.size(), 2U);
    EXPECT_EQ(companies[0].code, u"000"_s);
    EXPECT_EQ(companies[1].name, u"Comercial"_s);
    EXPECT_EQ(errorOf([&] { administration.addCompany(u"000"_s, u"Otra"_s); }).number(), ErrorDuplicateKey);
    EXPECT_EQ(errorOf([&] { administration.addCompany(u"003"_s, u" "_s); }).number(), ErrorInvalidCall);
}

INSTANTIATE_TEST_SUITE_P(Engines, LayoutAndLock, testing::ValuesIn(dalvora::test::catalogueEngines),
                         dalvora::test::engineName);
INSTANTIATE_TEST_SUITE_P(Engines, WithPresentLayout, testing::ValuesIn(dalvora::test::catalogueEngines),
                         dalvora::test::engineName);

} // namespace
