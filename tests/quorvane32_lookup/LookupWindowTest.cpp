#include "platform/quorvane32/lookup/LookupWindow.h"
#include "platform/quorvane32/lookup/FilterHeader.h"
#include "tests/quorvane32_lookup/RowsOf.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

using namespace quorvane;

namespace {

constexpr int many = 100000;

QueryDefinition definition() {
    QueryDefinition query;
    query.name = "Codigos";
    query.title = "Códigos de Comisión";
    query.emptyText = "La empresa no tiene códigos.";
    query.columns = {{"Código", "Codigo", 12, ColumnAlignment::Left, ColumnFormat::Text, -1},
                     {"Descripción", "Descripcion", 40, ColumnAlignment::Left, ColumnFormat::Text, -1},
                     {"Fecha Inicio", "Fecha", 14, ColumnAlignment::Centre, ColumnFormat::Date, -1}};
    query.returned = {"Codigo", "Descripcion", "Fecha"};
    return query;
}

const QStringList fields{"Codigo", "Descripcion", "Fecha"};

Value manyValue(int row, int column) {
    if (column == 0)
        return QStringLiteral("C%1").arg(row, 6, 10, QLatin1Char('0'));
    if (column == 1)
        return QStringLiteral("Comisión número %1 de Ñuñoa").arg(row);
    return Date(30000 + row % 9000);
}

class LookupWindowTest : public testing::Test {
protected:
    void open(Recordset recordset) {
        window = std::make_unique<LookupWindow>(definition(), std::move(recordset), RegionalSettings());
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    void open(const std::vector<QStringList>& lines) { open(rows::of(fields, lines)); }
    void openMany() { open(rows::made(fields, many, manyValue)); }

    void waitForAll() {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !count().contains("leyendo"); }, 60000));
    }

    QTableView* table() const { return window->findChild<QTableView*>("lstFilas"); }
    QLineEdit* filter(int number) const {
        return window->findChild<QLineEdit*>(QStringLiteral("txtFiltro%1").arg(number));
    }
    QString count() const { return window->findChild<QLabel*>("lblCuenta")->text(); }
    QLabel* empty() const { return window->findChild<QLabel*>("lblVacio"); }
    QPushButton* accept() const { return window->findChild<QPushButton*>("coAceptar"); }
    QString currentCode() const { return table()->currentIndex().siblingAtColumn(0).data().toString(); }
    QStringList codes() const {
        QStringList list;
        for (int i = 0; i < table()->model()->rowCount(); ++i)
            list += table()->model()->index(i, 0).data().toString();
        return list;
    }

    /// Types into whatever has the focus; letters outside ASCII too.
    static void type(const QString& text) {
        for (const QChar c : text)
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(c),
                                Qt::NoModifier);
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void clickCaption(int column) const {
        auto* header = table()->horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier,
                          {header->sectionViewportPosition(column) + 8, 8});
    }

    std::unique_ptr<LookupWindow> window;
};

const std::vector<QStringList> three{{"B", "Queso", ""}, {"A", "Piñón", ""}, {"C", "Maní", ""}};

} // namespace

TEST_F(LookupWindowTest, ShowsItsFirstRowsWithoutReadingAll) {
    int fetched = 0;
    open(rows::made(fields, many, [&](int row, int column) {
        fetched = std::max(fetched, row + 1);
        return manyValue(row, column);
    }));
    EXPECT_EQ(window->windowTitle(), "Códigos de Comisión");
    EXPECT_GE(table()->model()->rowCount(), 32);
    EXPECT_TRUE(filter(1)->hasFocus());
    EXPECT_TRUE(accept()->isEnabled());
    waitForAll();
    EXPECT_EQ(fetched, many);
    EXPECT_EQ(count(), "100.000 filas");
    EXPECT_EQ(table()->model()->rowCount(), many);
}

TEST_F(LookupWindowTest, ConstructionReadsAtMostAFirstSlice) {
    int fetched = 0;
    const LookupWindow made(definition(),
                            rows::made(fields, many,
                                       [&](int row, int column) {
                                           fetched = row + 1;
                                           return manyValue(row, column);
                                       }),
                            RegionalSettings());
    EXPECT_GE(fetched, 1);
    EXPECT_LE(fetched, 201);
}

