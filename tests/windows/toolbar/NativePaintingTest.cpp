#include "tests/windows/toolbar/NativeToolbarFixture.h"

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

using NativePainting = NativeToolbarFixture;

} // namespace

TEST_F(NativePainting, ButtonsOfEveryKindWithCaptionsBelow) {
    NativeBar bar;
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    expectPainted(bar, u"below"_s);
}

TEST_F(NativePainting, CaptionsRightOfTheImagesWhenForced) {
    BarOptions options;
    options.buttonSize = {90, 44};
    options.size = {760, 48};
    NativeBar bar(options);
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar, true));
    EXPECT_NE(SendMessageW(bar.toolbar(), TB_GETSTYLE, 0, 0) & TBSTYLE_LIST, 0);
    expectPainted(bar, u"right"_s);
}

TEST_F(NativePainting, CaptionsRightOfTheImagesInAListToolbar) {
    BarOptions options;
    options.style = TBSTYLE_LIST;
    options.buttonSize = {90, 26};
    options.size = {760, 30};
    NativeBar bar(options);
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    EXPECT_TRUE(textOnRight);
    expectPainted(bar, u"list"_s);
}

TEST_F(NativePainting, ImagesAlone) {
    BarOptions options;
    options.buttonSize = {36, 30};
    options.size = {400, 34};
    NativeBar bar(options);
    for (const BYTE style : {BTNS_BUTTON, BTNS_CHECK, BTNS_CHECKGROUP, BTNS_DROPDOWN}) {
        bar.add(style, TBSTATE_ENABLED, 0);
        bar.add(style, 0, 1);
        bar.add(BTNS_SEP, TBSTATE_ENABLED, 0);
    }
    ASSERT_TRUE(take(bar));
    expectPainted(bar, u"images"_s);
}

TEST_F(NativePainting, EveryStateByteOfEveryKindOfButton) {
    for (const BYTE style : {BTNS_BUTTON, BTNS_CHECK, BTNS_CHECKGROUP, BTNS_DROPDOWN}) {
        BarOptions options;
        options.size = {60 * 8 + 40, 48};
        options.buttonSize = {50, 44};
        NativeBar bar(options);
        for (BYTE state = 0; state < 8; ++state)
            bar.add(style, state, state % 4, u"Día"_s);
        ASSERT_TRUE(take(bar));
        for (int i = 0; i < 8; ++i)
            bar.setState(i, static_cast<BYTE>(i));
        expectPainted(bar, u"states-%1"_s.arg(style));
    }
}

TEST_F(NativePainting, WithoutADisabledListTheNormalImageIsEmbossed) {
    BarOptions options;
    options.lists = Lists::NormalOnly;
    NativeBar bar(options);
    for (int i = 0; i < 4; ++i) {
        bar.add(BTNS_BUTTON, TBSTATE_ENABLED, i);
        bar.add(BTNS_BUTTON, 0, i);
    }
    ASSERT_TRUE(take(bar));
    bar.pointAtButton(0);
    expectPainted(bar, u"embossed"_s);
}

TEST_F(NativePainting, ListsOfImagesWithAMask) {
    BarOptions options;
    options.lists = Lists::AllMasked;
    NativeBar bar(options);
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    expectPainted(bar, u"masked"_s);
}

TEST_F(NativePainting, CaptionsAlone) {
    BarOptions options;
    options.lists = Lists::None;
    NativeBar bar(options);
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    expectPainted(bar, u"captions"_s);
}

TEST_F(NativePainting, ButtonsInSeveralLines) {
    BarOptions options;
    options.style = TBSTYLE_FLAT | TBSTYLE_WRAPABLE;
    options.size = {200, 150};
    NativeBar bar(options);
    bar.addUsualButtons();
    SendMessageW(bar.toolbar(), TB_AUTOSIZE, 0, 0);
    ASSERT_TRUE(take(bar));
    const ToolbarDescription lines = bar.description(false);
    int wrapped = 0;
    for (const ToolbarButton& button : lines.buttons)
        wrapped += (button.state & StateWrapped) != 0 ? 1 : 0;
    EXPECT_GT(wrapped, 0);
    expectPainted(bar, u"lines"_s);
}

TEST_F(NativePainting, HiddenButtonsAreNotShown) {
    NativeBar bar;
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    SendMessageW(bar.toolbar(), TB_HIDEBUTTON, firstCommand + 1, TRUE);
    expectPainted(bar, u"hidden"_s);
}

TEST_F(NativePainting, AnotherFontAndItsHeight) {
    NativeBar bar;
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    bar.setFont(u"Liberation Serif"_s, -17);
    expectPainted(bar);
}

TEST_F(NativePainting, AFontGivenByTheHeightOfItsLine) {
    NativeBar bar;
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    bar.setFont(u"DejaVu Sans"_s, 20);
    expectPainted(bar);
}

TEST_F(NativePainting, AWindowThatChangesItsSizeIsPaintedWhole) {
    NativeBar bar;
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    const auto resize = [&](int width, int height) {
        for (HWND window : {bar.container(), bar.toolbar()})
            SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    };
    resize(700, 60);
    expectPainted(bar, u"higher"_s);
    resize(600, 46);
    expectPainted(bar, u"lower"_s);
}

TEST_F(NativePainting, ANewSkinShowsAtOnce) {
    NativeBar bar;
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    const QImage before = bar.shown();
    QImage darker = testSkin();
    darker.invertPixels();
    skin.SetSkinPicture(darker);
    settle();
    EXPECT_NE(bar.shown(), before);
    skin.SetSkinPicture(testSkin());
    expectPainted(bar);
}

TEST_F(NativePainting, GivenBackTheToolbarPaintsItselfAsBefore) {
    NativeBar bar;
    bar.addUsualButtons();
    settle();
    const QImage own = bar.shown();
    ASSERT_TRUE(take(bar));
    EXPECT_NE(bar.shown(), own);
    skin.UnSubClassToolBar(true);
    InvalidateRect(bar.toolbar(), nullptr, TRUE);
    settle();
    EXPECT_EQ(bar.shown(), own);
}

} // namespace toolbar_test
