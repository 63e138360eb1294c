#include "ui/toolbar/ToolbarPainter.h"
#include "tests/toolbar/MapSkin.h"
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPalette>
#include <gtest/gtest.h>
#include <map>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb normalIcon = qRgb(0, 200, 0);
constexpr QRgb hotIcon = qRgb(0, 250, 0);
constexpr QRgb disabledIcon = qRgb(90, 90, 90);
const QPoint away(-100, -100);

/// Lists of images of one colour each.
class PlainImages final : public ToolbarImages {
public:
    QPixmap image(ImageListKind list, int) const override {
        const auto found = colours.find(list);
        if (found == colours.end())
            return {};
        QPixmap image(size);
        image.fill(QColor(found->second));
        return image;
    }

    QSize size{16, 16};
    std::map<ImageListKind, QRgb> colours{{ImageListKind::Normal, normalIcon},
                                          {ImageListKind::Hot, hotIcon},
                                          {ImageListKind::Disabled, disabledIcon}};
};

/// A toolbar of 200 x 40 pixels over the map skin, whose caption colours are easy to tell.
class ToolbarPainterTest : public testing::Test {
protected:
    ToolbarPainterTest() {
        picture = mapPicture();
        picture.setPixel(215, 0, normalText);
        picture.setPixel(215, 6, pressedText);
        picture.setPixel(215, 10, disabledText);
        bar.size = {200, 40};
        bar.iconSize = {16, 16};
        bar.font = QFont(u"DejaVu Sans"_s);
        bar.font.setPixelSize(16);
        bar.cursor = away;
    }

    ToolbarButton& add(quint8 style, int state, QRect rect) {
        ToolbarButton button;
        button.style = style;
        button.state = static_cast<quint8>(state);
        button.rect = rect;
        return bar.buttons.emplace_back(button);
    }

    QImage paint() const { return paint(QRect({}, bar.size)); }
    QImage paint(QRect part) const { return ToolbarPainter(ToolbarSkin(picture)).paint(bar, images, part); }

    /// Expects the background as far as the rectangle goes.
    void expectBare(const QImage& image, QRect rect) const {
        const QImage background = ToolbarSkin(picture).background(bar.size);
        EXPECT_EQ(image.copy(rect), background.copy(rect)) << rect.x();
    }

    static QRect boundsOf(const QImage& image, QRgb colour) {
        QRect bounds;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) == colour)
                    bounds |= QRect(x, y, 1, 1);
        return bounds;
    }

    /// Adds a button with a caption that is one solid block and tells the block's colour in the picture.
    QRgb captionColour(quint8 style, int state) {
        ToolbarButton& button = add(style, state, {100, 0, 60, 40});
        button.caption = u"█"_s;
        const QImage image = paint().copy(button.rect);
        bar.buttons.pop_back();
        for (const QRgb colour : {normalText, pressedText, disabledText})
            if (!boundsOf(image, colour).isEmpty())
                return colour;
        return 0;
    }

    static constexpr QRgb normalText = qRgb(1, 1, 250);
    static constexpr QRgb pressedText = qRgb(2, 2, 250);
    static constexpr QRgb disabledText = qRgb(3, 3, 250);

    QImage picture;
    ToolbarDescription bar;
    PlainImages images;
};

} // namespace

TEST_F(ToolbarPainterTest, AToolbarWithoutButtonsIsAllBackground) {
    const QImage image = paint();
    EXPECT_EQ(image.size(), bar.size);
    EXPECT_EQ(image.pixel(0, 0), mapPixel(195, 0));
    EXPECT_EQ(image.pixel(199, 39), mapPixel(209, 22));
    expectBare(image, QRect({}, bar.size));
}

TEST_F(ToolbarPainterTest, OnlyTheButtonUnderTheMouseIsHot) {
    add(StyleButton, 4, {0, 0, 45, 40});
    add(StyleButton, 4, {45, 0, 45, 40});
    bar.cursor = {45, 0};
    const QImage image = paint();
    expectBare(image, {0, 0, 45, 40});
    EXPECT_EQ(image.pixel(45, 0), mapPixel(0, 0));
    EXPECT_EQ(image.pixel(89, 0), mapPixel(14, 0));
    EXPECT_EQ(image.pixel(89, 39), mapPixel(14, 22));
}

