#include "tests/quorvane32_grid/GridSupport.h"
#include <QApplication>
#include <QComboBox>
#include <QMessageBox>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

class XGridEdit : public GridTest {};

TEST_F(XGridEdit, TypingReplacesTheTextAndEnterStoresItAndMovesOn) {
    fill(2);
    at(1, 4);
    type(QStringLiteral("75"));
    EXPECT_EQ(entryText(), QStringLiteral("75"));
    press(Qt::Key_Return);
    EXPECT_EQ(client->lines[0][4], QStringLiteral("75"));
    EXPECT_EQ(client->told.filter(QRegularExpression(QStringLiteral("^(edit|set)"))),
              QStringList({QStringLiteral("edit 1,4"), QStringLiteral("set 1,4=75")}));
    EXPECT_EQ(grid->row(), 2);
    EXPECT_EQ(grid->col(), 1);
    EXPECT_FALSE(grid->isEditing());
}

TEST_F(XGridEdit, F2KeepsTheTextForEditing) {
    fill(1);
    at(1, 2);
    press(Qt::Key_F2);
    EXPECT_EQ(entryText(), QStringLiteral("F1"));
    type(QStringLiteral("x"));
    press(Qt::Key_Tab);
    EXPECT_EQ(client->lines[0][2], QStringLiteral("F1x"));
    EXPECT_EQ(grid->col(), 4) << "the read-only column is passed over";
}

