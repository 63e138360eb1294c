#include "platform/reportengine/viewer/PageGeometry.h"
#include "platform/reportengine/viewer/ZoomSteps.h"
#include <gtest/gtest.h>

using namespace quorvane::report;

namespace {

constexpr QSizeF letter{600, 800};

} // namespace

TEST(PageGeometry, PagesLieUnderOneAnotherInTheMiddle) {
    const PageGeometry pages(letter, 3, 1, {1000, 700}, 10);
    EXPECT_EQ(pages.place(0, {}), QPoint(200, 10));
    EXPECT_EQ(pages.place(1, {}), QPoint(200, 820));
    EXPECT_EQ(pages.place(1, {0, 800}), QPoint(200, 20));
    EXPECT_EQ(pages.scrollRange(), QPoint(0, 3 * 810 + 10 - 700));
}

TEST(PageGeometry, AWidePageIsScrolledAcross) {
    const PageGeometry pages(letter, 1, 2, {1000, 700}, 10);
    EXPECT_EQ(pages.scrollRange().x(), 1200 + 20 - 1000);
    EXPECT_EQ(pages.place(0, {5, 0}).x(), 5);
}

TEST(PageGeometry, APlaceOnThePageAndItsPixelAreTheSame) {
    const PageGeometry pages(letter, 5, 1.5, {800, 600}, 10);
    const QPoint scroll(40, 2500);
    const PagePlace place = pages.toPage({300, 200}, scroll);
    EXPECT_EQ(place.page, 2);
    const QRect pixel = pages.toPixels({place.page, QRectF(place.point, QSizeF(1, 1))}, scroll);
    EXPECT_EQ(pixel.topLeft(), QPoint(300, 200));
}

TEST(PageGeometry, OnlyPagesOnTheScreenAreVisible) {
    const PageGeometry pages(letter, 20000, 1, {1000, 700}, 10);
    const PageGeometry::Range range = pages.visible({0, pages.scrollOf(12345) + 400});
    EXPECT_EQ(range.first, 12345);
    EXPECT_EQ(range.last, 12346);
    const PageGeometry none(letter, 0, 1, {1000, 700}, 10);
    EXPECT_LT(none.visible({}).last, none.visible({}).first);
}

TEST(PageGeometry, TheLastPageCanBeScrolledTo) {
    const PageGeometry pages(letter, 20000, 4, {1000, 700}, 10);
    EXPECT_EQ(pages.pageAt(350, {0, pages.scrollOf(19999)}), 19999);
}

TEST(PageGeometry, MorePixelsThanAScrollBarCountsAreKeptWithin) {
    const PageGeometry pages(letter, 1000000, 8, {1000, 700}, 10);
    EXPECT_EQ(pages.scrollRange().y(), std::numeric_limits<int>::max());
    EXPECT_GT(pages.pageAt(0, pages.scrollRange()), 300000);
}

TEST(PageGeometry, FittingLeavesTheMarginsFree) {
    EXPECT_DOUBLE_EQ(PageGeometry::scaleToFit(letter, {1220, 500}, 10, false), 2);
    EXPECT_DOUBLE_EQ(PageGeometry::scaleToFit(letter, {1220, 420}, 10, true), 0.5);
}

TEST(ZoomSteps, GoToTheNextUsualSize) {
    EXPECT_DOUBLE_EQ(nextZoom(1, true), 1.25);
    EXPECT_DOUBLE_EQ(nextZoom(1.1, true), 1.25);
    EXPECT_DOUBLE_EQ(nextZoom(1.1, false), 1);
    EXPECT_DOUBLE_EQ(nextZoom(4, true), 4);
    EXPECT_DOUBLE_EQ(nextZoom(0.25, false), 0.25);
}
