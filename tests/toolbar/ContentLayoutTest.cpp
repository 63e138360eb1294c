#include "ui/toolbar/ContentLayout.h"
#include <gtest/gtest.h>

namespace toolbar_test {

using dalvora::toolbar::ContentLayout;
using dalvora::toolbar::layoutContent;

namespace {

const QRect area(100, 10, 80, 50);

} // namespace

TEST(ContentLayout, AnImageAloneStandsInTheMiddle) {
    const ContentLayout places = layoutContent(area, {24, 24}, {}, true);
    EXPECT_EQ(places.image, QRect(128, 23, 24, 24));
    EXPECT_TRUE(places.caption.isEmpty());
}

TEST(ContentLayout, ACaptionStandsBelowTheImage) {
    const ContentLayout places = layoutContent(area, {24, 24}, {40, 15}, false);
    EXPECT_EQ(places.image, QRect(128, 15, 24, 24));
    EXPECT_EQ(places.caption, QRect(120, 40, 40, 15));
}

TEST(ContentLayout, ACaptionStandsRightOfTheImageWithTheFlag) {
    const ContentLayout places = layoutContent(area, {24, 24}, {40, 15}, true);
    EXPECT_EQ(places.image.y(), 23);
    EXPECT_EQ(places.caption.x(), places.image.right() + 1 + 4);
    EXPECT_EQ(places.caption.size(), QSize(40, 15));
    EXPECT_EQ(places.image.left() - area.left(), area.right() - places.caption.right());
}

TEST(ContentLayout, ACaptionNeverLeavesTheButton) {
    for (const bool onRight : {false, true}) {
        const ContentLayout places = layoutContent(area, {24, 24}, {400, 15}, onRight);
        EXPECT_TRUE(area.contains(places.image)) << onRight;
        EXPECT_TRUE(area.contains(places.caption)) << onRight;
    }
    EXPECT_TRUE(layoutContent({0, 0, 20, 20}, {24, 24}, {40, 15}, true).caption.isEmpty());
}

} // namespace toolbar_test
