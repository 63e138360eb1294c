// The session service on a PostgreSQL server.
#include "platform/quorvane32/core/ConnectString.h"
#include "platform/quorvane32/session/Administration.h"
#include "tests/quorvane32_session/SessionSupport.h"

namespace {

using namespace quorvane;
using namespace quorvane::test;

/// One person at a machine of his own.
struct Person {
    explicit Person(const QString& folder) : session(folder, &prompt, clock.clock()) {}

    bool signIn(const char* user, const QString& given) {
        prompt.answers = {{QStringLiteral("001"), QLatin1String(user), given}};
        prompt.refusals.clear();
        bool cancel = false;
        session.SetClientInfo(QStringLiteral("pc-") + QLatin1String(user));
        session.Initialize(connection, QStringLiteral("DALVORA"), QStringLiteral("VELTRANO"),
                           QStringLiteral("1.0.01"), QString(), cancel);
        return !cancel;
    }

    StoppedClock clock;
    PreparedPrompt prompt;
    Connection connection;
    ErpSession session;
};

class ServerSession : public testing::Test {
protected:
    ServerSession() {
        administrator.open(database.connectString());
        administrator.execute(QStringLiteral("INSERT INTO ses_empresa VALUES ('001', 'Viento Norte')"));
        Administration administration(administrator);
        for (const char* user : {"ana", "luis"})
            administration.addUser(QLatin1String(user), QString(), correct);
        administration.setRights(QStringLiteral("ana"), QStringLiteral("VELTRANO"), QStringLiteral("RWXD"));
        administration.setRights(QStringLiteral("luis"), QStringLiteral("VELTRANO"), QStringLiteral("R---"));
        writeProfile(database.connectString());
    }
    void writeProfile(const QString& connectString, const QString& automatic = {}) const {
        Profile profile;
        profile.connectString = connectString;
        profile.companies = {QStringLiteral("001")};
        profile.user = automatic;
        profile.automatic = !automatic.isEmpty();
        profile.defaultCompany = QStringLiteral("001");
        profile.save(folder.path());
    }
    QString with(const char* key, const QString& value) const {
        ConnectString options = ConnectString::parse(database.connectString());
        options.setValue(QLatin1String(key), value);
        return options.toString();
    }
    /// The error of a sign-in with this connect string.
    RunTimeError refused(const QString& connectString) const {
        writeProfile(connectString);
        Person person(folder.path());
        return errorOf([&] { person.signIn("ana", correct); });
    }
    QString value(const QString& sql) {
        const Recordset row = administrator.openRecordset(sql);
        return row.eof() ? QString() : row.value(0).toText({});
    }

