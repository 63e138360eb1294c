// A file that was installed with the program is missing or damaged.
#include "data/DBTable.h"
#include "tests/faults/ProgramFixture.h"
#include "tests/faults/ProgramRun.h"
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QTimer>
#include <random>

namespace dalvora::test {

namespace {

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

void putFolderInPlaceOf(const QString& path) {
    ASSERT_TRUE(QFile::remove(path) && QDir().mkdir(path));
}

class QueryFileOfTheProgram : public ProgramFixture {
protected:
    void SetUp() override {
        ASSERT_TRUE(program.start());
        program.enter(*program.controls().TxtGlosa, u"Escrito antes"_s);
        before = program.screen();
        contents = company.contents();
    }
    void lookUp() {
        program.controls().TxtCodigo->setFocus();
        program.press(Qt::Key_F8);
    }
    void expectTold(const QString& reason) {
        lookUp();
        const Message message = told();
        EXPECT_TRUE(message.text.startsWith(u"Error al procesar consulta CodigosComision@"_s +
                                            files.queryFile() + u"\n\n"_s + reason))
            << qPrintable(message.text);
        EXPECT_EQ(message.style, MessageError);
        EXPECT_EQ(message.title, u"Quorvane ERP"_s);
        EXPECT_EQ(program.screen(), before);
        EXPECT_EQ(company.contents(), contents);
    }
    void replaceStatement(const QByteArray& statement) {
        writeFile(files.queryFile(), "[CodigosComision]\ntitulo=X\nparametro=Empresa\n"
                                     "columna=Código|Codigo|16\ndevuelve=Codigo|Codigo|Codigo|Codigo\nsql=" +
                                         statement + '\n');
    }

    QStringList before;
    QStringList contents;
};

} // namespace

TEST_F(QueryFileOfTheProgram, MissingIsToldAndPutBackItServesAtOnce) {
    const QByteArray good = bytesOf(files.queryFile());
    ASSERT_TRUE(QFile::remove(files.queryFile()));
    expectTold(u"53 - No se encontró el archivo de consultas '"_s);
    writeFile(files.queryFile(), good);
    QTimer::singleShot(200, qApp, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); });
    lookUp();
    expectSilence();
    EXPECT_TRUE(program.table().SysRecordFound);
    EXPECT_EQ(program.controls().TxtCodigo->text(), u"C1"_s);
}

TEST_F(QueryFileOfTheProgram, DamagedIsTold) {
    const QByteArray good = bytesOf(files.queryFile());
    writeFile(files.queryFile(), {});
    expectTold(u"321 - "_s);
    writeFile(files.queryFile(), good.left(good.size() / 20));
    expectTold(u"321 - "_s);
    writeFile(files.queryFile(), QByteArray(10'000'000, 'x'));
    expectTold(u"321 - "_s);
    writeFile(files.queryFile(), QByteArray("\0\xff\xfe\x80", 4).repeated(1000));
    expectTold(u"321 - "_s);
    putFolderInPlaceOf(files.queryFile());
    expectTold(u"53 - "_s);
}

TEST_F(QueryFileOfTheProgram, WithoutTheQueryIsTold) {
    writeFile(files.queryFile(),
              "[Otra]\ntitulo=X\nparametro=Empresa\ncolumna=A|A|5\ndevuelve=A\nsql=select 1 as A\n");
    expectTold(u"3265 - La consulta 'CodigosComision' no existe"_s);
}

TEST_F(QueryFileOfTheProgram, NoStatementInItCanWrite) {
    for (const char* statement :
         {"DELETE FROM Comisiones", "select Codigo from Comisiones; DROP TABLE Comisiones",
          "DROP TABLE Comisiones", "WITH x AS (SELECT 1) DELETE FROM Comisiones",
          "PRAGMA writable_schema = 1", "ATTACH 'x.db' AS otra", "VACUUM",
          "/* select */ UPDATE Comisiones SET Codigo = 'x'"}) {
        replaceStatement(statement);
        expectTold(u"3705 - "_s);
    }
    replaceStatement("select Codigo from NoExiste");
    expectTold(u"1 - Error de la base de datos [no such table: NoExiste]"_s);
}

