#include "tests/toolbar/FailureRecorder.h"
#include "tests/toolbar/FakeWindows.h"
#include "tests/toolbar/MapSkin.h"
#include "ui/toolbar/cSubclassToolBar.h"
#include <gtest/gtest.h>

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
