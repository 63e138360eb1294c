#include "tests/reportengine_viewer/ViewerFixture.h"
#include <QComboBox>
#include <QScrollBar>
#include <QWheelEvent>

using namespace Qt::StringLiterals;
using namespace quorvane::report;

namespace {

class Navigation : public test::ViewerFixture {
protected:
    QString number() { return part<QLineEdit>("pageNumber").text(); }
    QString count() { return part<QLabel>("pageCount").text(); }
    QString zoomText() { return part<QComboBox>("zoom").currentText(); }
    void wheel(int delta, Qt::KeyboardModifiers modifiers) {
        QWidget* surface = view().viewport();
        const QPointF point(surface->rect().center());
        QWheelEvent event(point, surface->mapToGlobal(point), {}, {0, delta}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(surface, &event);
    }
    int last() { return view().pages()->count() - 1; }
};

} // namespace

TEST_F(Navigation, TheFirstPageShowsBeforeAllRowsAreLaidOut) {
    show(200000, true);
    ASSERT_TRUE(QTest::qWaitFor([this] { return view().geometryOfPages().count() > 0; }));
    EXPECT_FALSE(view().pages()->complete());
    EXPECT_LT(report->layout().rowsLaidOut(), 200000);
    EXPECT_EQ(number(), u"1"_s);
    EXPECT_TRUE(count().endsWith(u'…'));
    EXPECT_TRUE(placeOf(0, customer(0)).isValid());
}

TEST_F(Navigation, TheNumberOfPagesFillsInWhenItIsKnown) {
    open(2000);
    EXPECT_EQ(count(), u"de %1"_s.arg(view().pages()->count()));
    EXPECT_TRUE(placeOf(0, u"Página 1 de %1"_s.arg(view().pages()->count())).isValid());
}

TEST_F(Navigation, CommandsGoFromPageToPage) {
    open(2000);
    EXPECT_FALSE(action("first").isEnabled());
    trigger("next");
    EXPECT_EQ(view().currentPage(), 1);
    EXPECT_EQ(number(), u"2"_s);
    trigger("last");
    EXPECT_EQ(view().currentPage(), last());
    EXPECT_FALSE(action("next").isEnabled());
    trigger("previous");
    EXPECT_EQ(view().currentPage(), last() - 1);
    trigger("first");
    EXPECT_EQ(view().currentPage(), 0);
}

TEST_F(Navigation, KeysScrollAndJump) {
    open(2000);
    press(Qt::Key_PageDown);
    EXPECT_GT(view().verticalScrollBar()->value(), 0);
    press(Qt::Key_PageUp);
    EXPECT_EQ(view().verticalScrollBar()->value(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(view().currentPage(), last());
    press(Qt::Key_Home);
    EXPECT_EQ(view().currentPage(), 0);
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(view().currentPage(), 1);
    // Across only where a page is wider than the window.
    trigger("fitWidth");
    press(Qt::Key_Right);
    EXPECT_EQ(view().currentPage(), 2);
    press(Qt::Key_Left);
    EXPECT_EQ(view().currentPage(), 1);
}

TEST_F(Navigation, ATypedPageIsGoneTo) {
    open(2000);
    press(Qt::Key_G, Qt::ControlModifier);
    type(u"7"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(view().currentPage(), 6);
    EXPECT_TRUE(view().hasFocus());
    press(Qt::Key_G, Qt::ControlModifier);
    type(u"99999"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(view().currentPage(), last());
}

TEST_F(Navigation, WhatIsNoPageIsForgotten) {
    open(2000);
    for (const QString& text : {u"abc"_s, u"0"_s, u"-3"_s}) {
        press(Qt::Key_G, Qt::ControlModifier);
        type(text);
        press(Qt::Key_Return);
        EXPECT_EQ(view().currentPage(), 0);
        press(Qt::Key_Escape);
        EXPECT_EQ(number(), u"1"_s);
        EXPECT_TRUE(view().hasFocus());
    }
}

TEST_F(Navigation, APageThatIsNotKnownYetIsWaitedFor) {
    show(60000, true);
    ASSERT_TRUE(QTest::qWaitFor([this] { return view().geometryOfPages().count() > 0; }));
    press(Qt::Key_End);
    EXPECT_FALSE(view().pages()->complete());
    finish();
    EXPECT_EQ(view().currentPage(), last());
}

TEST_F(Navigation, ReadingOnKeepsItsPlaceWhilePagesComeIn) {
    show(60000, true);
    ASSERT_TRUE(QTest::qWaitFor([this] { return view().geometryOfPages().count() > 3; }));
    trigger("next");
    const int place = view().verticalScrollBar()->value();
    finish();
    EXPECT_EQ(view().verticalScrollBar()->value(), place);
    EXPECT_EQ(view().currentPage(), 1);
}

TEST_F(Navigation, ZoomGoesInStepsWithinItsLimits) {
    open(100);
    viewer->zoom(100);
    EXPECT_EQ(zoomText(), u"100 %"_s);
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(view().zoom(), 1.25);
    press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(view().zoom(), 1);
    for (int i = 0; i < 20; ++i)
        trigger("zoomIn");
    EXPECT_DOUBLE_EQ(view().zoom(), 4);
    EXPECT_FALSE(action("zoomIn").isEnabled());
    for (int i = 0; i < 20; ++i)
        trigger("zoomOut");
    EXPECT_DOUBLE_EQ(view().zoom(), 0.25);
    EXPECT_FALSE(action("zoomOut").isEnabled());
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(zoomText(), u"100 %"_s);
}

TEST_F(Navigation, TheWheelWithControlZoomsAroundThePointer) {
    open(2000);
    viewer->zoom(100);
    trigger("next");
    const QPoint centre = view().toPixels(view().viewport()->rect().center());
    const PagePlace before = view().geometryOfPages().toPage(centre, view().scroll());
    wheel(240, Qt::ControlModifier);
    EXPECT_NEAR(view().zoom(), 1.21, 0.001);
    const PagePlace after = view().geometryOfPages().toPage(centre, view().scroll());
    EXPECT_EQ(after.page, before.page);
    EXPECT_NEAR(after.point.y(), before.point.y(), 1);
    EXPECT_NEAR(after.point.x(), before.point.x(), 1);
}

TEST_F(Navigation, FittingFollowsTheWindow) {
    open(100);
    trigger("fitWidth");
    const double wide = view().zoom();
    EXPECT_TRUE(action("fitWidth").isChecked());
    viewer->resize(700, 700);
    QTest::qWait(1);
    EXPECT_LT(view().zoom(), wide);
    EXPECT_EQ(view().horizontalScrollBar()->maximum(), 0);
    trigger("fitPage");
    const PageGeometry& geometry = view().geometryOfPages();
    EXPECT_LE(geometry.page().height(), geometry.viewport().height());
    EXPECT_FALSE(action("fitWidth").isChecked());
    viewer->zoom(100);
    EXPECT_FALSE(action("fitPage").isChecked());
}

TEST_F(Navigation, ATypedZoomIsTakenAndNonsenseForgotten) {
    open(100);
    QLineEdit* edit = part<QComboBox>("zoom").lineEdit();
    const auto enter = [&](const QString& text) {
        edit->setFocus();
        edit->selectAll();
        type(text);
        press(Qt::Key_Return);
    };
    enter(u"130 %"_s);
    EXPECT_DOUBLE_EQ(view().zoom(), 1.3);
    enter(u"mucho"_s);
    EXPECT_EQ(zoomText(), u"130 %"_s);
    enter(u"9000"_s);
    EXPECT_DOUBLE_EQ(view().zoom(), 4);
}