TEST_F(XGridEdit, EscapeGivesUpTheEdit) {
    fill(1);
    at(1, 4);
    type(QStringLiteral("9"));
    press(Qt::Key_Escape);
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(client->lines[0][4], QStringLiteral("1"));
    EXPECT_TRUE(client->told.filter(QStringLiteral("set")).isEmpty());
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(XGridEdit, LeavingTheGridWithTheFocusStoresTheEdit) {
    fill(1);
    at(1, 4);
    type(QStringLiteral("12"));
    other->setFocus();
    EXPECT_EQ(client->lines[0][4], QStringLiteral("12"));
    EXPECT_FALSE(grid->isEditing());
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(XGridEdit, ClickOnAnotherCellStoresTheEdit) {
    fill(2);
    at(1, 4);
    type(QStringLiteral("12"));
    click(2, 4);
    EXPECT_EQ(client->lines[0][4], QStringLiteral("12"));
    EXPECT_EQ(grid->row(), 2);
}

TEST_F(XGridEdit, UnchangedTextIsNotStoredAgain) {
    fill(1);
    at(1, 4);
    press(Qt::Key_F2);
    press(Qt::Key_Return);
    EXPECT_TRUE(client->told.filter(QStringLiteral("set")).isEmpty());
}

TEST_F(XGridEdit, BeforeEditRefusesTheEdit) {
    fill(1);
    client->locked = {1, 2};
    at(1, 2);
    type(QStringLiteral("x"));
    press(Qt::Key_F2);
    doubleClick(1, 2);
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(client->told.filter(QStringLiteral("edit 1,2")).size(), 3);
    EXPECT_EQ(client->lines[0][2], QStringLiteral("F1"));
}

TEST_F(XGridEdit, ReadOnlyColumnIsNeverEdited) {
    fill(1);
    at(1, 3);
    type(QStringLiteral("x"));
    press(Qt::Key_F2);
    doubleClick(1, 3);
    EXPECT_FALSE(grid->isEditing());
    EXPECT_TRUE(client->told.filter(QStringLiteral("edit")).isEmpty());
}

TEST_F(XGridEdit, RefusedTextLeavesTheOldOneAndTheCursorOnTheCell) {
    fill(2);
    client->refusedText = QStringLiteral("101");
    at(1, 4);
    type(QStringLiteral("101"));
    press(Qt::Key_Return);
    EXPECT_EQ(grid->row(), 1);
    EXPECT_EQ(grid->col(), 4);
    EXPECT_EQ(grid->text(1, 4), QStringLiteral("1"));
    EXPECT_FALSE(grid->isEditing());
}

TEST_F(XGridEdit, MessageBoxOfARefusalDoesNotStoreTheTextTwice) {
    fill(1);
    client->refusedText = QStringLiteral("101");
    int boxes = 0;
    client->onRefusal = [&] {
        ++boxes;
        QMessageBox box(&window);
        QTimer::singleShot(50, &box, &QDialog::accept);
        box.exec();
        QApplication::setActiveWindow(&window); // as the platform does when the box is gone
    };
    at(1, 4);
    type(QStringLiteral("101"));
    press(Qt::Key_Return);
    type(QStringLiteral("101"));
    other->setFocus();
    EXPECT_EQ(boxes, 2);
    EXPECT_EQ(client->told.filter(QStringLiteral("set 1,4=101")).size(), 2);
}

TEST_F(XGridEdit, DoubleClickEditsTheCell) {
    fill(1);
    doubleClick(1, 2);
    EXPECT_TRUE(grid->isEditing());
    EXPECT_EQ(entryText(), QStringLiteral("F1"));
}

TEST_F(XGridEdit, FirstLetterPicksAnItemOfAList) {
    fill(1);
    at(1, 1);
    type(QStringLiteral("p"));
    EXPECT_EQ(entryText(), QStringLiteral("Producto"));
    press(Qt::Key_Return);
    EXPECT_EQ(client->lines[0][1], QStringLiteral("Producto"));
    EXPECT_EQ(grid->col(), 2);
}

TEST_F(XGridEdit, AltDownOpensTheListAndEnterPicks) {
    fill(1);
    at(1, 1);
    press(Qt::Key_Down, Qt::AltModifier);
    auto* list = view->viewport()->findChild<QComboBox*>();
    ASSERT_TRUE(list);
    ASSERT_TRUE(list->view()->isVisible());
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(client->lines[0][1], QStringLiteral("Producto"));
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(window.focusWidget(), view);
}

TEST_F(XGridEdit, EscapeInTheOpenedListGivesUpTheEdit) {
    fill(1);
    clickButtonOf(1, 1); // the first click makes the cell current and shows its arrow
    clickButtonOf(1, 1);
    auto* list = view->viewport()->findChild<QComboBox*>();
    ASSERT_TRUE(list);
    ASSERT_TRUE(list->view()->isVisible());
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(client->lines[0][1], QStringLiteral("Familia"));
}

TEST_F(XGridEdit, ArrowsInAListEntryChooseAndEscapeGivesUp) {
    fill(1);
    at(1, 1);
    press(Qt::Key_F2);
    press(Qt::Key_Up);
    EXPECT_EQ(entryText(), QStringLiteral("Todos"));
    press(Qt::Key_Escape);
    EXPECT_EQ(client->lines[0][1], QStringLiteral("Familia"));
}

TEST_F(XGridEdit, TextOutsideTheListSurvivesAnEditThatChoosesNothing) {
    fill(1);
    client->lines[0][1] = QStringLiteral("Antiguo");
    at(1, 1);
    press(Qt::Key_F2);
    press(Qt::Key_Return);
    EXPECT_EQ(client->lines[0][1], QStringLiteral("Antiguo"));
    EXPECT_TRUE(client->told.filter(QStringLiteral("set")).isEmpty());
}

TEST_F(XGridEdit, CommitEditStoresWithoutMovingTheFocus) {
    fill(1);
    at(1, 4);
    type(QStringLiteral("8"));
    EXPECT_TRUE(grid->commitEdit());
    EXPECT_EQ(client->lines[0][4], QStringLiteral("8"));
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(XGridEdit, EditedRowThatIsTakenAwayIsGivenUp) {
    fill(3);
    at(3, 4);
    type(QStringLiteral("8"));
    client->lines.resize(2);
    grid->setRows(3);
    EXPECT_FALSE(grid->isEditing());
    EXPECT_TRUE(client->told.filter(QStringLiteral("set")).isEmpty());
}

TEST_F(XGridEdit, AwkwardTextsPassUnchanged) {
    fill(1);
    QString awkward = QStringLiteral("'; drop \"%_\t€😀ñ");
    awkward += QChar(u'\0');
    awkward += QString(10000, u'x');
    client->lines[0][2] = awkward;
    grid->grab();
    at(1, 2);
    press(Qt::Key_F2);
    type(QStringLiteral("z"));
    press(Qt::Key_Return);
    EXPECT_EQ(client->lines[0][2], awkward + u'z');
}

TEST_F(XGridEdit, AccentFromADeadKeyBeginsAnEdit) {
    fill(1);
    at(1, 2);
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("á"));
    QApplication::sendEvent(view, &composed);
    EXPECT_EQ(entryText(), QStringLiteral("á"));
}

TEST_F(XGridEdit, EntryStaysOnItsCellWhileTheGridScrolls) {
    fill(200);
    at(5, 4);
    press(Qt::Key_F2);
    QWidget* box = entry()->parentWidget();
    view->verticalScrollBar()->setValue(3);
    EXPECT_TRUE(box->geometry().contains(cell(5, 4).center()));
    EXPECT_TRUE(grid->isEditing());
}

TEST_F(XGridEdit, CellIsNotEditedWhenTheClientMovesTheCursorInBeforeEdit) {
    fill(3);
    at(1, 2);
    client->onBeforeEdit = [this] { grid->setRow(2); };
    press(Qt::Key_F2);
    EXPECT_FALSE(grid->isEditing());
}

TEST_F(XGridEdit, SwitchToAnotherProgramKeepsTheEntry) {
    fill(1);
    at(1, 4);
    type(QStringLiteral("12"));
    QApplication::setActiveWindow(nullptr);
    EXPECT_TRUE(grid->isEditing());
    EXPECT_TRUE(client->told.filter(QStringLiteral("set")).isEmpty());
    QWidget another;
    another.show();
    QApplication::setActiveWindow(&window);
    QApplication::setActiveWindow(&another);
    EXPECT_EQ(client->lines[0][4], QStringLiteral("12"))
        << "another window of the program sees the entry stored";
}
