#include "tests/quorvane32_grid/GridSupport.h"
#include <QTest>
#include <QToolButton>

class XGridButton : public GridTest {};

TEST_F(XGridButton, ClickOnTheButtonRaisesCellButtonForItsCell) {
    fill(3);
    clickButtonOf(2, 2);
    EXPECT_EQ(client->told.filter(QStringLiteral("button")), QStringList(QStringLiteral("button 2,2")));
    EXPECT_FALSE(grid->isEditing());
}

TEST_F(XGridButton, ClickBesideTheButtonOnlyMovesTheCursor) {
    fill(3);
    click(2, 2);
    EXPECT_EQ(grid->row(), 2);
    EXPECT_TRUE(client->told.filter(QStringLiteral("button")).isEmpty());
}

TEST_F(XGridButton, PressThatIsLetGoElsewhereRaisesNothing) {
    fill(3);
    const QRect box = cell(2, 2);
    QTest::mousePress(view->viewport(), Qt::LeftButton, {},
                      QPoint(box.right() - box.height() / 2, box.center().y()));
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, cell(3, 2).center());
    EXPECT_TRUE(client->told.filter(QStringLiteral("button")).isEmpty());
}

TEST_F(XGridButton, F8RaisesCellButtonInAButtonColumnOnly) {
    fill(1);
    at(1, 2);
    press(Qt::Key_F8);
    EXPECT_EQ(client->told, QStringList({QStringLiteral("key 119"), QStringLiteral("button 1,2")}));
    client->told.clear();
    at(1, 4);
    press(Qt::Key_F8);
    EXPECT_EQ(client->told, QStringList(QStringLiteral("key 119")));
}

TEST_F(XGridButton, SwallowedF8RaisesNoCellButton) {
    fill(1);
    client->swallowKeys = true;
    at(1, 2);
    press(Qt::Key_F8);
    EXPECT_EQ(client->told, QStringList(QStringLiteral("key 119")));
}

TEST_F(XGridButton, ButtonBesideTheEntryStoresWhatTheClientChose) {
    fill(1);
    at(1, 2);
    type(QStringLiteral("ab"));
    client->onButton = [this] {
        client->lines[0][2] = QStringLiteral("CHOSEN");
        grid->refreshRow(1);
    };
    auto* button = view->viewport()->findChild<QToolButton*>();
    ASSERT_TRUE(button);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(client->lines[0][2], QStringLiteral("CHOSEN"));
    EXPECT_FALSE(grid->isEditing());
    EXPECT_TRUE(client->told.filter(QStringLiteral("set")).isEmpty()) << "the typed beginning is not stored";
}

TEST_F(XGridButton, ChoosingWhatTheCellHeldBeforeDropsTheTypedText) {
    fill(1);
    client->lines[0][2] = QStringLiteral("P1");
    at(1, 2);
    type(QStringLiteral("P2x"));
    client->buttonStores = true;
    press(Qt::Key_F8);
    EXPECT_FALSE(grid->isEditing());
    EXPECT_EQ(client->lines[0][2], QStringLiteral("P1"));
}

TEST_F(XGridButton, LookupGivenUpLeavesTheEntryAsItWas) {
    fill(1);
    at(1, 2);
    type(QStringLiteral("ab"));
    client->onButton = [this] {
        other->setFocus(); // as a lookup window takes the focus and gives it back
    };
    press(Qt::Key_F8);
    EXPECT_TRUE(grid->isEditing());
    EXPECT_EQ(entryText(), QStringLiteral("ab"));
    press(Qt::Key_Return);
    EXPECT_EQ(client->lines[0][2], QStringLiteral("ab"));
}
