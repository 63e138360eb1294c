// The profile is damaged, missing, or somebody wrote statements into it.
#include "tests/faults/ProgramFixture.h"
#include "tests/faults/ProgramRun.h"
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <random>
#include <unistd.h>

namespace dalvora::test {

namespace {

constexpr const char* goodBase = "[Base]\nConexion=Driver=sqlite;Database=quorvane.db;Timeout=500\n";
constexpr const char* goodCompanies = "[Empresas]\nCodigos=001,002\nPredeterminada=001\n";
constexpr const char* goodSignIn = "[Ingreso]\nUsuario=ana\nAutomatico=S\n";

class ProfileFile : public testing::Test {
protected:
    /// Writes the profile, starts the program, and expects its start to end with one message that begins so
    /// behind the fixed text. Gives the whole message back.
    QString expectTold(const QByteArray& profile, const QString& begin) {
        writeFile(company.profileFile(), profile);
        const QStringList before = company.contents();
        const ProgramRun run(company.path(), files);
        EXPECT_FALSE(run.crashed) << profile.left(200).constData();
        EXPECT_EQ(run.result, 1) << profile.left(200).constData();
        EXPECT_TRUE(run.told.startsWith(u"Quorvane ERP - Dalvora: Error al iniciar aplicación\n"_s + begin))
            << qPrintable(run.told);
        EXPECT_EQ(run.told.count(u'\n'), 2) << qPrintable(run.told);
        EXPECT_LT(run.told.size(), 500) << "no message box holds that";
        EXPECT_EQ(company.contents(), before);
        return run.told;
    }
    QString damaged() const { return u"321 - El perfil %1 está dañado (línea "_s.arg(company.profileFile()); }

