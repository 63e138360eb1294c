#include "platform/quorvane32/lookup/QueryFile.h"
#include "platform/quorvane32/lookup/LookupErrors.h"
#include "tests/quorvane32_lookup/RowsOf.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvane;

namespace {

const QByteArray whole = "; note\n"
                         "[Codigos]\n"
                         "titulo    = Códigos de Comisión\n"
                         "vacio     = No hay códigos.\n"
                         "parametro = Empresa\n"
                         "parametro = Hasta | fecha | 31/12/9999\n"
                         "columna   = Código | Codigo | 16\n"
                         "columna   = Inicio | Fecha  | 12 | fecha\n"
                         "columna   = Monto  | Monto  | 10 | numero 2\n"
                         "columna   = Valor  | Valor  | 10 | numero | centro\n"
                         "devuelve  = Codigo | Fecha\n"
                         "sql = select *\n"
                         "      ; a comment inside\n"
                         "    from t\n"
                         "    where e = $1$ and d <= $2$\n"
                         "\n"
                         "[Otra]\n"
                         "titulo=Otra\n"
                         "columna=A|A|5\n"
                         "devuelve=A\n"
                         "sql=select A from u\n";

QString fault(const QByteArray& text) {
    return rows::descriptionOf([&] { (void)QueryFile::parse(text, "C:\\x\\D.qry"); });
}

QString faultAt(int line, const QString& reason) {
    return QStringLiteral("El archivo de consultas 'C:\\x\\D.qry' está dañado. Línea %1: %2")
        .arg(line)
        .arg(reason);
}

/// The whole file with one line replaced.
QByteArray with(const QByteArray& line, const QByteArray& other) {
    QByteArray text = whole;
    EXPECT_TRUE(text.contains(line));
    return text.replace(line, other);
}

} // namespace

TEST(QueryFileParse, ReadsEverythingOfAQuery) {
    const QueryFile file = QueryFile::parse(whole, "x");
    ASSERT_EQ(file.queries().size(), 2u);
    const QueryDefinition& query = file.query("Codigos");
    EXPECT_EQ(query.title, "Códigos de Comisión");
    EXPECT_EQ(query.emptyText, "No hay códigos.");
    ASSERT_EQ(query.parameters.size(), 2u);
    EXPECT_EQ(query.parameters[0].kind, ParameterKind::Text);
    EXPECT_EQ(query.parameters[1].name, "Hasta");
    EXPECT_EQ(query.parameters[1].kind, ParameterKind::Date);
    EXPECT_EQ(query.parameters[1].whenEmpty, "31/12/9999");
    ASSERT_EQ(query.columns.size(), 4u);
    EXPECT_EQ(query.columns[0].caption, "Código");
    EXPECT_EQ(query.columns[0].field, "Codigo");
    EXPECT_EQ(query.columns[0].width, 16);
    EXPECT_EQ(query.columns[0].format, ColumnFormat::Text);
    EXPECT_EQ(query.columns[0].alignment, ColumnAlignment::Left);
    EXPECT_EQ(query.columns[1].format, ColumnFormat::Date);
    EXPECT_EQ(query.columns[1].alignment, ColumnAlignment::Centre);
    EXPECT_EQ(query.columns[2].format, ColumnFormat::Number);
    EXPECT_EQ(query.columns[2].decimals, 2);
    EXPECT_EQ(query.columns[2].alignment, ColumnAlignment::Right);
    EXPECT_EQ(query.columns[3].decimals, -1);
    EXPECT_EQ(query.columns[3].alignment, ColumnAlignment::Centre);
    EXPECT_EQ(query.returned, (QStringList{"Codigo", "Fecha"}));
    EXPECT_EQ(query.sql, "select *\nfrom t\nwhere e = $1$ and d <= $2$");
}

TEST(QueryFileParse, FindsAQueryInAnyCase) {
    EXPECT_EQ(QueryFile::parse(whole, "x").query("CODIGOS").name, "Codigos");
}

TEST(QueryFileParse, AcceptsByteOrderMarkAndWindowsLineEnds) {
    QByteArray text = whole;
    text.replace("\n", "\r\n").prepend("\xEF\xBB\xBF");
    EXPECT_EQ(QueryFile::parse(text, "x").query("otra").sql, "select A from u");
    EXPECT_EQ(QueryFile::parse(text, "x").query("codigos").sql,
              "select *\nfrom t\nwhere e = $1$ and d <= $2$");
}

TEST(QueryFileParse, NamesAnUnknownQueryAndItsFile) {
    const QueryFile file = QueryFile::parse(whole, "C:\\x\\D.qry");
    const auto find = [&] { (void)file.query("Nada"); };
    EXPECT_EQ(rows::errorOf(find), ErrorItemNotFound);
    EXPECT_EQ(rows::descriptionOf(find),
              "La consulta 'Nada' no existe en el archivo de consultas 'C:\\x\\D.qry'");
}

TEST(QueryFileParse, DamageIsError321) {
    EXPECT_EQ(rows::errorOf([] { (void)QueryFile::parse("x", "y"); }), ErrorInvalidFileFormat);
}

