// Statements where texts belong: they stay texts, whatever field they are typed into.
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/lookup/QueryFile.h"
#include "tests/faults/ProgramFixture.h"
#include <QApplication>
#include <QTest>
#include <QTimer>

namespace dalvora::test {

namespace {

const QString statements[] = {
    u"'; DROP TABLE Comisiones; --"_s,
    u"' OR '1'='1"_s,
    u"\"; DELETE FROM ComisionesD; --"_s,
    u"1); DELETE FROM producto; --"_s,
    u"x' UNION SELECT Clave FROM ses_usuario --"_s,
    u"$Codigo$ $Empresa$ $Fec_Inicio$"_s,
    u"%_[a]*?\\"_s,
    u"/* */ -- ; #@"_s,
    u"a\0'; DROP TABLE Comisiones; --"_s,
};

/// What the record keeps of a typed text: a NUL cannot be typed, blanks at its end go, and only so many
/// characters stay.
QString kept(QString text, int characters) {
    QString stored = text.remove(QChar(u'\0')).left(characters);
    while (stored.endsWith(u' '))
        stored.chop(1);
    return stored;
}

QString literal(QString text) {
    return u'\'' + text.replace(u'\'', u"''"_s) + u'\'';
}

class Injection : public EveryEngine {
protected:
    void SetUp() override {
        ASSERT_TRUE(program.start());
        before = company.contents();
    }
    /// Nothing that was told is an error of the database: those would show that a statement broke.
    void expectNoDatabaseError() {
        for (const Message& message : recorder.take())
            EXPECT_FALSE(message.text.contains(u" - Error de la base de datos"_s) ||
                         message.text.contains(u"3705"_s))
                << qPrintable(message.text);
    }
    void enterHeader(const QString& code, const QString& description) {
        program.enter(*program.controls().TxtCodigo, code);
        program.enter(*program.controls().TxtGlosa, description);
        program.enter(*program.controls().FecIni, u"01/01/2015"_s);
        program.enter(*program.controls().FecFin, u"31/12/2015"_s);
    }
    void press(Qt::Key key) {
        if (QWidget* window = QApplication::activeModalWidget())
            QTest::keyClick(window, key);
    }