TEST_F(LookupWindowTest, AKeyIsAnsweredWhileRowsStillArrive) {
    openMany();
    ASSERT_TRUE(count().contains("leyendo"));
    type("000007");
    EXPECT_EQ(currentCode(), "C000007");
    press(Qt::Key_Return);
    EXPECT_EQ(window->result(), QDialog::Accepted);
    EXPECT_TRUE(window->chosen().startsWith("C000007#Comisión número 7 de Ñuñoa#"));
}

TEST_F(LookupWindowTest, FiltersAHundredThousandRowsAsTheUserTypes) {
    openMany();
    waitForAll();
    press(Qt::Key_Tab);
    EXPECT_TRUE(filter(2)->hasFocus());
    type("NUMERO 4321 ñuñ");
    EXPECT_EQ(count(), "20 de 100.000 filas");
    EXPECT_EQ(codes().first(), "C004321");
    EXPECT_EQ(codes().last(), "C094321");
}

TEST_F(LookupWindowTest, EachLetterTakesLittleTime) {
    openMany();
    waitForAll();
    type("9");
    QElapsedTimer clock;
    clock.start();
    type("9999");
    // Four letters take some 15 ms in a release build; the rest is room for sanitizers and a busy machine.
    EXPECT_LT(clock.elapsed(), 2000);
    EXPECT_EQ(count(), "1 de 100.000 filas");
}

TEST_F(LookupWindowTest, ArrowsMoveInTheListWhileTheFilterHasTheFocus) {
    open(three);
    EXPECT_EQ(currentCode(), "B");
    press(Qt::Key_Down);
    EXPECT_EQ(currentCode(), "A");
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(currentCode(), "C");
    press(Qt::Key_Up);
    EXPECT_EQ(currentCode(), "A");
    EXPECT_TRUE(filter(1)->hasFocus());
    press(Qt::Key_Enter);
    EXPECT_EQ(window->chosen(), "A#Piñón#");
}

TEST_F(LookupWindowTest, TabWalksTheFiltersAndThenTheRest) {
    open(three);
    press(Qt::Key_Tab);
    EXPECT_TRUE(filter(2)->hasFocus());
    press(Qt::Key_Tab);
    EXPECT_TRUE(filter(3)->hasFocus());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(filter(2)->hasFocus());
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    EXPECT_TRUE(table()->hasFocus());
    press(Qt::Key_Tab);
    EXPECT_TRUE(accept()->hasFocus());
}

TEST_F(LookupWindowTest, LettersTypedInTheListGoToTheLastFilter) {
    open(three);
    filter(2)->setFocus();
    table()->setFocus();
    type("PIÑ");
    EXPECT_EQ(filter(2)->text(), "PIÑ");
    EXPECT_TRUE(filter(2)->hasFocus());
    EXPECT_EQ(codes(), QStringList{"A"});
}

TEST_F(LookupWindowTest, AccentsAndCaseDoNotCount) {
    open(three);
    press(Qt::Key_Tab);
    type("mani");
    EXPECT_EQ(codes(), QStringList{"C"});
    filter(2)->clear();
    type("QUESÓ");
    EXPECT_EQ(codes(), QStringList{"B"});
}

TEST_F(LookupWindowTest, TheCurrentRowStaysWhileItPassesTheFilter) {
    open(three);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(currentCode(), "C");
    press(Qt::Key_Tab);
    type("n");
    EXPECT_EQ(codes(), (QStringList{"A", "C"}));
    EXPECT_EQ(currentCode(), "C");
}

TEST_F(LookupWindowTest, EscapeCancels) {
    open(three);
    type("B");
    press(Qt::Key_Escape);
    EXPECT_EQ(window->result(), QDialog::Rejected);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->chosen(), "");
}

TEST_F(LookupWindowTest, ADoubleClickChooses) {
    open(three);
    const QPoint place = table()->visualRect(table()->model()->index(2, 1)).center();
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(window->result(), QDialog::Accepted);
    EXPECT_EQ(window->chosen(), "C#Maní#");
}

