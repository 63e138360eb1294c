#include "platform/quorvane32/lookup/LookupErrors.h"
#include "platform/quorvane32/lookup/StandardComponents.h"
#include "tests/quorvane32_lookup/Database.h"
#include "tests/quorvane32_lookup/RowsOf.h"
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace quorvane;
using dalvora::test::allEngines;
using dalvora::test::engineName;
using dalvora::test::TestEngine;

namespace {

class QuorQueryTest : public testing::TestWithParam<TestEngine> {
protected:
    QuorQueryTest() {
        database.connection.execute(
            "insert into Comisiones (Empresa, Codigo, Descripcion, FechaInicio, FechaFinal) "
            "values ('001', 'VERANO', 'Campaña #1', '01/01/2006', '31/03/2006')");
        database.connection.execute("insert into Comisiones (Empresa, Codigo, FechaInicio) "
                                    "values ('001', 'OTOÑO', '01/04/2006')");
    }

    /// Runs a lookup whose window, when it comes, is handed to the user.
    QString lookup(const QString& argument, const std::function<void(QWidget*)>& user = {}) {
        const auto component = components.createLookup("Quorvane32.QuorQuery");
        component->setConexion(database.connection);
        component->setArchivoQuery(argument);
        // Ends with this call: a lookup that raises shows no window.
        QObject alive;
        QTimer::singleShot(0, &alive, [&] {
            QWidget* window = QApplication::activeModalWidget();
            if (window && user)
                user(window);
        });
        return component->Muestra();
    }

    static void press(QWidget* window, Qt::Key key) { QTest::keyClick(window->focusWidget(), key); }

    const QString file = QStringLiteral(DALVORA_QUERY_FILE);
    Database database{GetParam()};
    StandardComponents components{RegionalSettings()};
};

} // namespace

TEST_P(QuorQueryTest, ReturnsTheChosenRow) {
    EXPECT_EQ(lookup("CodigosComision@" + file + "#001", [](QWidget* w) { press(w, Qt::Key_Return); }),
              "OTOÑO##01/04/2006#");
    EXPECT_EQ(lookup("CodigosComision@" + file + "#001",
                     [](QWidget* w) {
                         press(w, Qt::Key_Down);
                         press(w, Qt::Key_Return);
                     }),
              "VERANO#Campaña  1#01/01/2006#31/03/2006");
}

TEST_P(QuorQueryTest, ReturnsNothingWhenCancelled) {
    EXPECT_EQ(lookup("CodigosComision@" + file + "#001", [](QWidget* w) { press(w, Qt::Key_Escape); }), "");
    EXPECT_EQ(lookup("CodigosComision@" + file + "#001", [](QWidget* w) { w->close(); }), "");
}

TEST_P(QuorQueryTest, FindsTheFileInAnyCase) {
    QString other = file;
    other.replace(".qry", ".QRY");
    EXPECT_EQ(lookup("codigoscomision@" + other + "#001", [](QWidget* w) { press(w, Qt::Key_Escape); }), "");
}

TEST_P(QuorQueryTest, RemembersTheSizeOfEachWindow) {
    const QString argument = "CodigosComision@" + file + "#001";
    QSize first;
    lookup(argument, [&](QWidget* w) {
        first = w->size();
        w->resize(first.width() + 37, first.height() + 41);
        press(w, Qt::Key_Escape);
    });
    lookup(argument, [&](QWidget* w) {
        EXPECT_EQ(w->size(), QSize(first.width() + 37, first.height() + 41));
        press(w, Qt::Key_Escape);
    });
    StandardComponents another{RegionalSettings()};
    std::swap(components, another);
    lookup(argument, [&](QWidget* w) {
        EXPECT_EQ(w->size(), first);
        press(w, Qt::Key_Escape);
    });
}

TEST_P(QuorQueryTest, RaisesWhatIsWrong) {
    EXPECT_EQ(rows::errorOf([&] { lookup("CodigosComision"); }), ErrorInvalidCall);
    EXPECT_EQ(rows::errorOf([&] { lookup("CodigosComision@/no/hay.qry#001"); }), ErrorFileNotFound);
    EXPECT_EQ(rows::errorOf([&] { lookup("Nada@" + file + "#001"); }), ErrorItemNotFound);
    EXPECT_EQ(rows::errorOf([&] { lookup("CodigosComision@" + file); }), ErrorTooFewParameters);
    EXPECT_FALSE(QApplication::overrideCursor());
    const auto component = components.createLookup("Quorvane32.QuorQuery");
    component->setArchivoQuery("CodigosComision@" + file + "#001");
    EXPECT_EQ(rows::errorOf([&] { component->Muestra(); }), ErrorObjectNotSet);
}

TEST_P(QuorQueryTest, RunsNothingButOneSelect) {
    const QTemporaryDir folder;
    QFile wrong(folder.filePath("mala.qry"));
    ASSERT_TRUE(wrong.open(QIODevice::WriteOnly));
    wrong.write("[Q]\ntitulo=x\ncolumna=A|A|5\ndevuelve=A\nsql=delete from Comisiones\n");
    wrong.close();
    EXPECT_EQ(rows::errorOf([&] { lookup("Q@" + wrong.fileName()); }), ErrorRefusedStatement);
    EXPECT_FALSE(database.connection.openRecordset("select Codigo from Comisiones").eof());
}

TEST_P(QuorQueryTest, AParameterCannotChangeTheStatement) {
    lookup("CodigosComision@" + file + "#' or '1'='1", [](QWidget* w) {
        EXPECT_EQ(w->findChild<QLabel*>("lblCuenta")->text().left(7), "0 filas");
        press(w, Qt::Key_Escape);
    });
}

TEST(StandardComponentsTest, RefusesUnknownIdentifiers) {
    StandardComponents components{RegionalSettings()};
    EXPECT_EQ(rows::errorOf([&] { components.createLookup("Otro.QuorQuery"); }), ErrorCannotCreateObject);
    EXPECT_EQ(rows::errorOf([&] { components.createAbout("Quorvane32.QuorQuery"); }),
              ErrorCannotCreateObject);
    EXPECT_TRUE(components.createLookup("Quorvane32.QuorQuery"));
    EXPECT_TRUE(components.createAbout("quorvane32.quorabout"));
}

INSTANTIATE_TEST_SUITE_P(Engines, QuorQueryTest, testing::ValuesIn(allEngines), engineName);
