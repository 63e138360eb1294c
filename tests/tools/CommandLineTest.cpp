// What a person meets before any database is looked at: forms, help, mistakes, exit codes.
#include "tests/tools/AdminSupport.h"

namespace {

using namespace quorvane::admin;
using namespace quorvane::admin::test;

class CommandLineTest : public testing::Test {
protected:
    AdminDesk desk{TestEngine::Sqlite};

    void expectUsage(const QString& words, const QString& told) {
        EXPECT_EQ(desk.run(words), ExitUsage) << qPrintable(words);
        EXPECT_EQ(desk.errors, u"Error: "_s + told + u". Vea «quorvane-admin ayuda».\n"_s);
        EXPECT_EQ(desk.out, QString());
        EXPECT_EQ(desk.asked, 0);
    }
};

TEST_F(CommandLineTest, HelpNamesEveryOrderAndExitCode) {
    for (const auto* words : {u"--help", u"ayuda", u"--ayuda"}) {
        ASSERT_EQ(desk.run(QString::fromUtf16(words)), ExitSuccess);
        for (const auto* order :
             {u"tablas", u"demostracion", u"empresas", u"empresa CODIGO NOMBRE", u"usuarios",
              u"alta USUARIO [NOMBRE]", u"baja", u"clave", u"derechos", u"bloquear", u"desbloquear",
              u"auditoria [N]", u"trasladar EMPRESA --a CARPETA", u"revisar"})
            EXPECT_TRUE(desk.out.contains(u"\n  "_s + QString::fromUtf16(order)))
                << qPrintable(QString::fromUtf16(order));
        EXPECT_TRUE(desk.out.contains(u"0 hecho, 1 error, 2 línea de órdenes incorrecta, 3 la revisión"));
        for (const QString& line : desk.out.split(u'\n'))
            EXPECT_LE(line.size(), 110) << qPrintable(line);
    }
}

TEST_F(CommandLineTest, HelpOfAnOrderTellsItsOptions) {
    ASSERT_EQ(desk.run(u"ayuda auditoria"_s), ExitSuccess);
    EXPECT_TRUE(desk.out.startsWith(u"quorvane-admin [--perfil CARPETA] auditoria [N] [OPCIONES]\n"));
    EXPECT_TRUE(desk.out.contains(u"--desde DD/MM/AAAA"));
    const QString text = desk.out;
    ASSERT_EQ(desk.run(u"auditoria --help"_s), ExitSuccess);
    EXPECT_EQ(desk.out, text);
    expectUsage(u"ayuda volar"_s, u"orden desconocida «volar»"_s);
}

TEST_F(CommandLineTest, TheVersionIsTold) {
    ASSERT_EQ(desk.run(u"--version"_s), ExitSuccess);
    EXPECT_EQ(desk.out, u"quorvane-admin " PROGRAM_VERSION "\n"_s);
}

TEST_F(CommandLineTest, AWrongLineIsOneSentenceAndExitCodeTwo) {
    expectUsage(u""_s, u"falta la orden"_s);
    expectUsage(u"borrar todo"_s, u"orden desconocida «borrar»"_s);
    expectUsage(u"derechos eva"_s, u"la forma de la orden es: derechos USUARIO PROGRAMA LETRAS"_s);
    expectUsage(u"usuarios eva"_s, u"la forma de la orden es: usuarios"_s);
    expectUsage(u"usuarios --csv"_s, u"opción desconocida «--csv»"_s);
    expectUsage(u"auditoria --desde"_s, u"falta el valor de la opción --desde DD/MM/AAAA"_s);
    expectUsage(u"auditoria --csv=si"_s, u"la opción --csv no lleva valor"_s);
    expectUsage(u"auditoria --csv --csv"_s, u"la opción --csv está dos veces"_s);
    expectUsage(u"auditoria --desde 31/02/2026"_s, u"«31/02/2026» no es una fecha: --desde DD/MM/AAAA"_s);
    expectUsage(u"auditoria --desde 2/1/2026 --hasta 1/1/2026"_s,
                u"el día de --hasta es anterior al de --desde"_s);
    expectUsage(u"auditoria muchas"_s, u"«muchas» no es una cantidad de entradas"_s);
    expectUsage(u"auditoria 0"_s, u"«0» no es una cantidad de entradas"_s);
    expectUsage(u"trasladar 001"_s, u"falta --a CARPETA, el perfil de la base de datos de destino"_s);
}

TEST_F(CommandLineTest, NoOrderTakesAPasswordFromTheLine) {
    const QString told = u"las contraseñas no se escriben en la línea de órdenes: el programa las pide"_s;
    expectUsage(u"alta eva --clave Una-larga-1"_s, told);
    expectUsage(u"clave eva --password=Una-larga-1"_s, told);
    expectUsage(u"clave eva Una-larga-1"_s, u"la forma de la orden es: clave USUARIO"_s);
}

TEST_F(CommandLineTest, OptionsStandAnywhereAndRightsAreNone) {
    ASSERT_EQ(desk.run(u"alta eva"_s), ExitSuccess);
    EXPECT_EQ(desk.run(u"derechos eva VELTRANO ----"_s), ExitSuccess) << qPrintable(desk.errors);
    EXPECT_EQ(desk.run(u"derechos eva VELTRANO --x-"_s), ExitSuccess) << qPrintable(desk.errors);
    EXPECT_EQ(desk.value(u"SELECT Derechos FROM ses_derecho"_s), u"--X-"_s);
    EXPECT_EQ(desk.run(u"--usuario=nadie auditoria --csv"_s), ExitSuccess) << qPrintable(desk.errors);
}

TEST_F(CommandLineTest, WithoutAProfileTheMissingFileIsNamed) {
    const QTemporaryDir empty;
    QString out;
    QString errors;
    QTextStream outStream(&out);
    QTextStream errorStream(&errors);
    AdminProgram program(outStream, errorStream, [] { return QString(); });
    EXPECT_EQ(program.run({u"usuarios"_s, u"--perfil"_s, empty.path()}), ExitFailure);
    EXPECT_EQ(errors,
              u"Error: No se encontró el perfil %1 (53)\n"_s.arg(quorvane::Profile::fileName(empty.path())));
}

} // namespace