TEST_F(LookupWindowTest, TheButtonsChooseAndCancel) {
    open(three);
    QTest::mouseClick(accept(), Qt::LeftButton);
    EXPECT_EQ(window->chosen(), "B#Queso#");
    open(three);
    QTest::mouseClick(window->findChild<QPushButton*>("coCancelar"), Qt::LeftButton);
    EXPECT_EQ(window->chosen(), "");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(LookupWindowTest, AClickOnACaptionOrdersAndAThirdOneGoesBack) {
    open(three);
    clickCaption(1);
    EXPECT_EQ(codes(), (QStringList{"C", "A", "B"}));
    clickCaption(1);
    EXPECT_EQ(codes(), (QStringList{"B", "A", "C"}));
    clickCaption(0);
    EXPECT_EQ(codes(), (QStringList{"A", "B", "C"}));
    clickCaption(0);
    clickCaption(0);
    EXPECT_EQ(codes(), (QStringList{"B", "A", "C"}));
}

TEST_F(LookupWindowTest, F6OrdersByTheColumnOfTheFilter) {
    open(three);
    press(Qt::Key_Tab);
    press(Qt::Key_F6);
    EXPECT_EQ(codes(), (QStringList{"C", "A", "B"}));
    press(Qt::Key_F6);
    EXPECT_EQ(codes(), (QStringList{"B", "A", "C"}));
}

TEST_F(LookupWindowTest, AnOrderChosenWhileReadingHoldsForAllRows) {
    open(rows::made(fields, 20000, [](int row, int column) { return manyValue(19999 - row, column); }));
    clickCaption(0);
    waitForAll();
    EXPECT_EQ(codes().first(), "C000000");
    EXPECT_EQ(codes().last(), "C019999");
}

TEST_F(LookupWindowTest, AnEmptyResultSaysSoInTheWindow) {
    open(std::vector<QStringList>{});
    waitForAll();
    EXPECT_TRUE(empty()->isVisible());
    EXPECT_EQ(empty()->text(), "La empresa no tiene códigos.");
    EXPECT_EQ(count(), "0 filas");
    EXPECT_FALSE(accept()->isEnabled());
    press(Qt::Key_Return);
    EXPECT_TRUE(window->isVisible());
    press(Qt::Key_Escape);
    EXPECT_EQ(window->chosen(), "");
}

TEST_F(LookupWindowTest, AFilterThatNothingPassesSaysSo) {
    open(three);
    waitForAll();
    EXPECT_FALSE(empty()->isVisible());
    type("zzz");
    EXPECT_TRUE(empty()->isVisible());
    EXPECT_EQ(empty()->text(), "Ninguna fila contiene lo que se busca.");
    EXPECT_EQ(count(), "0 de 3 filas");
    EXPECT_FALSE(accept()->isEnabled());
    press(Qt::Key_Backspace);
    press(Qt::Key_Backspace);
    press(Qt::Key_Backspace);
    EXPECT_EQ(currentCode(), "B");
    EXPECT_TRUE(accept()->isEnabled());
}

TEST_F(LookupWindowTest, ASeparatorInTheCodeIsRefusedWithAReason) {
    open({{"A#1", "x", ""}, {"B", "y", ""}});
    press(Qt::Key_Return);
    EXPECT_TRUE(window->isVisible());
    auto* notice = window->findChild<QLabel*>("lblAviso");
    EXPECT_TRUE(notice->isVisible());
    EXPECT_EQ(notice->text(),
              "El código «A#1» contiene el signo «#» y no se puede elegir aquí: escríbalo en el campo.");
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(window->chosen(), "B#y#");
}

TEST_F(LookupWindowTest, ASeparatorBehindTheCodeBecomesABlank) {
    open({{"A", "Plan #1", "x"}});
    press(Qt::Key_Return);
    EXPECT_EQ(window->chosen(), "A#Plan  1#x");
}

TEST_F(LookupWindowTest, AnErrorWhileReadingClosesTheWindowAndIsKept) {
    open(rows::made(fields, many, [](int row, int column) {
        if (row == 50000)
            throw RunTimeError(ErrorConnectionLost, "perdida");
        return manyValue(row, column);
    }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window->isVisible(); }, 60000));
    EXPECT_EQ(window->result(), QDialog::Rejected);
    ASSERT_TRUE(window->error());
    EXPECT_EQ(rows::errorOf([&] { std::rethrow_exception(window->error()); }), ErrorConnectionLost);
}

TEST_F(LookupWindowTest, NoColumnIsNarrowerThanItsCaption) {
    QueryDefinition query = definition();
    query.columns[1].width = 1;
    window = std::make_unique<LookupWindow>(query, rows::of(fields, three), RegionalSettings());
    auto* header = table()->horizontalHeader();
    EXPECT_GE(header->sectionSize(1), header->fontMetrics().horizontalAdvance("Descripción"));
}

TEST_F(LookupWindowTest, AColumnWidensForItsFirstRows) {
    const QString wide(40, u'W');
    open({{"C", wide, ""}});
    EXPECT_GE(table()->columnWidth(1), table()->fontMetrics().horizontalAdvance(wide));
}
