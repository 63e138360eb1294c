// The administrator's program makes a company on a PostgreSQL server.
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/Profile.h"
#include "tests/support/TestDatabase.h"
#include "tools/quorvane-admin/AdminProgram.h"
#include <QTextStream>

namespace {

using namespace quorvane;
using namespace quorvane::admin;
using dalvora::test::TestDatabase;
using dalvora::test::TestEngine;

class ServerAdmin : public testing::Test {
protected:
    void SetUp() override {
        Profile profile;
        profile.connectString = database.connectString();
        profile.companies = {QStringLiteral("001"), QStringLiteral("002")};
        profile.defaultCompany = QStringLiteral("001");
        profile.save(folder.path());
    }
    int run(const char* words) {
        QStringList arguments{QStringLiteral("--perfil"), folder.path()};
        arguments += QString::fromUtf8(words).split(u' ', Qt::SkipEmptyParts);
        out.clear();
        errors.clear();
        QTextStream outStream(&out);
        QTextStream errorStream(&errors);
        return AdminProgram(outStream, errorStream, [] { return QStringLiteral("Una-larga-1"); })
            .run(arguments);
    }
    QString count(const char* table) const {
        Connection connection;
        connection.open(database.connectString());
        return connection.openRecordset(QStringLiteral("SELECT count(*) n FROM ") + QLatin1String(table))
            .value(0)
            .toText({});
    }

    TestDatabase database{TestEngine::PostgreSql, TestDatabase::Tables::None};
    QTemporaryDir folder;
    QString out;
    QString errors;
};

TEST_F(ServerAdmin, AnEmptyDatabaseBecomesTheDemonstrationCompany) {
    EXPECT_EQ(run("usuarios"), ExitFailure);
    EXPECT_TRUE(errors.contains(u"no es una base de datos de Quorvane ERP")) << qPrintable(errors);
    EXPECT_EQ(run("tablas"), ExitSuccess) << qPrintable(errors);
    EXPECT_EQ(run("usuarios"), ExitSuccess);
    EXPECT_EQ(run("demostracion"), ExitSuccess) << qPrintable(errors);
    EXPECT_EQ(count("documento"), QStringLiteral("858"));
    EXPECT_EQ(run("usuarios"), ExitSuccess);
    EXPECT_TRUE(out.contains(u"VELTRANO RWXD")) << qPrintable(out);
    EXPECT_EQ(run("alta eva Eva"), ExitSuccess) << qPrintable(errors);
    EXPECT_EQ(run("auditoria"), ExitSuccess) << qPrintable(errors);
    EXPECT_TRUE(out.contains(u"USUARIO:eva:ALTA")) << qPrintable(out);
}

TEST_F(ServerAdmin, WhatIsThereIsNeverMadeTwice) {
    EXPECT_EQ(run("tablas"), ExitSuccess);
    EXPECT_EQ(run("tablas"), ExitFailure);
    EXPECT_EQ(run("demostracion"), ExitSuccess);
    const QString documents = count("documento");
    EXPECT_EQ(run("demostracion"), ExitFailure);
    EXPECT_TRUE(errors.contains(u"(2627)")) << qPrintable(errors);
    EXPECT_EQ(count("documento"), documents);
}

} // namespace
