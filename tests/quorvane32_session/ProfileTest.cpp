#include "platform/quorvane32/session/Profile.h"

#include "tests/quorvane32_session/SessionSupport.h"
#include <QDir>
#include <QFile>

namespace {

using namespace quorvane;
using namespace quorvane::test;

class ProfileTest : public testing::Test {
protected:
    RunTimeError damage(const QByteArray& text) {
        folder.writeProfile(text);
        return errorOf([&] { Profile::load(folder.path()); });
    }
    SessionFolder folder;
};

TEST_F(ProfileTest, ComesBackAsItWasSaved) {
    folder.setAutomatic(QStringLiteral("ana"));
    const Profile profile = Profile::load(folder.path());
    EXPECT_EQ(profile.connectString, QStringLiteral("Driver=sqlite;Database=quorvane.db;Timeout=5000"));
    EXPECT_EQ(profile.companies, QStringList({QStringLiteral("001"), QStringLiteral("002")}));
    EXPECT_EQ(profile.defaultCompany, QStringLiteral("001"));
    EXPECT_EQ(profile.user, QStringLiteral("ana"));
    EXPECT_TRUE(profile.automatic);
}

TEST_F(ProfileTest, PassesOverCommentsBlanksAndCase) {
    folder.writeProfile("; nota\r\n# nota\r\n\r\n [ base ]\r\n CONEXION = Driver=sqlite;Database=/x/y.db \r\n"
                        "[EMPRESAS]\ncodigos = 007 , 008,\n");
    const Profile profile = Profile::load(folder.path());
    EXPECT_EQ(profile.connectString, QStringLiteral("Driver=sqlite;Database=/x/y.db"));
    EXPECT_EQ(profile.companies, QStringList({QStringLiteral("007"), QStringLiteral("008")}));
    EXPECT_EQ(profile.defaultCompany, QStringLiteral("007"));
    EXPECT_FALSE(profile.automatic);
}

TEST_F(ProfileTest, MakesARelativeDatabaseFileAbsolute) {
    Profile profile;
    profile.connectString = QStringLiteral("Driver=SQLite;Database=datos/q.db");
    EXPECT_TRUE(profile.resolvedConnectString(QStringLiteral("/home/ana")).contains(u"/home/ana/datos/q.db"));
    profile.connectString = QStringLiteral("Driver=sqlite;Database=/srv/q.db");
    EXPECT_TRUE(profile.resolvedConnectString(QStringLiteral("/home/ana")).contains(u"=/srv/q.db"));
    profile.connectString = QStringLiteral("Driver=odbc;Database=erp");
    EXPECT_TRUE(profile.resolvedConnectString(QStringLiteral("/home/ana")).contains(u"=erp"));
}

TEST_F(ProfileTest, AMissingFileIsError53WithItsName) {
    const RunTimeError error = errorOf([&] { Profile::load(folder.path() + QStringLiteral("/nada")); });
    EXPECT_EQ(error.number(), ErrorFileNotFound);
    EXPECT_TRUE(error.description().contains(QDir::toNativeSeparators(QStringLiteral("nada/quorvane.ini"))))
        << qPrintable(error.description());
}

TEST_F(ProfileTest, DamageIsToldWithFileAndLine) {
    struct Case {
        const char* text;
        const char16_t* told;
    };
    const Case cases[] = {
        {"[Base]\nConexion=x\nbasura\n", u"(línea 3): se esperaba clave=valor y dice «basura»"},
        {"Conexion=x\n", u"(línea 1): falta la sección"},
        {"[Bases]\n", u"(línea 1): sección desconocida «Bases»"},
        {"[Base]\nConnexion=x\n", u"(línea 2): clave desconocida «Connexion»"},
        {"[Base]\n=x\n", u"(línea 2): se esperaba clave=valor"},
        {"[Base]\nConexion=x\n", u"falta la clave Codigos"},
        {"[Empresas]\nCodigos=001\n", u"falta la clave Conexion"},
        {"[Base]\nConexion=x\n[Empresas]\nCodigos= , \n", u"falta la clave Codigos"},
        {"[Ingreso]\nAutomatico=quizás\n", u"(línea 2): se esperaba S o N y dice «quizás»"},
        {"[Base]\nConexion=x\n[Empresas]\nCodigos=1\n[Ingreso]\nAutomatico=S\n",
         u"necesita la clave Usuario"},
        {"", u"falta la clave Conexion"},
        {"\xff\xfe\x00\x01", u"no es un perfil de texto"},
    };
    for (const Case& entry : cases) {
        const RunTimeError error = damage(entry.text);
        EXPECT_EQ(error.number(), ErrorFileFormat);
        EXPECT_TRUE(error.description().contains(QStringView(entry.told))) << qPrintable(error.description());
        EXPECT_TRUE(error.description().contains(QDir::toNativeSeparators(folder.profileFile())));
    }
}

TEST_F(ProfileTest, AnyChangedByteGivesAProfileOrItsError) {
    folder.setAutomatic(QStringLiteral("ana"));
    QFile file(folder.profileFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray sound = file.readAll();
    file.close();
    for (qsizetype i = 0; i < sound.size(); ++i) {
        for (const char byte : {'\n', '[', '\xc3'}) {
            QByteArray changed = sound;
            changed[i] = byte;
            folder.writeProfile(changed);
            try {
                EXPECT_FALSE(Profile::load(folder.path()).companies.isEmpty());
            } catch (const RunTimeError& error) {
                EXPECT_EQ(error.number(), ErrorFileFormat) << i;
            }
        }
    }
}

TEST_F(ProfileTest, AHugeFileIsNoProfile) {
    EXPECT_EQ(damage("[Base]\n" + QByteArray(1 << 20, ';')).number(), ErrorFileFormat);
}

TEST_F(ProfileTest, AFolderInItsPlaceCannotBeRead) {
    QFile::remove(folder.profileFile());
    QDir().mkdir(folder.profileFile());
    EXPECT_EQ(errorOf([&] { Profile::load(folder.path()); }).number(), ErrorPermissionDenied);
}

TEST_F(ProfileTest, TheFolderComesFromTheEnvironmentOrTheUsersConfiguration) {
    qputenv("QUORVANE_HOME", "/srv/quorvane/");
    EXPECT_EQ(Profile::defaultFolder(), QStringLiteral("/srv/quorvane"));
    qunsetenv("QUORVANE_HOME");
    EXPECT_TRUE(Profile::defaultFolder().endsWith(u"/quorvane"));
    EXPECT_TRUE(QDir::isAbsolutePath(Profile::defaultFolder()));
}

} // namespace