    const TestCompany company;
    const ProgramFiles files;
};

QByteArray rubbish(int size) {
    std::mt19937 random(19'960'704);
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

} // namespace

TEST_F(ProfileFile, BinaryRubbishIsDamage) {
    for (const int size : {1, 100, 60'000})
        expectTold(rubbish(size), damaged());
}

TEST_F(ProfileFile, AnEmptyOneIsDamage) {
    EXPECT_TRUE(expectTold({}, damaged()).contains(u"falta la clave Conexion"_s));
}

TEST_F(ProfileFile, TenMegabytesAreDamageAndToldAtOnce) {
    QElapsedTimer clock;
    clock.start();
    expectTold(QByteArray("[Base]\n") + QByteArray(10'000'000, 'x'), damaged());
    expectTold(QByteArray("; comentario\n").repeated(1'000'000), damaged());
    EXPECT_LT(clock.elapsed(), 10'000);
}

TEST_F(ProfileFile, UnknownKeysAndSectionsAreDamageAtTheirLine) {
    EXPECT_TRUE(expectTold(QByteArray(goodBase) + goodCompanies + goodSignIn + "Contraseña=x\n",
                           damaged() + u"9): "_s)
                    .contains(u"clave desconocida «Contraseña»"_s));
    expectTold(QByteArray(goodBase) + "[Otra]\nx=1\n", damaged() + u"3): sección desconocida «Otra»"_s);
    // Whatever stands there, the message stays short.
    expectTold(QByteArray(goodBase) + QByteArray(50'000, 'k') + "=1\n", damaged() + u"3): "_s);
    expectTold(QByteArray(goodBase) + '[' + QByteArray(50'000, 's') + "]\n", damaged() + u"3): "_s);
    expectTold(QByteArray("[Ingreso]\nAutomatico=") + QByteArray(50'000, 'v') + '\n', damaged() + u"2): "_s);
}

TEST_F(ProfileFile, AConnectStringThatLeadsNowhereIsTold) {
    const QByteArray rest = QByteArray(goodCompanies) + goodSignIn;
    expectTold("[Base]\nConexion=Driver=oracle;Database=x\n" + rest,
               u"429 - Este programa no tiene controlador para la base de datos 'oracle'"_s);
    expectTold("[Base]\nConexion=basura\n" + rest, u"429 - "_s);
    expectTold("[Base]\nConexion=Driver=sqlite\n" + rest, u"53 - "_s);
    expectTold("[Base]\nConexion=Driver=sqlite;Database=/no/existe/x.db\n" + rest,
               u"53 - No se encontró la base de datos /no/existe/x.db"_s);
}

TEST_F(ProfileFile, AStrangeTimeOutDoesNotKeepTheProgramFromStarting) {
    for (const char* time : {"-1", "abc", "99999999999999", "0", ""}) {
        writeFile(company.profileFile(),
                  QByteArray("[Base]\nConexion=Driver=sqlite;Database=quorvane.db;Timeout=") + time + '\n' +
                      goodCompanies + goodSignIn);
        const ProgramRun run(company.path(), files);
        EXPECT_EQ(run.result, 0) << time;
        EXPECT_EQ(run.told, QString()) << time;
    }
}

TEST_F(ProfileFile, StatementsInItAreTextsThatNameNothing) {
    for (const QByteArray& hostile :
         {QByteArray("001'; DROP TABLE Comisiones; --"), QByteArray("' OR '1'='1"),
          QByteArray("001' UNION SELECT Usuario, Clave FROM ses_usuario --")}) {
        expectTold(QByteArray(goodBase) + "[Empresas]\nCodigos=" + hostile + '\n' + goodSignIn,
                   u"5 - El perfil %1 no nombra ninguna empresa"_s.arg(company.profileFile()));
        expectTold(QByteArray(goodBase) + goodCompanies + "[Ingreso]\nAutomatico=S\nUsuario=" + hostile +
                       '\n',
                   u"5 - El usuario «%1» del perfil "_s.arg(QString::fromUtf8(hostile)));
        expectTold(
            QByteArray(goodBase) + "[Empresas]\nCodigos=001\nPredeterminada=" + hostile + '\n' + goodSignIn,
            u"5 - La empresa «%1» no existe o no está en el perfil."_s.arg(QString::fromUtf8(hostile)));
    }
}

TEST_F(ProfileFile, OneThatMayNotBeReadIsTold) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser can start a program as another user";
    QFile::setPermissions(company.path(), QFile::Permissions(0x7777));
    QFile::setPermissions(company.profileFile(), QFile::ReadOwner | QFile::WriteOwner);
    const ProgramRun run(company.path(), files, {}, {}, ProgramRun::User::Unprivileged);
    EXPECT_EQ(run.result, 1);
    EXPECT_TRUE(run.told.contains(u"70 - No se puede leer el perfil "_s)) << qPrintable(run.told);
}

TEST_F(ProfileFile, ALostOneIsMadeAnewAndTheDatabaseStays) {
    QFile::remove(company.profileFile());
    const QStringList before = company.contents();
    const ProgramRun run(company.path(), files);
    EXPECT_EQ(run.result, 1) << "this company does not know the user of the demonstration";
    EXPECT_TRUE(run.told.contains(u"5 - El usuario «demo» del perfil "_s)) << qPrintable(run.told);
    EXPECT_EQ(company.contents(), before);
}

// Every character that means something in a profile, a connect string or a statement.
TEST(ProfileFolder, MayHaveAnyName) {
    const QTemporaryDir parent;
    const ProgramFiles files;
    for (const QString& name : {u"con blancos"_s, u"p;unto y coma"_s, u"llaves {x}"_s,
                                u"com'illa \"doble\""_s, u"igual=a#b%20"_s, u"ñandú 😀"_s}) {
        const QString folder = parent.filePath(name);
        ASSERT_TRUE(QDir().mkpath(folder));
        const TestCompany company(500, folder);
        SchemeStates(u"C1"_s, 5).store(company, 1);
        const ProgramRun run(folder, files, {}, u"C1"_s);
        EXPECT_EQ(run.told, QString()) << qPrintable(name);
        EXPECT_TRUE(run.found.endsWith(u"\ngrabado\n"_s)) << qPrintable(name);
    }
}

} // namespace dalvora::test
