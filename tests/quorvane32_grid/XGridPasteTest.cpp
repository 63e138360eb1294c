#include "tests/quorvane32_grid/GridSupport.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <QToolTip>

class XGridPasteTest : public GridTest {
protected:
    void paste(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        press(Qt::Key_V, Qt::ControlModifier);
    }
    QString cursor() const { return QStringLiteral("%1,%2").arg(grid->row()).arg(grid->col()); }
};

TEST_F(XGridPasteTest, CopyTakesTheSelectedBlockWithoutHiddenColumns) {
    fill(3);
    at(1, 1);
    press(Qt::Key_Right, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Familia\tF1\nFamilia\tF2\n"));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(
        QStringLiteral("Familia\tF1\tFamilia número 1\t1\n")));
}

TEST_F(XGridPasteTest, EveryPastedCellGoesTheWayOfATypedOne) {
    fill(2);
    at(1, 2);
    paste(QStringLiteral("A\tignored\t10\r\nB\tignored\t20\r\n"));
    EXPECT_EQ(
        client->told.filter(QRegularExpression(QStringLiteral("^(edit|set)"))),
        QStringList({QStringLiteral("edit 1,2"), QStringLiteral("set 1,2=A"), QStringLiteral("edit 1,4"),
                     QStringLiteral("set 1,4=10"), QStringLiteral("edit 2,2"), QStringLiteral("set 2,2=B"),
                     QStringLiteral("edit 2,4"), QStringLiteral("set 2,4=20")}));
    EXPECT_EQ(client->lines[0][3], QStringLiteral("Familia número 1")) << "read-only columns keep their text";
}

TEST_F(XGridPasteTest, NewRowsAppearPastTheLastOne) {
    fill(1);
    at(2, 2);
    QString block;
    for (int i = 0; i < 1000; ++i)
        block += QStringLiteral("N%1\t\t%2\n").arg(i).arg(i);
    paste(block);
    EXPECT_EQ(grid->rows(), 1002);
    EXPECT_EQ(client->lines[1000][2], QStringLiteral("N999"));
    EXPECT_EQ(client->lines[1000][4], QStringLiteral("999"));
    EXPECT_EQ(cursor(), QStringLiteral("2,2"));
}

TEST_F(XGridPasteTest, BlankLinesInTheMiddleOfNewRowsDoNotEndThePaste) {
    fill(1);
    at(2, 2);
    paste(QStringLiteral("A\n\nB\n"));
    EXPECT_EQ(grid->rows(), 4);
    EXPECT_EQ(client->lines[1][2], QStringLiteral("A"));
    EXPECT_EQ(client->lines[2][2], QStringLiteral("B"));
}

TEST_F(XGridPasteTest, RefusedCellStopsThePasteWithTheCursorThere) {
    fill(4);
    client->refusedText = QStringLiteral("bad");
    at(1, 2);
    paste(QStringLiteral("A\nbad\nbad\nbad\n"));
    EXPECT_EQ(client->told.filter(QStringLiteral("=bad")).size(), 1);
    EXPECT_EQ(client->lines[0][2], QStringLiteral("A"));
    EXPECT_EQ(client->lines[2][2], QStringLiteral("F3"));
    EXPECT_EQ(cursor(), QStringLiteral("2,2"));
}

TEST_F(XGridPasteTest, CancelledEditStopsThePaste) {
    fill(4);
    client->locked = {2, 2};
    at(1, 2);
    paste(QStringLiteral("A\nB\nC\n"));
    EXPECT_EQ(client->told.filter(QStringLiteral("edit")).size(), 2);
    EXPECT_EQ(client->lines[0][2], QStringLiteral("A"));
    EXPECT_EQ(client->lines[1][2], QStringLiteral("F2"));
    EXPECT_EQ(client->lines[2][2], QStringLiteral("F3"));
}

TEST_F(XGridPasteTest, CellThatAlreadyReadsSoIsNotEdited) {
    fill(1);
    client->locked = {1, 2};
    at(1, 1);
    paste(QStringLiteral("Producto\tF1\tx\t3"));
    EXPECT_EQ(client->lines[0][1], QStringLiteral("Producto"));
    EXPECT_EQ(client->lines[0][4], QStringLiteral("3"));
}

TEST_F(XGridPasteTest, ListColumnTakesItsItemsInAnyCaseAndNothingElse) {
    fill(2);
    at(1, 1);
    paste(QStringLiteral(" PRODUCTO "));
    EXPECT_EQ(client->lines[0][1], QStringLiteral("Producto"));
    paste(QStringLiteral("Otro\nTodos"));
    EXPECT_EQ(client->lines[0][1], QStringLiteral("Producto"));
    EXPECT_EQ(client->lines[1][1], QStringLiteral("Familia")) << "the paste ended at the unknown item";
    EXPECT_EQ(QToolTip::text(), QStringLiteral("«Otro» no está en la lista."));
}

TEST_F(XGridPasteTest, ListColumnKeepsItsTextForTheSameOrAnEmptyOne) {
    fill(2);
    at(1, 1);
    paste(QStringLiteral("FAMILIA\tX\n\tY\n"));
    EXPECT_EQ(client->told.filter(QStringLiteral("set")),
              QStringList({QStringLiteral("set 1,2=X"), QStringLiteral("set 2,2=Y")}));
}

TEST_F(XGridPasteTest, CopiedLinesPasteBackOntoNewOnes) {
    fill(3, false);
    at(1, 1);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    at(3, 4);
    press(Qt::Key_Tab);
    ASSERT_EQ(grid->row(), 4);
    press(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(grid->rows(), 7);
    for (int line = 0; line < 3; ++line) {
        EXPECT_EQ(client->lines[line + 3][2], client->lines[line][2]);
        EXPECT_EQ(client->lines[line + 3][3], QString()) << "the read-only text comes from the client alone";
    }
}

TEST_F(XGridPasteTest, ColumnsBeyondTheLastAreDropped) {
    fill(1);
    at(1, 4);
    paste(QStringLiteral("7\t8\t9"));
    EXPECT_EQ(client->lines[0][4], QStringLiteral("7"));
    EXPECT_EQ(client->lines[0].size(), 5);
}

TEST_F(XGridPasteTest, OneCellFillsTheSelectedBlock) {
    fill(4);
    at(2, 4);
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    paste(QStringLiteral("5"));
    EXPECT_EQ(client->lines[0][4], QStringLiteral("1"));
    for (int line = 1; line <= 3; ++line)
        EXPECT_EQ(client->lines[line][4], QStringLiteral("5"));
}

TEST_F(XGridPasteTest, LongAndAwkwardTextsArriveWhole) {
    fill(1);
    QString awkward = QStringLiteral("a'b;c%d😀");
    awkward += QChar(u'\0') + QString(10000, u'y');
    at(1, 2);
    paste(awkward);
    EXPECT_EQ(client->lines[0][2], awkward);
    paste(QStringLiteral("\"two\nlines\""));
    EXPECT_EQ(client->lines[0][2], QStringLiteral("two\nlines"));
    EXPECT_EQ(grid->rows(), 3);
}

TEST_F(XGridPasteTest, PasteOnTheCaptionRowDoesNothing) {
    fill(1);
    grid->setRow(0);
    paste(QStringLiteral("x"));
    EXPECT_TRUE(client->told.filter(QStringLiteral("set")).isEmpty());
}
