#include "tests/reportengine_viewer/ViewerFixture.h"

using namespace Qt::StringLiterals;
using namespace quorvane::report;

namespace {

class Find : public test::ViewerFixture {
protected:
    bool isOpen() { return part<QWidget>("findBar").isVisible(); }
    /// Page of the current hit as the bar tells it, 0 when it tells something else.
    int foundPage() { return findMessage().section(u' ', 1, 1).remove(u',').toInt(); }
    void next(Qt::KeyboardModifiers modifiers = {}) {
        press(Qt::Key_F3, modifiers);
        EXPECT_TRUE(QTest::qWaitFor(
            [this] { return !findMessage().startsWith(u"Buscando"_s) && !findMessage().isEmpty(); }, 10000));
    }
};

} // namespace

TEST_F(Find, ATextOnAFarPageIsFoundAndShown) {
    open(20000);
    EXPECT_TRUE(search(customer(19999)).startsWith(u"Página "_s));
    const int page = foundPage() - 1;
    EXPECT_GT(page, 100);
    const QRect place = placeOf(page, customer(19999));
    EXPECT_TRUE(view().viewport()->rect().contains(place));
}

TEST_F(Find, CaseAndAccentsDoNotCount) {
    open(100);
    EXPECT_EQ(search(u"VENDEDOR DEBORA ibanez"_s), u"No encontrado"_s);
    EXPECT_TRUE(search(u"debora IBANEZ"_s).startsWith(u"Página "_s));
}

TEST_F(Find, F3GoesOnAndBackAndRoundTheEnd) {
    open(1000);
    search(u"Cliente 0000"_s);
    const int first = foundPage();
    EXPECT_EQ(first, 1);
    press(Qt::Key_Escape);
    search(u"Hugo Ñancupil"_s);
    const int hugo = foundPage();
    EXPECT_GT(hugo, 1);
    next(Qt::ShiftModifier);
    EXPECT_TRUE(findMessage().contains(u"desde el final"_s)) << qPrintable(findMessage());
    next();
    EXPECT_TRUE(findMessage().contains(u"desde el comienzo"_s));
    EXPECT_EQ(foundPage(), hugo);
}

TEST_F(Find, EveryHitIsVisitedOnce) {
    open(300);
    // One heading a salesperson and page, one total a salesperson.
    search(u"Gil Toro"_s);
    const QString first = findMessage();
    int hits = 1;
    for (next(); !findMessage().contains(u"desde"_s) && hits < 50; next())
        ++hits;
    int expected = 0;
    for (int page = 0; page < view().pages()->count(); ++page)
        expected += static_cast<int>(hitsOn(view().pages()->make(page), page, sought(u"Gil Toro"_s)).size());
    EXPECT_GT(expected, 1);
    EXPECT_EQ(hits, expected);
}

TEST_F(Find, WhatIsNowhereIsTold) {
    open(1000);
    EXPECT_EQ(search(u"no existe"_s), u"No encontrado"_s);
    EXPECT_EQ(view().currentPage(), 0);
    EXPECT_TRUE(isOpen());
}

TEST_F(Find, EscapeClosesTheBarAndTakesTheMarksAway) {
    open(100);
    search(u"FACTURA"_s);
    const QImage marked = view().grab().toImage();
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(view().hasFocus());
    EXPECT_NE(view().grab().toImage(), marked);
}

TEST_F(Find, MarksLieUnderTheFoundLettersOnly) {
    open(100);
    search(u"0000000"_s);
    const QImage picture = view().viewport()->grab().toImage();
    const QRect whole = placeOf(0, customer(0));
    const auto yellow = [&](const QPoint& point) {
        const QColor colour = picture.pixelColor(point * picture.devicePixelRatio());
        return colour.red() > 200 && colour.blue() < 180;
    };
    // "Cliente 0000000 S.A.": the corner over the C is as white as before, the digits are marked.
    EXPECT_FALSE(yellow(whole.topLeft() + QPoint(4, 2)));
    int marked = 0;
    for (int x = whole.left(); x < whole.right(); ++x)
        marked += yellow({x, whole.top() + 2});
    EXPECT_GT(marked, 20);
    EXPECT_LT(marked, whole.width() / 2);
}

TEST_F(Find, ASearchWaitsForPagesThatAreStillBeingLaidOut) {
    show(60000, true);
    ASSERT_TRUE(QTest::qWaitFor([this] { return view().geometryOfPages().count() > 0; }));
    ASSERT_FALSE(view().pages()->complete());
    EXPECT_TRUE(search(customer(59999)).startsWith(u"Página "_s));
    EXPECT_GT(foundPage(), 1000);
}

TEST_F(Find, EscapeStopsASearchThatIsRunning) {
    open(30000);
    press(Qt::Key_F, Qt::ControlModifier);
    type(u"no existe"_s);
    press(Qt::Key_Return);
    ASSERT_TRUE(findMessage().startsWith(u"Buscando"_s)) << qPrintable(findMessage());
    press(Qt::Key_Escape);
    EXPECT_EQ(findMessage(), u"Búsqueda detenida"_s);
    EXPECT_TRUE(isOpen());
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_F(Find, TypingSearchesByItself) {
    open(1000);
    press(Qt::Key_F, Qt::ControlModifier);
    type(u"hugo"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return foundPage() > 1; }));
}
