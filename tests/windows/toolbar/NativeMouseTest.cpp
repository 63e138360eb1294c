#include "tests/windows/toolbar/NativeToolbarFixture.h"

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

constexpr int dropDown = 7;
constexpr int menuTimer = 1;

class NativeMouse : public NativeToolbarFixture {
protected:
    NativeMouse() {
        bar.addUsualButtons();
        EXPECT_TRUE(take(bar));
    }
    ~NativeMouse() override { button(MOUSEEVENTF_LEFTUP); }

    static void button(DWORD what) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = what;
        SendInput(1, &input, sizeof(input));
        settle();
    }

    BYTE state(int index) const {
        return static_cast<BYTE>(
            SendMessageW(bar.toolbar(), TB_GETSTATE, static_cast<WPARAM>(index) + firstCommand, 0));
    }

    QPoint arrowOf(int index) const {
        const QRect place = bar.rect(index);
        return {place.right() - 5, place.center().y()};
    }

    /// Opens a menu as the toolbar asks for it and does something while it is open.
    void openMenu(const std::function<void()>& whileOpen);

    NativeBar bar;
};

void NativeMouse::openMenu(const std::function<void()>& whileOpen) {
    static std::function<void()> action;
    action = whileOpen;
    const QRect place = bar.rect(dropDown);
    POINT corner{place.left(), place.bottom() + 1};
    ClientToScreen(bar.toolbar(), &corner);
    HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 1, L"Impresión");
    // The menu handles messages by itself until it is closed: a timer comes in between.
    SetTimer(bar.container(), menuTimer, 150, [](HWND window, UINT, UINT_PTR timer, DWORD) {
        KillTimer(window, timer);
        action();
        EndMenu();
    });
    TrackPopupMenu(menu, TPM_LEFTALIGN, corner.x, corner.y, 0, bar.container(), nullptr);
    DestroyMenu(menu);
}

} // namespace

TEST_F(NativeMouse, EachButtonIsHotUnderThePointer) {
    for (int i = 0; i <= dropDown + 1; ++i) {
        bar.pointAtButton(i);
        EXPECT_TRUE(bar.rect(i).contains(bar.description(false).cursor));
        expectPainted(bar, u"hot-%1"_s.arg(i));
    }
    bar.pointAway();
    expectPainted(bar);
}

TEST_F(NativeMouse, TheBorderBetweenTwoButtonsIsSharp) {
    const QRect first = bar.rect(3);
    for (const auto& [place, hot] : {std::pair(first.topLeft(), 3), std::pair(first.bottomRight(), 3),
                                     std::pair(first.topRight() + QPoint(1, 0), 4)}) {
        bar.pointAt(place);
        EXPECT_TRUE(bar.settleUntilHot(hot));
        expectPainted(bar);
    }
}

TEST_F(NativeMouse, AButtonHeldDownIsPressed) {
    for (const int index : {0, 3, 4, 5, 6}) {
        bar.pointAtButton(index);
        button(MOUSEEVENTF_LEFTDOWN);
        ASSERT_TRUE(settleUntil([&] { return (state(index) & TBSTATE_PRESSED) != 0; })) << index;
        expectPainted(bar, u"held-%1"_s.arg(index));
        bar.pointAway();
        expectPainted(bar);
        button(MOUSEEVENTF_LEFTUP);
        settleUntil([&] { return (state(index) & TBSTATE_PRESSED) == 0; });
        expectPainted(bar);
    }
}

TEST_F(NativeMouse, AClickChecksAndAGroupHasOneChecked) {
    const auto click = [&](int index) {
        bar.pointAtButton(index);
        button(MOUSEEVENTF_LEFTDOWN);
        button(MOUSEEVENTF_LEFTUP);
    };
    click(4);
    EXPECT_TRUE(settleUntil([&] { return (state(4) & TBSTATE_CHECKED) != 0; }));
    expectPainted(bar, u"clicked-check"_s);
    click(6);
    EXPECT_TRUE(settleUntil([&] { return (state(6) & TBSTATE_CHECKED) != 0; }));
    EXPECT_EQ(state(5) & TBSTATE_CHECKED, 0);
    expectPainted(bar, u"clicked-group"_s);
}

TEST_F(NativeMouse, AButtonThatIsDisabledUnderThePointerShowsItsDisabledImage) {
    bar.pointAtButton(0);
    bar.setState(0, 0);
    expectPainted(bar, u"disabled-hot"_s);
    bar.setState(0, TBSTATE_ENABLED);
    expectPainted(bar);
}

TEST_F(NativeMouse, TheArrowPartIsPressedWhileAMenuIsOpen) {
    bar.pointAt(arrowOf(dropDown));
    EXPECT_TRUE(bar.settleUntilHot(dropDown));
    expectPainted(bar, u"arrow-hot"_s);
    bool wasOpen = false;
    openMenu([&] {
        wasOpen = bar.description(false).menuOpen;
        InvalidateRect(bar.toolbar(), nullptr, TRUE);
        expectPainted(bar, u"arrow-menu"_s);
    });
    EXPECT_TRUE(wasOpen);
    settle();
    InvalidateRect(bar.toolbar(), nullptr, TRUE);
    expectPainted(bar);
}

TEST_F(NativeMouse, ThePointerOnTheMainPartLeavesTheArrowPartUpWhileAMenuIsOpen) {
    bar.pointAt(bar.rect(dropDown).topLeft() + QPoint(3, 3));
    openMenu([&] {
        InvalidateRect(bar.toolbar(), nullptr, TRUE);
        expectPainted(bar, u"main-menu"_s);
    });
}

TEST_F(NativeMouse, TheToolbarAsksForTheMenuOfItsArrow) {
    int asked = 0;
    bool menuWasOpen = false;
    bar.onNotify = [&](const NMHDR& header) -> LRESULT {
        if (header.code != static_cast<UINT>(TBN_DROPDOWN))
            return 0;
        ++asked;
        openMenu([&] {
            menuWasOpen = bar.description(false).menuOpen;
            InvalidateRect(bar.toolbar(), nullptr, TRUE);
            expectPainted(bar, u"dropped"_s);
        });
        return TBDDRET_DEFAULT;
    };
    bar.pointAt(arrowOf(dropDown));
    EXPECT_TRUE(bar.settleUntilHot(dropDown));
    button(MOUSEEVENTF_LEFTDOWN);
    EXPECT_TRUE(settleUntil([&] { return asked > 0; }));
    EXPECT_TRUE(menuWasOpen);
    button(MOUSEEVENTF_LEFTUP);
    bar.pointAway();
    expectPainted(bar);
}

} // namespace toolbar_test
