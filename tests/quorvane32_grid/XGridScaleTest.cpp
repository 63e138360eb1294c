#include "tests/quorvane32_grid/GridSupport.h"
#include <QAccessible>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <ctime>
#include <limits>

class XGridScale : public GridTest {
protected:
    void SetUp() override {
        GridTest::SetUp();
        window.resize(900, 600);
        client->lines.clear();
        for (int r = 0; r < manyLines; ++r)
            client->addLine({QString(), QStringLiteral("Familia"), QStringLiteral("F%1").arg(r + 1),
                             QStringLiteral("Familia número %1").arg(r + 1), QString::number(r)});
        QTest::qWait(10);
    }

    /// Gives the grid so many rows, shows the window, scrolls to the end and shows that; how many texts the
    /// client was asked for.
    int showAndScroll(int lines) {
        grid->setRows(1);
        window.grab();
        client->textRequests = 0;
        grid->setRows(lines + 1);
        window.grab();
        grid->setRow(lines);
        window.grab();
        return client->textRequests;
    }

    static constexpr int manyLines = 100000;
};

TEST_F(XGridScale, OnlyVisibleCellsAreAskedFor) {
    const int asked = showAndScroll(manyLines);
    EXPECT_EQ(view->rowAt(view->viewport()->height() - 1), manyLines - 1);
    EXPECT_GT(asked, 0);
    EXPECT_LT(asked, 1000);
}

TEST_F(XGridScale, AHundredThousandRowsAskForNoMoreThanAHundred) {
    const int few = showAndScroll(100);
    EXPECT_LE(showAndScroll(manyLines), few);
}

TEST_F(XGridScale, AssistiveTechnologySeesTheVisibleCellsOnly) {
    grid->setAccessibleName(QStringLiteral("Líneas de productos"));
    client->lines.clear();
    for (int r = 0; r < 100000; ++r)
        client->addLine(
            {QString(), QStringLiteral("Familia"), QStringLiteral("F%1").arg(r + 1), QString(), QString()});
    grid->setRows(100001);
    grid->setRow(50000);
    grid->setCol(2);
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(view);
    ASSERT_TRUE(table);
    EXPECT_EQ(table->text(QAccessible::Name), QStringLiteral("Líneas de productos"));
    EXPECT_EQ(table->role(), QAccessible::Table);
    EXPECT_GT(table->childCount(), 4);
    EXPECT_LT(table->childCount(), 500);
    for (int i = 0; i < table->childCount(); ++i) {
        QAccessibleInterface* cell = table->child(i);
        ASSERT_TRUE(cell && cell->isValid());
        EXPECT_EQ(table->indexOfChild(cell), i);
        EXPECT_FALSE(cell->state().offscreen);
    }
    QAccessibleInterface* current = table->focusChild();
    ASSERT_TRUE(current);
    EXPECT_EQ(current->text(QAccessible::Name), QStringLiteral("F50000"));
    EXPECT_TRUE(current->state().focused);
    const QRect place = current->rect();
    EXPECT_EQ(table->childAt(place.center().x(), place.center().y()), current);
}

TEST_F(XGridScale, CellOfARemovedRowBecomesInvalid) {
    fill(3);
    at(3, 2);
    QAccessibleInterface* cell = QAccessible::queryAccessibleInterface(view)->focusChild();
    ASSERT_TRUE(cell);
    grid->setRows(2);
    EXPECT_FALSE(cell->isValid());
    EXPECT_TRUE(cell->text(QAccessible::Name).isEmpty());
}
