// `revisar`: a healthy database says so, and everything that is wrong is named.
#include "platform/quorvane32/session/Accounts.h"
#include "tests/tools/AdminSupport.h"
#include <QFile>

namespace {

using namespace quorvane;
using namespace quorvane::admin;
using namespace quorvane::admin::test;

class CheckOrder : public EveryEngine {
protected:
    void SetUp() override { desk.loadSmallCompanies(); }
    /// Expects exactly these findings, in this order.
    void expectFindings(const QStringList& wanted) {
        EXPECT_EQ(desk.run(u"revisar"_s), ExitFindings);
        QStringList found;
        for (const QString& line : desk.out.split(u'\n'))
            if (line.startsWith(u"OJO   "))
                found.append(line.mid(6));
        EXPECT_EQ(found, wanted) << qPrintable(desk.out);
    }
    void rewriteProfile(const QString& more) const {
        Profile profile = Profile::load(desk.folder());
        profile.connectString += more;
        profile.save(desk.folder());
    }
};

TEST_P(CheckOrder, TheDemonstrationIsHealthy) {
    desk.execute(u"DELETE FROM ses_usuario"_s);
    for (const auto* table : {u"ses_derecho", u"ses_empresa", u"gen_tabcod", u"producto", u"Comisiones",
                              u"ComisionesD", u"documento", u"documentod"})
        desk.execute(u"DELETE FROM "_s + QString::fromUtf16(table));
    desk.loadDemonstration();
    EXPECT_EQ(desk.run(u"revisar"_s), ExitSuccess) << qPrintable(desk.out);
    EXPECT_TRUE(desk.out.endsWith(u"La revisión no encontró nada que corregir.\n"));
    EXPECT_TRUE(desk.out.contains(u"15 tablas con sus columnas, claves e índices"));
    EXPECT_TRUE(desk.out.contains(GetParam() == TestEngine::Sqlite ? u"SQLite 3."_s : u"PostgreSQL "_s));
    EXPECT_FALSE(desk.out.contains(u"nota  Los textos no se ordenan"));
    EXPECT_EQ(desk.errors, QString());
}

TEST_P(CheckOrder, NothingIsChangedByIt) {
    const QString before = desk.value(u"SELECT count(*) n FROM ses_auditoria"_s);
    rewriteProfile(u";ReadOnly=S"_s);
    EXPECT_EQ(desk.run(u"revisar"_s), ExitSuccess) << qPrintable(desk.out);
    EXPECT_EQ(desk.value(u"SELECT count(*) n FROM ses_auditoria"_s), before);
}

TEST_P(CheckOrder, MissingTablesColumnsIndexesAndKeysAreNamed) {
    desk.execute(u"DROP TABLE relctacteprod"_s);
    desk.execute(u"ALTER TABLE documentod DROP COLUMN Impuesto"_s);
    desk.execute(u"DROP INDEX documento_fecha"_s);
    expectFindings({u"Falta la tabla relctacteprod"_s,
                    u"Tabla documento: falta un índice por (Empresa, Fecha)"_s,
                    GetParam() == TestEngine::Sqlite
                        ? u"Tabla documentod: falta la columna Impuesto (decimal(18,6))"_s
                        : u"Tabla documentod: falta la columna Impuesto (numeric(18,6))"_s});
}

TEST_P(CheckOrder, ATypeOfAnotherKindAndAMissingKeyAreNamed) {
    desk.execute(u"DROP TABLE ListaPrecio"_s);
    desk.execute(
        u"CREATE TABLE ListaPrecio (Empresa varchar(10), LisPrecio integer, Descripcion varchar(50), "
        "FechaInicio varchar(10), FechaFinal date)"_s);
    const bool caseless = GetParam() != TestEngine::Sqlite;
    const QString text = caseless ? u"citext"_s : u"text"_s;
    EXPECT_EQ(desk.run(u"revisar"_s), ExitFindings);
    EXPECT_TRUE(desk.out.contains(u"Tabla ListaPrecio: la columna LisPrecio es integer y no "_s + text))
        << qPrintable(desk.out);
    EXPECT_TRUE(desk.out.contains(u"Tabla ListaPrecio: la columna FechaInicio es "));
    EXPECT_TRUE(desk.out.contains(u"Tabla ListaPrecio: falta la clave única (Empresa, LisPrecio)"));
    EXPECT_FALSE(desk.out.contains(u"FechaFinal es"));
    // Texts that tell case apart are wrong on a server whose other texts do not.
    EXPECT_EQ(desk.out.contains(u"columna Descripcion es character"), caseless);
}

TEST_P(CheckOrder, RowsThatBelongToNothingAreNamed) {
    desk.execute(u"INSERT INTO ComisionesD (Empresa, Codigo, Tipo, Concepto, FechaInicio, FechaFinal) VALUES "
                 "('001', 'PERDIDO', 'Producto', 'A', '01/01/1997', '31/12/1997')"_s);
    desk.execute(u"INSERT INTO Comisiones (Empresa, Codigo, FechaInicio, FechaFinal) VALUES "
                 "('001', 'mixta', '01/12/1998', '31/12/1999')"_s);
    desk.execute(u"INSERT INTO documentod (Empresa, TipoDocto, Numero, IdCtaCte, Linea, Producto) VALUES "
                 "('002', 'FACTURA', 'X9', 'A', 1, 'P')"_s);
    desk.execute(
        u"INSERT INTO ses_derecho (Usuario, Programa, Derechos) VALUES ('ido', 'VELTRANO', 'R---')"_s);
    desk.execute(u"INSERT INTO ses_empresa (Empresa, Nombre) VALUES ('003', 'Vacía')"_s);
    expectFindings(
        {u"Empresa 001: el esquema PERDIDO del 01/01/1997 al 31/12/1997 no existe y tiene 1 líneas"_s,
         u"Empresa 001: el esquema MIXTA rige del 01/07/1996 al 31/12/1998 y también del 01/12/1998 al "
         "31/12/1999"_s,
         u"Empresa 002: el documento FACTURA X9 no existe y tiene 1 líneas"_s,
         u"El usuario «ido» no existe y tiene derechos en VELTRANO"_s,
         u"La empresa «003» no tiene configuración en gen_tabcod"_s});
}

TEST_P(CheckOrder, UsersWhoCannotWorkAreNamed) {
    desk.run(u"alta eva"_s);
    Connection connection;
    connection.open(desk.database.connectString());
    for (int i = 0; i < Accounts::mostFailures; ++i)
        Accounts(connection).refusal(u"demo"_s, u"mala"_s, QDateTime::currentDateTime());
    desk.run(u"bloquear lectura"_s);
    expectFindings({u"El usuario «demo» está bloqueado por contraseñas incorrectas"_s,
                    u"El usuario «eva» no tiene derechos en ningún programa"_s});
    EXPECT_TRUE(desk.out.contains(u"nota  El usuario «lectura» está bloqueado por el administrador"));
}

TEST_P(CheckOrder, AProfileThatOthersReadHoldsNoPassword) {
#ifdef Q_OS_WIN
    GTEST_SKIP() << "here the toolkit reads who may read a file, but does not write it";
#endif
    rewriteProfile(u";Password=secreta"_s);
    const QString file = Profile::fileName(desk.folder());
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
    expectFindings(
        {u"El perfil %1 tiene una contraseña y otros usuarios del equipo pueden leerlo"_s.arg(file)});
    EXPECT_FALSE(desk.out.contains(u"secreta"));
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner));
    EXPECT_EQ(desk.run(u"revisar"_s), ExitSuccess) << qPrintable(desk.out);
}

