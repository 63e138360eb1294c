#include "tests/quorvane32_grid/GridSupport.h"
#include <QApplication>
#include <QTest>

class XGridKeys : public GridTest {
protected:
    QString cursor() const { return QStringLiteral("%1,%2").arg(grid->row()).arg(grid->col()); }
    int newRows() const { return static_cast<int>(client->told.count(QStringLiteral("new"))); }
};

TEST_F(XGridKeys, FirstFocusPutsTheCursorOnTheFirstEditableCell) {
    other->setFocus();
    fill(2);
    EXPECT_EQ(grid->row(), 0);
    grid->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(cursor(), QStringLiteral("1,1"));
}

TEST_F(XGridKeys, ArrowsVisitEveryVisibleCell) {
    fill(3);
    at(1, 2);
    press(Qt::Key_Right);
    EXPECT_EQ(cursor(), QStringLiteral("1,3"));
    press(Qt::Key_Down);
    press(Qt::Key_Left);
    EXPECT_EQ(cursor(), QStringLiteral("2,2"));
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(cursor(), QStringLiteral("2,1")) << "the hidden column 0 is never reached";
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(cursor(), QStringLiteral("1,1"));
}

TEST_F(XGridKeys, HomeEndAndPagesMoveAsInASpreadsheet) {
    fill(100);
    at(50, 2);
    press(Qt::Key_End);
    EXPECT_EQ(cursor(), QStringLiteral("50,4"));
    press(Qt::Key_Home);
    EXPECT_EQ(cursor(), QStringLiteral("50,1"));
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(cursor(), QStringLiteral("101,4"));
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(cursor(), QStringLiteral("1,1"));
    press(Qt::Key_PageDown);
    EXPECT_GT(grid->row(), 5);
    EXPECT_LT(grid->row(), 30);
    press(Qt::Key_PageUp);
    EXPECT_EQ(cursor(), QStringLiteral("1,1"));
}

TEST_F(XGridKeys, TabAndEnterMoveOnOverEditableCellsAndRows) {
    fill(2);
    at(1, 2);
    press(Qt::Key_Tab);
    EXPECT_EQ(cursor(), QStringLiteral("1,4"));
    press(Qt::Key_Return);
    EXPECT_EQ(cursor(), QStringLiteral("2,1"));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(cursor(), QStringLiteral("1,4"));
    press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(cursor(), QStringLiteral("2,1"));
}

TEST_F(XGridKeys, MovingPastAFilledLastRowAppendsOne) {
    fill(1, false);
    at(1, 4);
    press(Qt::Key_Tab);
    EXPECT_EQ(newRows(), 1);
    EXPECT_EQ(cursor(), QStringLiteral("2,1"));
    fill(1, false);
    at(1, 4);
    press(Qt::Key_Down);
    EXPECT_EQ(newRows(), 2);
    EXPECT_EQ(cursor(), QStringLiteral("2,4"));
}

TEST_F(XGridKeys, MovingPastAnEmptyLastRowAddsNone) {
    fill(1);
    at(2, 4);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(newRows(), 2);
    EXPECT_EQ(grid->rows(), 3);
    EXPECT_EQ(cursor(), QStringLiteral("2,4"));
}