TEST(QueryFileParse, TellsLineAndReasonOfDamage) {
    EXPECT_EQ(fault(with("vacio     = No", "\xFF\xFE = No")), faultAt(4, "el texto no está en UTF-8"));
    EXPECT_EQ(fault(with("vacio     = No hay códigos.", "hola")), faultAt(4, "falta el signo «=»"));
    EXPECT_EQ(fault(with("vacio     =", "vacia =")), faultAt(4, "la palabra 'vacia' no se conoce"));
    EXPECT_EQ(fault(with("vacio     =", "titulo =")), faultAt(4, "'titulo' está dos veces"));
    EXPECT_EQ(fault(with("vacio     = No hay códigos.", "vacio =")), faultAt(4, "'vacio' está vacío"));
    EXPECT_EQ(fault(with("vacio     =", "  vacio =")),
              faultAt(4, "una línea con sangría sólo puede continuar una sentencia sql"));
    EXPECT_EQ(fault(with("[Otra]", "[codigos]")), faultAt(17, "la consulta 'codigos' está dos veces"));
    EXPECT_EQ(fault(with("[Otra]", "[Otra")),
              faultAt(17, "el nombre de una consulta va entre corchetes y sólo lleva letras sin acento, "
                          "dígitos y «_»"));
    EXPECT_EQ(fault("titulo = x\n"), faultAt(1, "falta el nombre de la consulta entre corchetes"));
    EXPECT_EQ(fault(""), faultAt(1, "no hay ninguna consulta"));
    EXPECT_EQ(fault("; nada\n\n"), faultAt(3, "no hay ninguna consulta"));
}

TEST(QueryFileParse, TellsWhatIsWrongWithAColumnOrParameter) {
    EXPECT_EQ(fault(with("| 16", "| 0")), faultAt(7, "el ancho de una columna va de 1 a 200 caracteres"));
    EXPECT_EQ(fault(with("| 16", "| mucho")), faultAt(7, "el ancho de una columna va de 1 a 200 caracteres"));
    EXPECT_EQ(fault(with(" | 16", "")),
              faultAt(7, "una columna se escribe: título | campo | ancho | formato | alineación"));
    EXPECT_EQ(fault(with("| numero 2", "| numero 99")),
              faultAt(9, "los decimales de un número van de 0 a 10"));
    EXPECT_EQ(fault(with("| numero 2", "| hora")), faultAt(9, "el formato 'hora' no se conoce"));
    EXPECT_EQ(fault(with("| centro", "| arriba")), faultAt(10, "la alineación 'arriba' no se conoce"));
    EXPECT_EQ(fault(with("Hasta | fecha", "Hasta | dia")),
              faultAt(6, "el tipo de parámetro 'dia' no se conoce"));
    EXPECT_EQ(fault(with("= Empresa", "=")),
              faultAt(5, "un parámetro se escribe: nombre | tipo | valor cuando viene vacío"));
    EXPECT_EQ(fault(with("= Codigo | Fecha", "= Codigo,Fecha")),
              faultAt(11, "'devuelve' lleva los nombres de los campos separados por «|»"));
}

TEST(QueryFileParse, TellsWhatAQueryLacks) {
    EXPECT_EQ(fault(with("titulo=Otra\n", "")), faultAt(17, "a la consulta 'Otra' le falta 'titulo'"));
    EXPECT_EQ(fault(with("columna=A|A|5\n", "")), faultAt(17, "a la consulta 'Otra' le falta 'columna'"));
    EXPECT_EQ(fault(with("devuelve=A\n", "")), faultAt(17, "a la consulta 'Otra' le falta 'devuelve'"));
    EXPECT_EQ(fault(with("sql=select A from u\n", "")), faultAt(17, "a la consulta 'Otra' le falta 'sql'"));
}

TEST(QueryFileParse, ChecksTheParametersOfAStatement) {
    EXPECT_EQ(fault(with("e = $1$", "e = '$1$'")),
              faultAt(2, "la sentencia de 'Codigos' tiene un parámetro entre comillas o en un comentario"));
    EXPECT_EQ(fault(with("e = $1$", "e = $3$")),
              faultAt(2, "la sentencia de 'Codigos' usa un parámetro sin declarar"));
    EXPECT_EQ(fault(with("e = $1$", "e = $0$")),
              faultAt(2, "la sentencia de 'Codigos' usa un parámetro sin declarar"));
    EXPECT_EQ(fault(with("e = $1$", "e = 'x")),
              faultAt(2, "la sentencia de 'Codigos' deja comillas sin cerrar"));
}

TEST(QueryFileLoad, AMissingFileIsError53) {
    const auto load = [] { (void)QueryFile::load("/no/hay/D.qry"); };
    EXPECT_EQ(rows::errorOf(load), ErrorFileNotFound);
    EXPECT_EQ(rows::descriptionOf(load), "No se encontró el archivo de consultas '/no/hay/D.qry'");
}

TEST(QueryFileLoad, AFolderIsNoFile) {
    const QTemporaryDir folder;
    EXPECT_EQ(rows::errorOf([&] { (void)QueryFile::load(folder.path()); }), ErrorFileNotFound);
}

TEST(QueryFileLoad, AnUnreadableFileIsError70) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("x.qry"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    file.setPermissions({});
    if (QFile(file.fileName()).open(QIODevice::ReadOnly))
        GTEST_SKIP() << "the superuser reads every file";
    EXPECT_EQ(rows::errorOf([&] { (void)QueryFile::load(file.fileName()); }), ErrorPermissionDenied);
}

TEST(QueryFileLoad, AHugeFileIsRefusedWithoutReadingItWhole) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("x.qry"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(qint64(1) << 33));
    EXPECT_EQ(rows::errorOf([&] { (void)QueryFile::load(file.fileName()); }), ErrorInvalidFileFormat);
}
