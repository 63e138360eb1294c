#include "tests/toolbar/FailureRecorder.h"
#include "tests/toolbar/FakeWindows.h"
#include "tests/toolbar/MapSkin.h"
#include "ui/toolbar/NativeDescription.h"
#include "ui/toolbar/NativeToolbarHook.h"
#include "ui/toolbar/cSubclassToolBar.h"
#include <gtest/gtest.h>
#include <set>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

constexpr NativeHandle container = 1;
constexpr NativeHandle toolbar = 2;
constexpr NativeHandle oldToolbar = 3;
constexpr qintptr plainStyle = 0x50;

class NativeToolbarTest : public testing::Test {
protected:
    FakeWindows::Window& createToolbar(qintptr style = plainStyle) {
        FakeWindows::Window& window = windows.create(toolbar, container, u"ToolbarWindow32"_s);
        window.answers[message::GetStyle] = style;
        window.answers[message::GetImageList] = 101;
        window.answers[message::GetHotImageList] = 102;
        ToolbarButton button;
        button.rect = {0, 0, 40, 40};
        button.image = 0;
        window.buttons = {button, button};
        window.buttons[1].rect.translate(40, 0);
        return window;
    }

    /// The styles that were set, in order.
    std::vector<qintptr> stylesSet() {
        std::vector<qintptr> styles;
        for (const auto& sent : windows.windows[toolbar].received)
            if (sent.message == 0x438)
                styles.push_back(sent.lParam);
        return styles;
    }

    bool take(bool force = false) { return skin->SubClassToolBar(windows, container, force); }

    FakeWindows windows;
    FailureRecorder recorder;
    std::unique_ptr<cSubclassToolBar> skin = std::make_unique<cSubclassToolBar>(recorder);
};

} // namespace

TEST_F(NativeToolbarTest, WithoutAToolbarNothingIsTaken) {
    windows.create(oldToolbar, container + 100, u"ToolbarWindow32"_s);
    EXPECT_FALSE(take());
    EXPECT_TRUE(recorder.log.isEmpty());
}

TEST_F(NativeToolbarTest, AToolbarOfTheOldClassIsTakenWhenThereIsNoOther) {
    windows.create(oldToolbar, container, u"msvb_lib_toolbar"_s);
    EXPECT_TRUE(take());
    EXPECT_TRUE(windows.isIntercepted(oldToolbar));
    createToolbar();
    EXPECT_TRUE(take());
    EXPECT_TRUE(windows.isIntercepted(toolbar));
    EXPECT_FALSE(windows.isIntercepted(oldToolbar)) << "the first toolbar is given back";
}

TEST_F(NativeToolbarTest, TheFlatStyleIsAddedAndTheListStyleOnlyWhenForced) {
    createToolbar();
    ASSERT_TRUE(take());
    ASSERT_TRUE(take(true));
    EXPECT_EQ(stylesSet(), (std::vector<qintptr>{plainStyle | 0x800, plainStyle | 0x1800}));
}

TEST_F(NativeToolbarTest, AToolbarInListStyleKeepsIt) {
    createToolbar(plainStyle | 0x1000);
    ASSERT_TRUE(take());
    EXPECT_EQ(stylesSet(), (std::vector<qintptr>{plainStyle | 0x1800}));
    skin->UnSubClassToolBar(true);
    EXPECT_EQ(stylesSet().back(), plainStyle | 0x1000);
}

TEST_F(NativeToolbarTest, CaptionsStandRightOfTheImagesWhenForcedOrInListStyle) {
    FakeWindows::Window& window = createToolbar();
    window.buttons.pop_back();
    window.buttons.front().rect = {0, 0, 120, 40};
    window.buttons.front().caption = u"█"_s;
    skin->SetSkinPicture(mapPicture());
    const auto imageColumn = [&](qintptr style, bool force) {
        window.answers[0x439] = style;
        EXPECT_TRUE(take(force));
        windows.deliver(toolbar, 15, 0, 0);
        int x = 0;
        while (x < 120 && window.shown.pixel(x, 20) != qRgb(0, 101, 0) &&
               window.shown.pixel(x, 10) != qRgb(0, 101, 0))
            ++x;
        return x;
    };
    EXPECT_EQ(imageColumn(plainStyle, false), (120 - 16) / 2) << "the caption is below";
    const int forced = imageColumn(plainStyle, true);
    EXPECT_LT(forced, (120 - 16) / 2);
    EXPECT_EQ(imageColumn(plainStyle | 0x1000, false), forced);
}