TEST_F(XGridKeys, TabPastTheEndLeavesTheGrid) {
    fill(1);
    at(2, 4);
    press(Qt::Key_Tab);
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(XGridKeys, TabOutOfAnEntryAtTheEndStoresAndLeaves) {
    fill(1);
    grid->column(4).setReadOnly(true);
    at(2, 2);
    press(Qt::Key_F2);
    press(Qt::Key_Tab);
    EXPECT_TRUE(other->hasFocus());
    EXPECT_FALSE(grid->isEditing());
}

TEST_F(XGridKeys, DownInAnEntryOfTheLastRowStoresItAndAppendsARow) {
    fill(1);
    at(2, 4);
    type(QStringLiteral("5"));
    press(Qt::Key_Down);
    EXPECT_EQ(client->lines[1][4], QStringLiteral("5"));
    EXPECT_EQ(cursor(), QStringLiteral("3,4"));
}

TEST_F(XGridKeys, KeyCodesAreWindowsVirtualKeyNumbers) {
    fill(1);
    at(1, 4);
    press(Qt::Key_Delete);
    press(Qt::Key_Insert);
    press(Qt::Key_F5);
    press(Qt::Key_Escape);
    EXPECT_EQ(client->told, QStringList({QStringLiteral("key 46"), QStringLiteral("key 45"),
                                         QStringLiteral("key 116"), QStringLiteral("key 27")}));
    EXPECT_EQ(client->lines[0][4], QStringLiteral("1"));
}

TEST_F(XGridKeys, ModifiersAreToldWithTheKey) {
    fill(1);
    at(1, 4);
    press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(client->lastKey, qMakePair(46, static_cast<int>(Qt::ControlModifier)));
}

TEST_F(XGridKeys, SwallowedKeyDoesNothing) {
    fill(3);
    at(1, 4);
    client->swallowKeys = true;
    press(Qt::Key_Down);
    press(Qt::Key_F2);
    press(Qt::Key_7);
    EXPECT_EQ(cursor(), QStringLiteral("1,4"));
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(client->told,
              QStringList({QStringLiteral("key 40"), QStringLiteral("key 113"), QStringLiteral("key 55")}));
}

TEST_F(XGridKeys, CtrlArrowsGoToTheEdges) {
    fill(50);
    at(20, 2);
    press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(cursor(), QStringLiteral("51,2"));
    press(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(cursor(), QStringLiteral("51,4"));
    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(cursor(), QStringLiteral("1,4"));
    press(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(cursor(), QStringLiteral("1,1"));
}

TEST_F(XGridKeys, KeysOfTheGridGoBeforeTheFormsShortcuts) {
    fill(1);
    at(1, 2);
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Insert, Qt::Key_F2, Qt::Key_F5, Qt::Key_F8}) {
        QKeyEvent asked(QEvent::ShortcutOverride, key, Qt::NoModifier);
        asked.ignore();
        QApplication::sendEvent(view, &asked);
        EXPECT_TRUE(asked.isAccepted()) << key;
    }
    QKeyEvent save(QEvent::ShortcutOverride, Qt::Key_G, Qt::ControlModifier);
    save.ignore();
    QApplication::sendEvent(view, &save);
    EXPECT_FALSE(save.isAccepted());
}

TEST_F(XGridKeys, CtrlTabIsLeftToTheTabsAroundTheGrid) {
    fill(1);
    at(1, 2);
    QKeyEvent turn(QEvent::KeyPress, Qt::Key_Tab, Qt::ControlModifier);
    QApplication::sendEvent(view, &turn);
    EXPECT_FALSE(turn.isAccepted());
    EXPECT_EQ(cursor(), QStringLiteral("1,2"));
}

TEST_F(XGridKeys, EnterGoesDownNowhereInAReadOnlyGrid) {
    for (int c = 1; c < grid->cols(); ++c)
        grid->column(c).setReadOnly(true);
    fill(3);
    at(1, 2);
    press(Qt::Key_Return);
    EXPECT_EQ(cursor(), QStringLiteral("1,2"));
    press(Qt::Key_Tab);
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(XGridKeys, DeleteInAnEntryBelongsToTheEntry) {
    fill(1);
    at(1, 4);
    press(Qt::Key_F2);
    press(Qt::Key_Home);
    press(Qt::Key_Delete);
    EXPECT_EQ(entryText(), QString());
    EXPECT_TRUE(client->told.filter(QStringLiteral("key 46")).isEmpty());
}

TEST_F(XGridKeys, DeletingLastRowsMovesTheCursorUp) {
    fill(3, false);
    at(3, 2);
    client->lines.resize(2);
    grid->setRows(3);
    EXPECT_EQ(cursor(), QStringLiteral("2,2"));
    client->lines.clear();
    grid->setRows(1);
    EXPECT_EQ(grid->row(), 0);
}

TEST_F(XGridKeys, GridWithoutLinesTakesKeysInPeace) {
    grid->setRows(1);
    for (const Qt::Key key :
         {Qt::Key_Down, Qt::Key_Return, Qt::Key_F2, Qt::Key_F8, Qt::Key_Delete, Qt::Key_End})
        press(key);
    EXPECT_FALSE(grid->isEditing());
}