namespace {

class HelpFileOfTheProgram : public ProgramFixture {
protected:
    void SetUp() override { ASSERT_TRUE(program.start()); }
    void expectTold(const QString& reason) {
        program.click(u"ayuda"_s);
        const Message message = told();
        EXPECT_TRUE(message.text.startsWith(reason)) << qPrintable(message.text);
        EXPECT_EQ(message.style, MessageError);
        EXPECT_EQ(message.title, u"Ayuda"_s);
    }
};

} // namespace

TEST_F(HelpFileOfTheProgram, MissingIsToldAndTheProgramGoesOn) {
    const QByteArray good = bytesOf(files.helpFile());
    ASSERT_TRUE(QFile::remove(files.helpFile()));
    expectTold(u"No se encontró el archivo de ayuda"_s);
    program.read(u"C1"_s);
    EXPECT_TRUE(program.table().SysRecordFound);
    writeFile(files.helpFile(), good);
    program.click(u"ayuda"_s);
    expectSilence();
}

TEST_F(HelpFileOfTheProgram, TruncatedOrRubbishIsTold) {
    const QByteArray good = bytesOf(files.helpFile());
    for (const qsizetype size : {qsizetype(0), qsizetype(3), qsizetype(96), good.size() / 4}) {
        writeFile(files.helpFile(), good.left(size));
        expectTold(u"El archivo de ayuda"_s);
    }
    // Here the pages that are left can be read, but where the topics are is gone.
    writeFile(files.helpFile(), good.left(good.size() / 2));
    expectTold(u"La ayuda no tiene el tema 138"_s);
    writeFile(files.helpFile(), QByteArray(100'000, 'x'));
    expectTold(u"El archivo de ayuda"_s);
    putFolderInPlaceOf(files.helpFile());
    expectTold(u"No se puede leer el archivo de ayuda"_s);
}

namespace {

class StyleFileOfTheProgram : public testing::Test {
protected:
    /// The program warns once, about this, and works.
    void expectWarned(const QString& reason) {
        const ProgramRun run(company.path(), files, {}, u"C1"_s);
        EXPECT_FALSE(run.crashed);
        EXPECT_EQ(run.result, 0);
        EXPECT_TRUE(run.told.startsWith(u"Quorvane ERP - Dalvora: "_s + reason)) << qPrintable(run.told);
        EXPECT_EQ(run.told.count(u'\n'), 1) << qPrintable(run.told);
        EXPECT_TRUE(run.found.endsWith(u"\ngrabado\n"_s)) << qPrintable(run.found);
    }
    void SetUp() override { SchemeStates(u"C1"_s, 5).store(company, 1); }

    const TestCompany company;
    const ProgramFiles files;
};

} // namespace

TEST_F(StyleFileOfTheProgram, MissingIsWarnedOfOnce) {
    ASSERT_TRUE(QFile::remove(files.styleFile()));
    expectWarned(u"No se encontró el archivo de estilo \""_s);
}

TEST_F(StyleFileOfTheProgram, DamagedIsWarnedOfOnce) {
    const QByteArray good = bytesOf(files.styleFile());
    const QString damaged = u"El archivo de estilo \"%1\" está dañado"_s.arg(files.styleFile());
    writeFile(files.styleFile(), {});
    expectWarned(damaged);
    writeFile(files.styleFile(), good.left(good.size() / 2));
    expectWarned(damaged);
    writeFile(files.styleFile(), QByteArray(good).replace("LightBlue", "Otro"));
    expectWarned(damaged);
    writeFile(files.styleFile(), QByteArray("\0\x01\xff", 3).repeated(10'000));
    expectWarned(damaged);
    writeFile(files.styleFile(), QByteArray(10'000'000, '['));
    expectWarned(damaged);
    putFolderInPlaceOf(files.styleFile());
    expectWarned(u"No se encontró el archivo de estilo \""_s);
}

} // namespace dalvora::test