TEST_F(NativeToolbarTest, TheOldClassIsRemembered) {
    const ToolbarPainter painter;
    windows.create(oldToolbar, container, u"msvb_lib_toolbar"_s);
    const auto old = NativeToolbarHook::take(windows, container, false, painter, recorder);
    ASSERT_NE(old, nullptr);
    EXPECT_TRUE(dynamic_cast<NativeToolbarHook&>(*old).isOldStyle());
    createToolbar();
    const auto current = NativeToolbarHook::take(windows, container, false, painter, recorder);
    ASSERT_NE(current, nullptr);
    EXPECT_FALSE(dynamic_cast<NativeToolbarHook&>(*current).isOldStyle());
}

TEST_F(NativeToolbarTest, TheToolbarIsAskedByTheNumbersOfItsMessages) {
    FakeWindows::Window& window = createToolbar();
    take();
    skin->SetSkinPicture(mapPicture());
    windows.deliver(toolbar, 15, 0, 0);
    std::set<quint32> sent;
    for (const auto& entry : window.received)
        sent.insert(entry.message);
    EXPECT_EQ(sent, (std::set<quint32>{49, 0x418, 0x431, 0x435, 0x437, 0x438, 0x439}));
    EXPECT_EQ(message::GetItemRect, 0x41DU);
    EXPECT_EQ(message::GetButtonInfo, 0x441U);
    EXPECT_EQ(message::WindowDestroyed, 130U);
}

TEST_F(NativeToolbarTest, EachAnswerGoesToItsPlaceInTheDescription) {
    FakeWindows::Window& window = createToolbar();
    window.answers = {{49, 21}, {0x431, 101}, {0x435, 102}, {0x437, 103}};
    window.buttons[0].style = 0xF0 | StyleDropDown;
    windows.cursor = {7, 8};
    windows.menuVisible = true;
    const auto bar = describeToolbar(windows, toolbar, true);
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->font.pixelSize(), 21);
    EXPECT_EQ(bar->size, windows.size);
    EXPECT_EQ(bar->iconSize, QSize(16, 16));
    EXPECT_EQ(bar->cursor, QPoint(7, 8));
    EXPECT_TRUE(bar->menuOpen);
    EXPECT_TRUE(bar->textOnRight);
    ASSERT_EQ(bar->buttons.size(), 2U);
    EXPECT_EQ(bar->buttons[0].style, StyleDropDown) << "bits that do not say what it is are left out";
    const NativeImages images(windows, toolbar);
    const auto green = [&](ImageListKind list) {
        return images.image(list, 0).toImage().pixelColor(0, 0).green();
    };
    EXPECT_EQ(green(ImageListKind::Normal), 101);
    EXPECT_EQ(green(ImageListKind::Hot), 102);
    EXPECT_EQ(green(ImageListKind::Disabled), 103);
    windows.menuVisible = false;
    EXPECT_FALSE(describeToolbar(windows, toolbar, false)->menuOpen);
}

TEST_F(NativeToolbarTest, AToolbarWithoutImageListsShowsCaptionsOnly) {
    createToolbar().answers.clear();
    take();
    skin->SetSkinPicture(mapPicture());
    windows.deliver(toolbar, 15, 0, 0);
    EXPECT_EQ(windows.windows[toolbar].shown, ToolbarSkin(mapPicture()).background(windows.size));
}

TEST_F(NativeToolbarTest, TheSavedStyleComesBackOnlyWhenAskedFor) {
    createToolbar();
    take(true);
    skin->UnSubClassToolBar();
    EXPECT_EQ(stylesSet().size(), 1U);
    take(true);
    skin->UnSubClassToolBar(true);
    EXPECT_EQ(stylesSet().back(), plainStyle);
    EXPECT_FALSE(windows.isIntercepted(toolbar));
}

TEST_F(NativeToolbarTest, PaintingAndErasingAreDoneBeforeTheToolbar) {
    createToolbar();
    take();
    skin->SetSkinPicture(mapPicture());
    EXPECT_EQ(windows.windows[toolbar].invalidated, 1);
    windows.windows[toolbar].received.clear();
    EXPECT_NE(windows.deliver(toolbar, 20, 0, 0), 0) << "the background counts as erased";
    EXPECT_EQ(windows.deliver(toolbar, 15, 0, 0), 0);
    for (const auto& sent : windows.windows[toolbar].received)
        EXPECT_TRUE(sent.message != 15 && sent.message != 20);
    const QImage shown = windows.windows[toolbar].shown;
    EXPECT_EQ(shown.size(), windows.size);
    EXPECT_EQ(shown.pixel(199, 0), mapPixel(209, 0));
    EXPECT_EQ(windows.windows[toolbar].paintings, 1);
}