TEST_F(ToolbarPainterTest, AHotPressedButtonShowsTheSecondTile) {
    add(StyleButton, 6, {0, 0, 45, 40});
    bar.cursor = {10, 10};
    EXPECT_EQ(paint().pixel(0, 0), mapPixel(15, 0));
}

TEST_F(ToolbarPainterTest, ACheckedButtonShowsTheThirdTileAndUnderTheMouseTheFourth) {
    add(StyleCheck, 5, {0, 0, 45, 40});
    EXPECT_EQ(paint().pixel(0, 0), mapPixel(30, 0));
    bar.cursor = {10, 10};
    EXPECT_EQ(paint().pixel(0, 0), mapPixel(45, 0));
}

TEST_F(ToolbarPainterTest, ADropDownButtonIsPaintedInTwoParts) {
    add(StyleDropDown, 4, {10, 2, 50, 30});
    bar.cursor = {20, 10};
    QImage image = paint();
    EXPECT_EQ(image.pixel(10, 2), mapPixel(60, 0));
    EXPECT_EQ(image.pixel(46, 2), mapPixel(74, 0));
    EXPECT_EQ(image.pixel(47, 2), mapPixel(120, 0));
    EXPECT_EQ(image.pixel(59, 31), mapPixel(134, 22));
    bar.cursor = {59, 10};
    bar.menuOpen = true;
    image = paint();
    EXPECT_EQ(image.pixel(10, 2), mapPixel(60, 0));
    EXPECT_EQ(image.pixel(47, 2), mapPixel(135, 0)) << "the arrow part is pressed while its menu is open";
}

TEST_F(ToolbarPainterTest, ACheckedDropDownButtonIsOneFaceAwayFromTheMouse) {
    add(StyleDropDown, 5, {10, 2, 50, 30});
    const QImage image = paint();
    EXPECT_EQ(image.pixel(10, 2), mapPixel(30, 0));
    EXPECT_EQ(image.pixel(59, 2), mapPixel(44, 0));
}

TEST_F(ToolbarPainterTest, TheArrowStandsInTheMiddleOfTheLastThirteenPixels) {
    add(StyleDropDown, 4, {10, 2, 50, 31});
    QImage image = paint();
    // 13 pixels from column 47, 31 from row 2: three pixels aside, twelve above.
    for (int y = 0; y < 7; ++y)
        for (int x = 0; x < 7; ++x)
            ASSERT_EQ(image.pixel(50 + x, 14 + y), mapPixel(180 + x, y));
    expectBare(image, {47, 2, 3, 31});
    bar.buttons.front().state = 0;
    EXPECT_EQ(boundsOf(paint(), disabledText), QRect(50, 14, 7, 7));
}

TEST_F(ToolbarPainterTest, MagentaLetsTheBackgroundThrough) {
    picture.setPixel(0, 0, magenta);
    add(StyleButton, 4, {60, 5, 45, 30});
    bar.cursor = {70, 10};
    const QImage image = paint();
    expectBare(image, {60, 5, 1, 1});
    EXPECT_EQ(image.pixel(61, 5), mapPixel(1, 0));
}

TEST_F(ToolbarPainterTest, ASeparatorCoversItsRectangleAndStaysNarrowInAWideOne) {
    add(StyleSeparator, 4, {40, 0, 8, 40});
    add(StyleSeparator, 4, {100, 0, 28, 40});
    bar.cursor = {44, 10};
    const QImage image = paint();
    for (int x = 0; x < 8; ++x) {
        EXPECT_EQ(image.pixel(40 + x, 0), mapPixel(187 + x, 0));
        EXPECT_EQ(image.pixel(40 + x, 39), mapPixel(187 + x, 22));
        EXPECT_EQ(image.pixel(110 + x, 0), mapPixel(187 + x, 0));
    }
    expectBare(image, {100, 0, 10, 40});
    expectBare(image, {118, 0, 10, 40});
}

