#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/quorvane32_grid/GridSupport.h"
#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLayout>
#include <QTest>
#include <QToolTip>

using quorvane::XGrid;

class XGridLayout : public GridTest {
protected:
    QColor cellColor(int row, int col) {
        const QImage picture = view->viewport()->grab().toImage();
        return picture.pixelColor((cell(row, col).topLeft() + QPoint(2, 2)) * picture.devicePixelRatio());
    }
    QColor captionColor(int col) {
        QHeaderView* header = view->horizontalHeader();
        const QImage picture = header->viewport()->grab().toImage();
        return picture.pixelColor(QPoint(header->sectionViewportPosition(col) + 1, 1) *
                                  picture.devicePixelRatio());
    }
};

TEST_F(XGridLayout, NewGridHasTheCaptionRowOnly) {
    const XGrid fresh;
    EXPECT_EQ(fresh.rows(), 1);
    EXPECT_EQ(fresh.cols(), 0);
    EXPECT_EQ(fresh.row(), 0);
}

TEST_F(XGridLayout, WidthsAreTwipsOfTheScreen) {
    const auto settle = [] { QCoreApplication::processEvents(); };
    grid->column(2).setWidth(1800);
    settle();
    EXPECT_EQ(view->columnWidth(2), qRound(120 * view->logicalDpiX() / 96.0));
    grid->column(2).setWidth(0);
    settle();
    EXPECT_TRUE(view->isColumnHidden(2));
    grid->column(2).setWidth(1500);
    settle();
    EXPECT_FALSE(view->isColumnHidden(2));
    EXPECT_TRUE(view->isColumnHidden(0));
}

TEST_F(XGridLayout, DraggedColumnEdgeChangesTheWidth) {
    view->horizontalHeader()->resizeSection(4, qRound(200 * view->logicalDpiX() / 96.0));
    EXPECT_EQ(grid->column(4).width(), 3000);
}

TEST_F(XGridLayout, CellBackColorOfRowZeroTintsTheCaption) {
    grid->setRow(0);
    for (int c = 0; c < grid->cols(); ++c) {
        grid->setCol(c);
        grid->setInner(QStringLiteral("CellBackColor"), 0xFFE0E0);
    }
    EXPECT_EQ(captionColor(2), QColor(0xE0, 0xE0, 0xFF));
    fill(1);
    EXPECT_EQ(captionColor(4), QColor(0xE0, 0xE0, 0xFF)) << "the tint outlives the rows";
}

TEST_F(XGridLayout, CellBackColorTintsTheCurrentCellOnly) {
    fill(2);
    at(1, 3);
    grid->setInner(QStringLiteral("CellBackColor"), 0x0000FF);
    at(2, 4);
    EXPECT_EQ(cellColor(1, 3), QColor(Qt::red));
    EXPECT_NE(cellColor(1, 2), QColor(Qt::red));
}

TEST_F(XGridLayout, SelectionTintShowsWhileTheGridHasTheFocus) {
    fill(2);
    grid->setFourthColor(0xFFCECE);
    at(1, 3);
    EXPECT_EQ(cellColor(1, 3), QColor(0xCE, 0xCE, 0xFF));
    other->setFocus();
    EXPECT_NE(cellColor(1, 3), QColor(0xCE, 0xCE, 0xFF));
    grid->setInner(QStringLiteral("HighLight"), 1);
    EXPECT_EQ(cellColor(1, 3), QColor(0xCE, 0xCE, 0xFF));
    grid->setInner(QStringLiteral("HighLight"), 0);
    EXPECT_NE(cellColor(1, 3), QColor(0xCE, 0xCE, 0xFF));
}

TEST_F(XGridLayout, FirstColorIsTheLineColourAndItsTopByteIsIgnored) {
    fill(2);
    grid->setFirstColor(0x020000FF);
    EXPECT_EQ(grid->firstColor(), 0xFFU);
    const QImage picture = view->viewport()->grab().toImage();
    const QRect box = cell(1, 2);
    EXPECT_EQ(picture.pixelColor(QPoint(box.left() + 3, box.bottom()) * picture.devicePixelRatio()),
              QColor(Qt::red));
}

TEST_F(XGridLayout, CaptionThatDoesNotFitTakesAnotherLine) {
    const int oneLine = view->horizontalHeader()->height();
    grid->column(4).setWidth(900);
    grid->column(4).setCaption(QStringLiteral("Calcular en base a:"));
    QTest::qWait(1);
    EXPECT_GE(view->horizontalHeader()->height(), oneLine + view->fontMetrics().height());
}

TEST_F(XGridLayout, RowsAreTallEnoughForTheirFont) {
    fill(1);
    QFont large = grid->font();
    large.setPointSize(24);
    grid->setFont(large);
    EXPECT_GE(view->rowHeight(0), QFontMetrics(large).height() + 2);
}

TEST_F(XGridLayout, TopRowScrollsARowToTheTop) {
    fill(500);
    grid->setTopRow(300);
    EXPECT_EQ(grid->topRow(), 300);
    grid->setTopRow(501);
    EXPECT_LT(grid->topRow(), 501) << "the last rows fill the window";
}

