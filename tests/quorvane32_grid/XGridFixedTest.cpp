// Fixed columns, pictures in cells, the end of the selection, clicks.
#include "tests/quorvane32_grid/GridSupport.h"
#include <QApplication>
#include <QSignalSpy>
#include <QTest>

namespace {

/// Shows a red picture in one cell.
class PictureClient : public LinesClient {
public:
    using LinesClient::LinesClient;
    void cellPicture(int row, int column, quorvane::XGridPicture& picture) override {
        if (row != 2 || column != 3)
            return;
        QPixmap red(16, 16);
        red.fill(Qt::red);
        picture.icon = QIcon(red);
        picture.alignment = alignment;
    }
    quorvane::XGridPicture::Alignment alignment = quorvane::XGridPicture::Centre;
};

class XGridFixed : public GridTest {
protected:
    void SetUp() override {
        GridTest::SetUp();
        fill(8, false);
    }
    /// The red area of a cell, in the cell's own coordinates.
    QRect redIn(int row, int col) {
        const QImage picture = view->viewport()->grab().toImage();
        QRect found;
        const QRect area = cell(row, col);
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                if (picture.pixelColor(x, y) == QColor(Qt::red))
                    found |= QRect(QPoint(x, y) - area.topLeft(), QSize(1, 1));
        return found;
    }
};

} // namespace

TEST_F(XGridFixed, KeysStopBeforeTheFixedColumns) {
    grid->setInner(QStringLiteral("FixedCols"), 3);
    at(2, 4);
    for (int i = 0; i < 4; ++i)
        press(Qt::Key_Left);
    EXPECT_EQ(grid->col(), 3);
    press(Qt::Key_Right);
    press(Qt::Key_Home);
    EXPECT_EQ(grid->col(), 3);
    press(Qt::Key_Right);
    press(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(grid->col(), 3);
}

TEST_F(XGridFixed, AClickOnAFixedColumnMakesItsRowCurrent) {
    grid->setInner(QStringLiteral("FixedCols"), 3);
    at(1, 4);
    QSignalSpy clicked(grid, &quorvane::XGrid::cellClicked);
    click(5, 1);
    EXPECT_EQ(grid->row(), 5);
    EXPECT_EQ(grid->col(), 3);
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked[0], (QVariantList{5, 1}));
}

TEST_F(XGridFixed, TheProgramMayPutTheCursorThere) {
    grid->setInner(QStringLiteral("FixedCols"), 3);
    at(4, 1);
    EXPECT_EQ(grid->col(), 1);
    EXPECT_EQ(grid->row(), 4);
}

TEST_F(XGridFixed, WithoutFixedColumnsNothingIsSkipped) {
    at(2, 2);
    press(Qt::Key_Left);
    EXPECT_EQ(grid->col(), 1);
}

TEST_F(XGridFixed, RowSelIsTheEndOfTheSelection) {
    at(3, 3);
    EXPECT_EQ(grid->rowSel(), 3);
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(grid->row(), 5);
    EXPECT_EQ(grid->rowSel(), 3);
    at(3, 3);
    press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(grid->row(), 2);
    EXPECT_EQ(grid->rowSel(), 3);
    grid->setRow(0);
    EXPECT_EQ(grid->rowSel(), 0);
}

TEST_F(XGridFixed, SelectingEverythingMovesTheCursorInAListOnly) {
    at(4, 3);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(grid->row(), 4);
    for (int col = 1; col < grid->cols(); ++col)
        grid->column(col).setReadOnly(true);
    at(4, 3);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(grid->row(), 1);
    EXPECT_EQ(grid->rowSel(), 8);
}

TEST_F(XGridFixed, ADragOrAModifierIsNoClick) {
    QSignalSpy clicked(grid, &quorvane::XGrid::cellClicked);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ShiftModifier, cell(3, 3).center());
    QTest::mouseClick(view->viewport(), Qt::RightButton, {}, cell(3, 3).center());
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, cell(3, 3).center());
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, cell(5, 3).center());
    clickButtonOf(2, 2);
    EXPECT_EQ(clicked.count(), 0);
    click(3, 3);
    EXPECT_EQ(clicked.count(), 1);
}

TEST_F(XGridFixed, APictureStandsWhereItsAlignmentSays) {
    PictureClient pictures(*grid);
    pictures.lines = client->lines;
    for (QStringList& line : pictures.lines)
        line[3].clear();
    grid->setClient(&pictures);
    const QRect box = cell(2, 3);
    QRect red = redIn(2, 3);
    EXPECT_EQ(red.size(), QSize(16, 16));
    EXPECT_NEAR(red.center().x(), box.width() / 2.0, 2);
    EXPECT_NEAR(red.center().y(), box.height() / 2.0, 2);
    EXPECT_TRUE(redIn(3, 3).isEmpty());
    pictures.alignment = quorvane::XGridPicture::LeftTop;
    grid->refreshRow(2);
    red = redIn(2, 3);
    EXPECT_LE(red.left(), 2);
    EXPECT_LE(red.top(), 2);
    pictures.alignment = quorvane::XGridPicture::RightCentre;
    grid->refreshRow(2);
    EXPECT_GE(redIn(2, 3).right(), box.width() - 5);
    grid->setClient(nullptr);
}