TEST_F(ToolbarPainterTest, ImagesComeFromTheListOfTheirState) {
    add(StyleButton, 4, {0, 0, 40, 40}).image = 0;
    EXPECT_EQ(boundsOf(paint(), normalIcon), QRect(12, 12, 16, 16));
    bar.cursor = {5, 5};
    EXPECT_EQ(boundsOf(paint(), hotIcon), QRect(12, 12, 16, 16));
    bar.buttons.front().state = 0;
    EXPECT_EQ(boundsOf(paint(), disabledIcon), QRect(12, 12, 16, 16)) << "disabled counts more than hot";
}

TEST_F(ToolbarPainterTest, WithoutAHotListTheNormalImageIsShown) {
    images.colours.erase(ImageListKind::Hot);
    add(StyleButton, 4, {0, 0, 40, 40}).image = 0;
    bar.cursor = {5, 5};
    EXPECT_EQ(boundsOf(paint(), normalIcon), QRect(12, 12, 16, 16));
}

TEST_F(ToolbarPainterTest, WithoutADisabledListTheNormalImageIsEmbossed) {
    images.colours.erase(ImageListKind::Disabled);
    images.colours[ImageListKind::Normal] = qRgb(0, 0, 0);
    add(StyleButton, 0, {0, 0, 40, 40}).image = 0;
    const QImage image = paint();
    const QRgb shadow = QGuiApplication::palette().color(QPalette::Dark).rgb();
    EXPECT_EQ(boundsOf(image, shadow), QRect(12, 12, 16, 16));
    EXPECT_TRUE(boundsOf(image, qRgb(0, 0, 0)).isEmpty());
}

TEST_F(ToolbarPainterTest, ButtonsWithoutAnImageIndexShowNone) {
    add(StyleButton, 4, {0, 0, 40, 40}).image = -1;
    EXPECT_TRUE(boundsOf(paint(), normalIcon).isEmpty());
}

TEST_F(ToolbarPainterTest, PressedAndCheckedContentSinksByOnePixel) {
    images.colours.erase(ImageListKind::Hot);
    ToolbarButton& button = add(StyleButton, 4, {0, 0, 80, 40});
    button.image = 0;
    button.caption = u"█"_s;
    bar.textOnRight = true;
    bar.cursor = {1, 1};
    const QRect image = boundsOf(paint(), normalIcon);
    const QRect text = boundsOf(paint(), normalText);
    ASSERT_FALSE(text.isEmpty());
    for (const quint8 state : {5, 6, 7}) {
        button.state = state;
        const QRgb colour = state == 5 ? normalText : pressedText;
        EXPECT_EQ(boundsOf(paint(), normalIcon), image.translated(1, 1)) << int(state);
        EXPECT_EQ(boundsOf(paint(), colour), text.translated(1, 1)) << int(state);
    }
    button.state = 38;
    EXPECT_EQ(boundsOf(paint(), normalIcon), image) << "pressed and wrapped does not sink";
}

TEST_F(ToolbarPainterTest, CaptionsStandRightOrBelow) {
    ToolbarButton& button = add(StyleButton, 4, {0, 0, 80, 40});
    button.image = 0;
    button.caption = u"█"_s;
    EXPECT_GT(boundsOf(paint(), normalText).top(), boundsOf(paint(), normalIcon).bottom());
    bar.textOnRight = true;
    EXPECT_GT(boundsOf(paint(), normalText).left(), boundsOf(paint(), normalIcon).right());
}

TEST_F(ToolbarPainterTest, TheContentOfADropDownButtonLeavesTheArrowAlone) {
    add(StyleDropDown, 4, {0, 0, 53, 40}).image = 0;
    EXPECT_EQ(boundsOf(paint(), normalIcon), QRect(12, 12, 16, 16));
}

