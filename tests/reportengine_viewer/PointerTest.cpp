#include "tests/reportengine_viewer/ViewerFixture.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace quorvane::report;

namespace {

class Pointer : public test::ViewerFixture {
protected:
    void SetUp() override {
        QObject::connect(viewer.get(), &ReportViewer::lineClicked, viewer.get(),
                         [this](const std::vector<LineField>& fields) {
                             ++clicks;
                             clicked = fields;
                         });
    }
    QWidget* surface() { return view().viewport(); }
    void drag(const QPoint& from, const QPoint& to) {
        QTest::mousePress(surface(), Qt::LeftButton, {}, from);
        QTest::mouseMove(surface(), (from + to) / 2);
        moveHolding((from + to) / 2);
        moveHolding(to);
        QTest::mouseRelease(surface(), Qt::LeftButton, {}, to);
    }
    /// The offscreen platform moves without buttons, so the event is made here.
    void moveHolding(const QPoint& to) {
        QMouseEvent event(QEvent::MouseMove, to, surface()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                          {});
        QApplication::sendEvent(surface(), &event);
    }
    void moveTo(const QPoint& to) {
        QMouseEvent event(QEvent::MouseMove, to, surface()->mapToGlobal(to), Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(surface(), &event);
    }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }

    int clicks = 0;
    std::vector<LineField> clicked;
};

} // namespace

TEST_F(Pointer, IsAHandOverLinesThatCanBeClicked) {
    open(100);
    const QPoint line = placeOf(0, customer(0)).center();
    moveTo(line);
    EXPECT_EQ(surface()->cursor().shape(), Qt::ArrowCursor);
    viewer->setLinesClickable(true, u"Ver el documento"_s);
    moveTo(line);
    EXPECT_EQ(surface()->cursor().shape(), Qt::PointingHandCursor);
    moveTo(placeOf(0, u"Ventas por vendedor"_s).center());
    EXPECT_EQ(surface()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(Pointer, AClickOnALineGivesItsFieldsInOrder) {
    open(100);
    viewer->setLinesClickable(true);
    QTest::mouseClick(surface(), Qt::LeftButton, {}, placeOf(0, customer(0)).center());
    ASSERT_EQ(clicked.size(), 5U);
    EXPECT_EQ(clicked[0].text, u"01/07/1997"_s);
    EXPECT_EQ(clicked[1].name, u"Field10"_s);
    EXPECT_EQ(clicked[1].text, u"FACTURA"_s);
    EXPECT_EQ(clicked[2].name, u"Field6"_s);
    EXPECT_EQ(clicked[2].text, u"10000"_s);
    EXPECT_EQ(clicked[3].text, customer(0));
    EXPECT_EQ(clicked[4].name, u"Field8"_s);
}

TEST_F(Pointer, AClickElsewhereGivesNothing) {
    open(100);
    viewer->setLinesClickable(true);
    // Headings and totals have fields as well, and no document behind them.
    for (const QString& text : {u"Ventas por vendedor"_s, u"Cliente"_s, u"Andrés Peña"_s, u"Total vendedor"_s,
                                u"10"_s, u"documentos"_s}) {
        const QRect place = placeOf(0, text);
        ASSERT_TRUE(place.isValid() && surface()->rect().contains(place)) << qPrintable(text);
        moveTo(place.center());
        EXPECT_EQ(surface()->cursor().shape(), Qt::ArrowCursor) << qPrintable(text);
        QTest::mouseClick(surface(), Qt::LeftButton, {}, place.center());
    }
    QTest::mouseClick(surface(), Qt::LeftButton, {}, QPoint(2, 300));
    QTest::mouseClick(surface(), Qt::RightButton, {}, placeOf(0, customer(0)).center());
    EXPECT_EQ(clicks, 0);
}

TEST_F(Pointer, LinesAreNotClickedUnlessTheOwnerSaysSo) {
    open(100);
    QTest::mouseClick(surface(), Qt::LeftButton, {}, placeOf(0, customer(0)).center());
    EXPECT_EQ(clicks, 0);
}

TEST_F(Pointer, DraggingMarksTextsAndCopiesThemInColumns) {
    open(100);
    viewer->setLinesClickable(true);
    EXPECT_FALSE(action("copy").isEnabled());
    drag(placeOf(0, u"10000"_s).topLeft() + QPoint(-3, 2),
         placeOf(0, customer(90)).bottomRight() - QPoint(2, 2));
    EXPECT_EQ(clicks, 0);
    EXPECT_TRUE(action("copy").isEnabled());
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), u"10000\t"_s + customer(0) + u"\n10090\t"_s + customer(90) + u'\n');
}

TEST_F(Pointer, AMarkOverTwoPagesLeavesHeadingsAndFeetOut) {
    open(2000);
    trigger("fitPage");
    view().setZoom(0.3);
    const QRect from = placeOf(0, customer(100));
    const std::shared_ptr<const ShownPage> second = view().pages()->page(1);
    QString last;
    for (const PlacedText& text : second->texts)
        if (text.text.startsWith(u"Cliente "_s))
            last = text.text;
    ASSERT_TRUE(surface()->rect().contains(placeOf(1, last)));
    drag(from.center(), placeOf(1, last).center());
    press(Qt::Key_C, Qt::ControlModifier);
    const QStringList lines = clipboard().split(u'\n', Qt::SkipEmptyParts);
    EXPECT_GT(lines.size(), 50);
    EXPECT_TRUE(lines.front().contains(customer(100)));
    EXPECT_TRUE(lines.back().contains(last));
    EXPECT_FALSE(clipboard().contains(u"Página"_s));
    EXPECT_EQ(clipboard().count(u"Cliente\n"_s), 0);
}

TEST_F(Pointer, AClickTakesTheMarkAway) {
    open(100);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(view().hasSelection());
    QTest::mouseClick(surface(), Qt::LeftButton, {}, QPoint(2, 300));
    EXPECT_FALSE(view().hasSelection());
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Escape);
    EXPECT_FALSE(view().hasSelection());
}

TEST_F(Pointer, ADragHeldBelowScrolls) {
    open(2000);
    QTest::mousePress(surface(), Qt::LeftButton, {}, QPoint(400, 300));
    moveHolding({400, surface()->height() + 60});
    EXPECT_TRUE(QTest::qWaitFor([this] { return view().verticalScrollBar()->value() > 500; }));
    QTest::mouseRelease(surface(), Qt::LeftButton, {}, QPoint(400, 300));
    const int place = view().verticalScrollBar()->value();
    QTest::qWait(60);
    EXPECT_EQ(view().verticalScrollBar()->value(), place);
}

TEST_F(Pointer, TheMiddleButtonDragsThePages) {
    open(2000);
    QTest::mousePress(surface(), Qt::MiddleButton, {}, QPoint(400, 400));
    QMouseEvent move(QEvent::MouseMove, QPointF(400, 250), surface()->mapToGlobal(QPointF(400, 250)),
                     Qt::NoButton, Qt::MiddleButton, {});
    QApplication::sendEvent(surface(), &move);
    QTest::mouseRelease(surface(), Qt::MiddleButton, {}, QPoint(400, 250));
    EXPECT_EQ(view().verticalScrollBar()->value(), qRound(150 * view().devicePixelRatioF()));
}