TEST_F(XGridLayout, NumbersOutsideTheGridRaiseError9) {
    fill(2);
    const auto errorOf = [](const auto& act) {
        try {
            act();
        } catch (const quorvane::RunTimeError& error) {
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(errorOf([this] { grid->setRow(4); }), 9);
    EXPECT_EQ(errorOf([this] { grid->setRow(-1); }), 9);
    EXPECT_EQ(errorOf([this] { grid->setCol(5); }), 9);
    EXPECT_EQ(errorOf([this] { grid->setRows(-1); }), 9);
    EXPECT_EQ(errorOf([this] { grid->column(5); }), 9);
    EXPECT_EQ(errorOf([this] { grid->column(1).setListItem(3, QString()); }), 9);
    EXPECT_EQ(errorOf([this] { grid->setInner(QStringLiteral("Nada"), 1); }), 5);
    EXPECT_EQ(errorOf([this] { grid->setRow(3); }), 0);
}

TEST_F(XGridLayout, TextAsksTheClientAndNamesCaptions) {
    fill(1);
    grid->column(2).setCaption(QStringLiteral("Producto"));
    EXPECT_EQ(grid->text(0, 2), QStringLiteral("Producto"));
    EXPECT_EQ(grid->text(1, 2), QStringLiteral("F1"));
    EXPECT_EQ(grid->text(9, 2), QString());
}

TEST_F(XGridLayout, TextThatDoesNotFitShowsWholeInItsToolTip) {
    fill(1);
    const QString wide(200, u'w');
    client->lines[0][1] = QStringLiteral("i");
    client->lines[0][3] = wide;
    const auto tipAt = [this](const QPoint& place) {
        QHelpEvent asked(QEvent::ToolTip, place, view->viewport()->mapToGlobal(place));
        QApplication::sendEvent(view->viewport(), &asked);
        return QToolTip::text();
    };
    EXPECT_EQ(tipAt(cell(1, 1).center()), QString());
    EXPECT_EQ(tipAt(cell(1, 3).center()), wide);
    const QRect button = cell(1, 2);
    EXPECT_EQ(tipAt(QPoint(button.right() - button.height() / 2, button.center().y())),
              QStringLiteral("Buscar (F8)"));
}

TEST_F(XGridLayout, ManyRowsMoreOrLessKeepTheCursor) {
    fill(10);
    at(7, 2);
    grid->setRows(50001);
    EXPECT_EQ(grid->row(), 7);
    EXPECT_EQ(grid->col(), 2);
    EXPECT_EQ(view->currentIndex(), view->model()->index(6, 2));
    grid->setRow(40000);
    grid->setRows(5);
    EXPECT_EQ(grid->row(), 4);
    EXPECT_EQ(view->currentIndex(), view->model()->index(3, 2));
    grid->setRows(50001);
    grid->setRows(1);
    EXPECT_EQ(grid->row(), 0);
    EXPECT_FALSE(view->currentIndex().isValid());
}

TEST_F(XGridLayout, EmptyGridWithoutCaptionRowTakesNoCursor) {
    grid->setRows(0);
    EXPECT_EQ(grid->rows(), 0);
    EXPECT_THROW(grid->setRow(0), quorvane::RunTimeError);
    press(Qt::Key_Down);
    grid->refresh();
    EXPECT_EQ(grid->row(), 0);
}

TEST_F(XGridLayout, GridMayGoWhileACellIsEdited) {
    fill(1);
    at(1, 2);
    type(QStringLiteral("x"));
    ASSERT_TRUE(grid->isEditing());
    delete grid;
    grid = new XGrid(&window); // for TearDown
    EXPECT_TRUE(client->told.filter(QStringLiteral("set")).isEmpty());
}

TEST_F(XGridLayout, GridThatWasNeverShownKeepsWhatItIsTold) {
    XGrid hidden;
    hidden.setClient(client.get());
    hidden.setCols(3);
    hidden.setRows(6);
    hidden.setInner(QStringLiteral("HighLight"), 2);
    EXPECT_EQ(hidden.rows(), 6);
    EXPECT_EQ(hidden.row(), 0);
    EXPECT_EQ(hidden.rowSel(), 0);
    EXPECT_EQ(hidden.topRow(), 0);
    EXPECT_FALSE(hidden.isEditing());
    EXPECT_TRUE(hidden.commitEdit());
    EXPECT_EQ(hidden.findChild<QTableView*>(), nullptr) << "nothing is made before somebody looks";
    hidden.setRow(4);
    EXPECT_EQ(hidden.row(), 4);
    EXPECT_EQ(hidden.findChild<QTableView*>()->model()->rowCount(), 5);
    hidden.setClient(nullptr);
}

TEST_F(XGridLayout, GridShownLaterStandsBetweenItsNeighboursInTheTabOrder) {
    auto* page = new QWidget(&window);
    auto* before = new QLineEdit(page);
    auto* late = new XGrid(page);
    auto* after = new QLineEdit(page);
    QWidget::setTabOrder(before, late);
    QWidget::setTabOrder(late, after);
    window.layout()->addWidget(page);
    page->show();
    auto* table = late->findChild<QTableView*>();
    ASSERT_NE(table, nullptr);
    EXPECT_TRUE(table->isVisible());
    QWidget* next = table->nextInFocusChain();
    while (next != after && (next->focusPolicy() == Qt::NoFocus || table->isAncestorOf(next)))
        next = next->nextInFocusChain();
    EXPECT_EQ(next, after);
    EXPECT_EQ(late->focusProxy(), table);
}