TEST_F(ToolbarPainterTest, TheCaptionEndsAtItsFirstNul) {
    ToolbarButton& button = add(StyleButton, 4, {0, 0, 80, 40});
    button.caption = u"█"_s;
    const QImage expected = paint();
    button.caption = u"█"_s + QChar(u'\0') + u"███"_s;
    EXPECT_EQ(paint(), expected);
    button.caption = QChar(u'\0') + u"███"_s;
    EXPECT_TRUE(boundsOf(paint(), normalText).isEmpty());
}

TEST_F(ToolbarPainterTest, CaptionsHaveTheSampledColourOfTheirState) {
    EXPECT_EQ(captionColour(StyleButton, 4), normalText);
    EXPECT_EQ(captionColour(StyleButton, 5), normalText);
    EXPECT_EQ(captionColour(StyleButton, 6), pressedText);
    EXPECT_EQ(captionColour(StyleCheck, 7), pressedText);
    EXPECT_EQ(captionColour(StyleButton, 36), normalText);
    EXPECT_EQ(captionColour(StyleButton, 0), disabledText);
    EXPECT_EQ(captionColour(StyleDropDown, 1), disabledText);
}

TEST_F(ToolbarPainterTest, APressedGroupButtonTakesTheColourOfTheButtonBeforeIt) {
    EXPECT_EQ(captionColour(StyleCheckGroup, 7), normalText) << "nothing is before it";
    bar.buttons.clear();
    add(StyleButton, 0, {0, 0, 50, 40});
    EXPECT_EQ(captionColour(StyleCheckGroup, 7), disabledText);
    bar.buttons.clear();
    add(StyleButton, 6, {0, 0, 50, 40});
    add(StyleSeparator, 4, {50, 0, 8, 40});
    EXPECT_EQ(captionColour(StyleCheckGroup, 6), pressedText);
}

TEST_F(ToolbarPainterTest, ACaptionTooLongForItsButtonIsShortened) {
    ToolbarButton& button = add(StyleButton, 4, {20, 0, 40, 40});
    button.caption = u"████████"_s;
    const QImage image = paint();
    expectBare(image, {0, 0, 20, 40});
    expectBare(image, {60, 0, 140, 40});
}

TEST_F(ToolbarPainterTest, ContentTooHighForItsButtonIsCut) {
    ToolbarButton& button = add(StyleButton, 4, {20, 10, 60, 20});
    button.image = 0;
    button.caption = u"█"_s;
    add(StyleButton, 4, {80, 0, 60, 40}).caption = u"█"_s;
    const QImage image = paint();
    EXPECT_FALSE(boundsOf(image, normalIcon).isEmpty());
    expectBare(image, {20, 0, 60, 10});
    expectBare(image, {20, 30, 60, 10});
    EXPECT_GT(boundsOf(image, normalText).right(), 80) << "the next button is whole";
}

TEST_F(ToolbarPainterTest, ACaptionOfTwoLinesIsShownInOne) {
    ToolbarButton& button = add(StyleButton, 4, {20, 0, 120, 40});
    button.caption = u"█ █"_s;
    const QRect oneLine = boundsOf(paint(), normalText);
    ASSERT_FALSE(oneLine.isEmpty());
    button.caption = u"█\n█"_s;
    EXPECT_EQ(boundsOf(paint(), normalText), oneLine);
}

TEST_F(ToolbarPainterTest, AnAmpersandMarksALetterAndIsNotShown) {
    if (!QFontMetrics(QGuiApplication::font()).inFontUcs4(U'█'))
        GTEST_SKIP() << "there is no font with the block";
    ToolbarButton& button = add(StyleButton, 4, {20, 0, 120, 40});
    button.caption = u"██"_s;
    const QRect plain = boundsOf(paint(), normalText);
    button.caption = u"█&█"_s;
    const QRect marked = boundsOf(paint(), normalText);
    EXPECT_EQ(marked.left(), plain.left());
    EXPECT_EQ(marked.right(), plain.right());
}