    const QString correct = QString::fromUtf16(password);
    TestDatabase database{TestEngine::PostgreSql};
    QTemporaryDir folder;
    Connection administrator;
};

TEST_F(ServerSession, TwoUsersWorkSideBySideEachWithHisRights) {
    Person ana(folder.path());
    Person luis(folder.path());
    ASSERT_TRUE(ana.signIn("ana", correct));
    ASSERT_TRUE(luis.signIn("LUIS", correct));
    EXPECT_EQ(ana.session.CompanyName(), QStringLiteral("Viento Norte"));
    EXPECT_EQ(ana.session.AccessRights(), QStringLiteral("RWXD"));
    EXPECT_EQ(luis.session.AccessRights(), QStringLiteral("R---"));
    EXPECT_EQ(luis.session.UserName(), QStringLiteral("luis"));
    ana.session.Audit(AuditChange, QStringLiteral("001:COMISION:O'NEIL"));
    luis.session.Audit(AuditRead, QStringLiteral("001:COMISION:C1"));
    EXPECT_EQ(value(QStringLiteral("SELECT Texto FROM ses_auditoria WHERE Usuario = 'ANA' AND Codigo = 5")),
              QStringLiteral("001:COMISION:O'NEIL"));
    EXPECT_EQ(value(QStringLiteral("SELECT Equipo FROM ses_auditoria WHERE Usuario = 'luis'")),
              QStringLiteral("pc-LUIS"));
    Administration(administrator)
        .setRights(QStringLiteral("luis"), QStringLiteral("veltrano"), QStringLiteral("RW--"));
    luis.clock.pass(2);
    EXPECT_EQ(luis.session.AccessRights(), QStringLiteral("RW--"));
}

TEST_F(ServerSession, ThreeWrongPasswordsLockTheUserOnEveryMachine) {
    Person ana(folder.path());
    const LoginAnswer wrong{QStringLiteral("001"), QStringLiteral("ana"), QStringLiteral("mala")};
    ana.prompt.answers = {wrong, wrong, wrong};
    bool cancel = false;
    ana.session.Initialize(ana.connection, {}, QStringLiteral("VELTRANO"), {}, {}, cancel);
    EXPECT_TRUE(cancel);
    Person other(folder.path());
    EXPECT_FALSE(other.signIn("Ana", correct));
    ASSERT_EQ(other.prompt.refusals.size(), 1);
    EXPECT_TRUE(other.prompt.refusals.first().contains(u"bloqueado")) << qPrintable(other.prompt.refusals[0]);
    EXPECT_TRUE(other.signIn("luis", correct));
}

TEST_F(ServerSession, AUserOfTheServerWhoMayNotWriteConsultsOnly) {
    administrator.execute(QStringLiteral("CREATE ROLE consulta LOGIN PASSWORD 'Sólo leer; 1'"));
    administrator.execute(QStringLiteral("GRANT SELECT ON ALL TABLES IN SCHEMA public TO consulta"));
    ConnectString options = ConnectString::parse(with("user", QStringLiteral("consulta")));
    options.setValue(QStringLiteral("password"), QStringLiteral("Sólo leer; 1"));
    writeProfile(options.toString(), QStringLiteral("ana"));
    {
        Person ana(folder.path());
        ASSERT_TRUE(ana.signIn("ana", correct));
        EXPECT_TRUE(ana.session.Warning().contains(u"sólo lectura"));
        EXPECT_EQ(ana.session.AccessRights(), QStringLiteral("R-X-"));
    }
    options.setValue(QStringLiteral("password"), QStringLiteral("otra"));
    const RunTimeError error = refused(options.toString());
    EXPECT_EQ(error.number(), ErrorLoginFailed);
    EXPECT_TRUE(
        error.description().startsWith(u"El servidor no acepta el usuario o la contraseña del perfil"))
        << error.what();
    EXPECT_FALSE(error.description().contains(u"otra")) << "a password in a message";
    administrator.execute(QStringLiteral("DROP OWNED BY consulta"));
    administrator.execute(QStringLiteral("DROP ROLE consulta"));
}

TEST_F(ServerSession, WhatTheProfileNamesWronglyIsToldInOneMessage) {
    RunTimeError error = refused(with("database", QStringLiteral("nohay")));
    EXPECT_EQ(error.number(), ErrorNoSuchDatabase);
    EXPECT_TRUE(error.description().startsWith(u"El servidor no tiene la base de datos del perfil: «nohay»"))
        << error.what();
    error = refused(with("user", QStringLiteral("nadie")));
    EXPECT_EQ(error.number(), ErrorLoginFailed) << error.what();
    error = refused(with("host", folder.path()));
    EXPECT_EQ(error.number(), ErrorConnectionLost);
    EXPECT_TRUE(error.description().startsWith(u"No se puede conectar con la base de datos")) << error.what();
    const TestDatabase empty(TestEngine::PostgreSql, TestDatabase::Tables::None);
    error = refused(empty.connectString());
    EXPECT_EQ(error.number(), ErrorDatabaseFormat);
    EXPECT_TRUE(error.description().contains(u"no es una base de datos de Quorvane ERP")) << error.what();
    error = refused(QStringLiteral("Driver=nada"));
    EXPECT_EQ(error.number(), ErrorCannotCreateObject);
}

TEST_F(ServerSession, AServerThatComesBackGetsTheEntriesOfTheTimeBetween) {
    Person ana(folder.path());
    ASSERT_TRUE(ana.signIn("ana", correct));
    EXPECT_EQ(ana.session.AccessRights(), QStringLiteral("RWXD"));
    TestDatabase::cluster().kill();
    ana.clock.pass(2);
    EXPECT_EQ(ana.session.AccessRights(), QStringLiteral("RWXD"));
    ana.session.Audit(AuditChange, QStringLiteral("uno"));
    TestDatabase::cluster().start();
    ana.session.Audit(AuditChange, QStringLiteral("dos"));
    administrator.open(database.connectString());
    EXPECT_EQ(value(QStringLiteral("SELECT count(*) n FROM ses_auditoria WHERE Texto IN ('uno', 'dos')")),
              QStringLiteral("2"));
}

} // namespace