TEST_P(CheckOrder, ACompanyOfTheProfileThatIsNotThereIsNamed) {
    desk.execute(u"DELETE FROM ses_empresa WHERE Empresa = '002'"_s);
    expectFindings({u"El perfil nombra la empresa «002», que no existe"_s});
}

TEST_P(CheckOrder, AnOlderLayoutIsWorkedWithButTold) {
    desk.execute(u"UPDATE ses_esquema SET Version = 1"_s);
    expectFindings({u"Versión 1 de las tablas; la actual es la 2: «quorvane-admin tablas» las actualiza"_s});
}

TEST_P(CheckOrder, AMissingTableSpoilsNoOtherCheck) {
    desk.execute(u"DROP TABLE Comisiones"_s);
    EXPECT_EQ(desk.run(u"revisar"_s), ExitFindings);
    EXPECT_TRUE(desk.out.contains(u"OJO   Falta la tabla Comisiones\n")) << qPrintable(desk.out);
    EXPECT_TRUE(desk.out.contains(u"OJO   No se pudo terminar de revisar los datos: "));
    EXPECT_TRUE(desk.out.contains(u"bien  Perfil "));
}

INSTANTIATE_TEST_SUITE_P(Engines, CheckOrder, testing::ValuesIn(dalvora::test::catalogueEngines),
                         dalvora::test::engineName);

TEST(EmbeddedCheck, ADamagedFileIsTold) {
    AdminDesk desk(TestEngine::Sqlite);
    desk.loadDemonstration();
    desk.value(u"SELECT 1 FROM ses_esquema"_s); // the log goes into the file with the last close
    const QString path = desk.database.connectString().section(u"Database="_s, 1).section(u';', 0, 0);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    constexpr qint64 page = 4096;
    ASSERT_TRUE(file.seek(file.size() / page / 2 * page));
    file.write(QByteArray(page, '\x5a'));
    file.close();
    const int result = desk.run(u"revisar"_s);
    EXPECT_EQ(result, ExitFindings) << qPrintable(desk.errors);
    EXPECT_TRUE(desk.out.contains(u"El archivo está dañado: ") || desk.out.contains(u"dañada"))
        << qPrintable(desk.out);
}

} // namespace