TEST_F(NativeToolbarTest, ANewSizeHasTheWholeToolbarPainted) {
    createToolbar();
    take();
    windows.deliver(toolbar, 5, 0, 0);
    EXPECT_EQ(windows.windows[toolbar].invalidated, 0)
        << "without a skin the toolbar knows itself what to paint";
    skin->SetSkinPicture(mapPicture());
    windows.windows[toolbar].invalidated = 0;
    windows.windows[toolbar].answers[5] = 3;
    EXPECT_EQ(windows.deliver(toolbar, 5, 0, 0), 3) << "the toolbar hears of it too";
    EXPECT_EQ(windows.windows[toolbar].invalidated, 1);
}

TEST_F(NativeToolbarTest, ButtonsAndImagesAreThoseOfTheToolbar) {
    createToolbar();
    take();
    skin->SetSkinPicture(mapPicture());
    windows.cursor = {50, 10};
    windows.deliver(toolbar, 15, 0, 0);
    const QImage shown = windows.windows[toolbar].shown;
    EXPECT_EQ(shown.pixel(40, 0), mapPixel(0, 0)) << "the second button is hot";
    EXPECT_EQ(shown.pixel(20, 20), qRgb(0, 101, 0));
    EXPECT_EQ(shown.pixel(60, 20), qRgb(0, 102, 0));
}

TEST_F(NativeToolbarTest, WithoutAUsableSkinTheToolbarPaintsItself) {
    createToolbar();
    take();
    for (const QImage& picture : {QImage(), mapPicture().copy(0, 0, 100, 10)}) {
        skin->SetSkinPicture(picture);
        windows.windows[toolbar].received.clear();
        windows.deliver(toolbar, 20, 0, 0);
        windows.deliver(toolbar, 15, 0, 0);
        EXPECT_EQ(windows.windows[toolbar].received.size(), 2U);
        EXPECT_EQ(windows.windows[toolbar].paintings, 0);
    }
}

TEST_F(NativeToolbarTest, AFailureLeavesThePaintingWithTheToolbar) {
    createToolbar();
    windows.refusal = 5;
    EXPECT_FALSE(take());
    EXPECT_EQ(recorder.log.size(), 1);
    EXPECT_TRUE(recorder.log.front().endsWith(u"SetWindowLong failed, error #5"_s));
    EXPECT_EQ(stylesSet(), std::vector<qintptr>{plainStyle | 0x800}) << "only its style is changed";
    windows.deliver(toolbar, 15, 0, 0);
    EXPECT_EQ(windows.windows[toolbar].paintings, 0);
}

TEST_F(NativeToolbarTest, TheToolbarMayDieWhileItIsPainted) {
    createToolbar();
    take();
    skin->SetSkinPicture(mapPicture());
    windows.onButton = [this] { windows.destroy(toolbar); };
    windows.deliver(toolbar, 15, 0, 0);
    EXPECT_FALSE(windows.isWindow(toolbar));
    windows.onButton = nullptr;
    skin->SetSkinPicture(mapPicture());
    skin->UnSubClassToolBar(true);
    createToolbar();
    EXPECT_TRUE(take()) << "the next toolbar is taken";
    EXPECT_TRUE(recorder.log.isEmpty());
}

TEST_F(NativeToolbarTest, TheSkinMayGoWhileItPaints) {
    createToolbar();
    take();
    skin->SetSkinPicture(mapPicture());
    windows.onButton = [this] { skin.reset(); };
    windows.deliver(toolbar, 15, 0, 0);
    EXPECT_FALSE(windows.isIntercepted(toolbar));
    EXPECT_FALSE(windows.windows[toolbar].shown.isNull()) << "the picture begun is finished";
}

TEST_F(NativeToolbarTest, TheEndOfTheSkinGivesThePaintingBackAndKeepsTheStyle) {
    createToolbar();
    take();
    skin.reset();
    EXPECT_FALSE(windows.isIntercepted(toolbar));
    EXPECT_EQ(stylesSet().size(), 1U);
}

} // namespace toolbar_test