    QStringList before;
};

} // namespace

TEST_P(Injection, EveryHeaderFieldAndEveryCellTakeStatementsAsTexts) {
    const auto grids = program.controls().grids();
    for (const QString& text : statements) {
        program.click(u"limpiar"_s);
        enterHeader(text, text);
        program.enter(*program.controls().FecIni, text);
        program.enter(*program.controls().FecFin, text);
        for (quorvane::XGrid* grid : grids)
            for (int column = 1; column < grid->cols(); ++column)
                program.enterCell(*grid, 1, column, text);
        program.enterCell(*grids[0], 1, 1, u"Familia"_s);
        program.enterCell(*grids[0], 1, 2, text);
        expectNoDatabaseError();
        EXPECT_EQ(company.contents(), before) << qPrintable(text);
    }
}

TEST_P(Injection, ASchemeNamedLikeAStatementIsSavedFoundAndDeletedByThatName) {
    for (const QString& text : statements) {
        if (GetParam() != TestEngine::Sqlite && text.contains(QChar(u'\0')))
            continue; // a server cannot store it and says so
        program.click(u"limpiar"_s);
        enterHeader(text, text);
        quorvane::XGrid& products = *program.controls().XGrid;
        program.enterCell(products, 1, 1, u"Producto"_s);
        program.enterCell(products, 1, 2, u"P1"_s);
        program.enterCell(products, 1, 6, u"5"_s);
        // The grid offers only a list here, and locks the description: the record takes any text.
        program.table().Details(1).setTextValue(3, text);
        program.table().Details(1).setTextValue(7, text);
        expectNoDatabaseError();
        program.click(u"grabar"_s);
        EXPECT_EQ(recorder.take(), std::vector<Message>()) << qPrintable(text);
        const QString code = kept(text, 20);
        const QString where = u" WHERE Codigo = "_s + literal(code);
        {
            // On the program's own connection: it does not stop at a NUL.
            quorvane::Connection& connection = *program.context().Connection;
            const auto row = connection.openRecordset(u"SELECT Descripcion FROM Comisiones"_s + where);
            ASSERT_FALSE(row.eof()) << qPrintable(text);
            EXPECT_EQ(row.value(0).toText({}), kept(text, 50));
            const auto line =
                connection.openRecordset(u"SELECT Descripcion, Calculo FROM ComisionesD"_s + where);
            ASSERT_FALSE(line.eof()) << qPrintable(text);
            EXPECT_EQ(line.value(0).toText({}), text);
            EXPECT_EQ(line.value(1).toText({}), text);
        }
        EXPECT_EQ(company.contents().size(), before.size() + 2) << qPrintable(text);
        program.read(text);
        ASSERT_TRUE(program.table().SysRecordFound) << qPrintable(text);
        EXPECT_EQ(program.table().Codigo(), code);
        program.click(u"eliminar"_s);
        EXPECT_EQ(recorder.take().size(), 2U) << "the question and the answer";
        EXPECT_EQ(company.contents(), before) << qPrintable(text);
    }
}

TEST_P(Injection, EveryLookupTakesStatementsAsParameters) {
    const quorvane::QueryFile queries = quorvane::QueryFile::load(files.queryFile());
    quorvane::Connection& connection = *program.context().Connection;
    for (const quorvane::QueryDefinition& query : queries.queries()) {
        for (const QString& text : statements) {
            if (text.contains(QChar(u'\0')))
                continue; // refused before it is a statement
            QStringList values;
            for (const quorvane::QueryParameter& parameter : query.parameters)
                values << (parameter.kind == quorvane::ParameterKind::Text ? text : QString());
            const auto rows = connection.openRecordset(query.statement(values, {}));
            EXPECT_TRUE(rows.eof()) << qPrintable(query.name) << ' ' << qPrintable(text);
        }
    }
    EXPECT_EQ(company.contents(), before);
}

TEST_P(Injection, AStatementTypedIntoTheLookupsFilterFindsNothing) {
    program.controls().TxtCodigo->setFocus();
    QTimer::singleShot(200, qApp, [this] {
        for (const QChar c : statements[0])
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(c),
                                Qt::NoModifier);
        press(Qt::Key_Return);
        press(Qt::Key_Escape);
    });
    program.press(Qt::Key_F8);
    expectSilence();
    EXPECT_EQ(company.contents(), before);
}

TEST_P(Injection, ARecordsetRunsNothingButOneSelect) {
    quorvane::Connection& connection = *program.context().Connection;
    for (const char* statement :
         {"SELECT 1; DROP TABLE Comisiones", "SELECT 1;\n--\nDELETE FROM Comisiones", "DROP TABLE Comisiones",
          "DELETE FROM Comisiones", "UPDATE Comisiones SET Codigo = 'x'",
          "INSERT INTO Comisiones (Empresa, Codigo) VALUES ('001', 'x')",
          "REPLACE INTO ses_empresa VALUES ('9', 'x')", "WITH x AS (SELECT 1) DELETE FROM Comisiones",
          "PRAGMA writable_schema = 1", "ATTACH ':memory:' AS otra", "VACUUM", "BEGIN",
          "/* SELECT */ DELETE FROM Comisiones", "EXPLAIN DELETE FROM Comisiones", "", ";", "--"}) {
        try {
            connection.openRecordset(QString::fromUtf8(statement));
            ADD_FAILURE() << statement;
        } catch (const quorvane::RunTimeError& error) {
            EXPECT_EQ(error.number(), quorvane::ErrorRefusedStatement) << statement;
        }
    }
    EXPECT_EQ(company.contents(), before);
}

// A code as the salespeople's form and other modules put it into a filter.
TEST_P(Injection, ACommandRunsNothingButItsFirstStatement) {
    quorvane::Connection& connection = *program.context().Connection;
    for (const char* statement : {"UPDATE producto SET Glosa = 'x'; DROP TABLE Comisiones",
                                  "DELETE FROM Comisiones WHERE Codigo = ''; DELETE FROM ComisionesD"}) {
        try {
            connection.execute(QString::fromUtf8(statement));
            ADD_FAILURE() << statement;
        } catch (const quorvane::RunTimeError& error) {
            EXPECT_EQ(error.number(), quorvane::ErrorRefusedStatement) << statement;
        }
    }
    EXPECT_EQ(company.contents(), before);
}

INSTANTIATE_TEST_SUITE_P(Engines, Injection, testing::ValuesIn(windowEngines), engineName);

} // namespace dalvora::test