TEST_F(ToolbarPainterTest, TheBackgroundIsNeverTransparent) {
    for (int x = 195; x < 210; ++x)
        picture.setPixel(x, 0, magenta);
    EXPECT_EQ(paint().pixel(100, 0), magenta);
}

TEST_F(ToolbarPainterTest, ThePartsOfAPressedDropDownButtonAreBothPressed) {
    add(StyleDropDown, 6, {10, 2, 50, 30});
    bar.cursor = {20, 10};
    const QImage image = paint();
    EXPECT_EQ(image.pixel(10, 2), mapPixel(75, 0));
    EXPECT_EQ(image.pixel(47, 2), mapPixel(135, 0));
}

TEST_F(ToolbarPainterTest, TheArrowIsDisabledOnlyWithoutAnyState) {
    ToolbarButton& button = add(StyleDropDown, 0, {10, 2, 50, 31});
    EXPECT_FALSE(boundsOf(paint(), disabledText).isEmpty());
    for (const quint8 state : {1, 32}) {
        button.state = state;
        EXPECT_EQ(paint().pixel(53, 17), mapPixel(183, 3)) << int(state);
    }
}

TEST_F(ToolbarPainterTest, APartIsTheSameAsThatPartOfTheWhole) {
    add(StyleButton, 0, {0, 0, 50, 40}).caption = u"█"_s;
    add(StyleCheckGroup, 7, {50, 0, 50, 40}).caption = u"█"_s;
    add(StyleDropDown, 4, {100, 0, 60, 40}).image = 0;
    bar.cursor = {110, 20};
    const QImage whole = paint();
    for (const QRect part : {QRect(50, 0, 50, 40), QRect(90, 7, 45, 20), QRect(160, 0, 100, 100)})
        EXPECT_EQ(paint(part), whole.copy(part & QRect({}, bar.size))) << part.x();
    EXPECT_TRUE(paint({300, 0, 10, 10}).isNull());
}

TEST_F(ToolbarPainterTest, NothingOfAnEarlierPictureIsLeft) {
    add(StyleCheck, 5, {20, 0, 45, 40});
    const QImage expected = paint();
    const ToolbarPainter painter{ToolbarSkin(picture)};
    for (const QSize size : {bar.size, QSize(10, 10)}) {
        QImage earlier(size, QImage::Format_RGB32);
        earlier.fill(Qt::red);
        earlier.setDevicePixelRatio(2);
        EXPECT_EQ(painter.paint(bar, images, QRect({}, bar.size), 1, earlier), expected);
    }
}

TEST_F(ToolbarPainterTest, ButtonsThatAreNotShownLeaveNoTrace) {
    ToolbarButton& button = add(StyleCheck, 5, {});
    button.image = 0;
    button.caption = u"█"_s;
    bar.cursor = {0, 0};
    expectBare(paint(), QRect({}, bar.size));
}

TEST_F(ToolbarPainterTest, WithoutAUsableSkinNothingIsPainted) {
    EXPECT_FALSE(ToolbarPainter().canPaint());
    EXPECT_TRUE(ToolbarPainter().paint(bar, images, {0, 0, 10, 10}).isNull());
    const ToolbarPainter small(ToolbarSkin(picture.copy(0, 0, 100, 23)));
    EXPECT_FALSE(small.canPaint());
    EXPECT_TRUE(small.paint(bar, images, {0, 0, 10, 10}).isNull());
}

TEST_F(ToolbarPainterTest, OnAFinerScreenEveryPixelOfTheSkinIsLarger) {
    add(StyleCheck, 5, {20, 0, 45, 40});
    const QImage image = ToolbarPainter(ToolbarSkin(picture)).paint(bar, images, QRect({}, bar.size), 2);
    EXPECT_EQ(image.size(), QSize(400, 80));
    EXPECT_EQ(image.pixel(40, 0), mapPixel(30, 0));
    EXPECT_EQ(image.pixel(41, 1), mapPixel(30, 0));
    EXPECT_EQ(image.pixel(129, 79), mapPixel(44, 22));
}

} // namespace toolbar_test
