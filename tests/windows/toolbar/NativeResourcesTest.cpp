#include "tests/windows/toolbar/NativeToolbarFixture.h"

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

constexpr int repaints = 1000;
constexpr int tolerance = 100; ///< one object kept by every tenth repaint would be seen

/// Highest place in a table of the system that some new objects get: free places are used again first, so it
/// grows with what is kept.
template<typename Make, typename Drop> int highestPlace(Make make, Drop drop) {
    constexpr std::size_t count = 200;
    std::vector<decltype(make())> objects;
    int highest = 0;
    while (objects.size() < count) {
        objects.push_back(make());
        highest = std::max(highest, static_cast<int>(LOWORD(reinterpret_cast<quintptr>(objects.back()))));
    }
    for (auto object : objects)
        drop(object);
    return highest;
}

/// How many objects of a kind this process has, or a number that grows with it where the system does not
/// count.
int objects(DWORD kind) {
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), kind); counted != 0)
        return static_cast<int>(counted);
    return kind == GR_GDIOBJECTS
               ? highestPlace([] { return CreatePen(PS_SOLID, 1, RGB(1, 2, 3)); },
                              [](HPEN pen) { DeleteObject(pen); })
               : highestPlace([] { return CreateMenu(); }, [](HMENU menu) { DestroyMenu(menu); });
}

void repaint(const NativeBar& bar, int times) {
    for (int i = 0; i < times; ++i) {
        InvalidateRect(bar.toolbar(), nullptr, TRUE);
        UpdateWindow(bar.toolbar());
    }
}

using NativeResources = NativeToolbarFixture;

/// What the window shows while the toolbar answers the questions of a repaint.
struct Watcher {
    const NativeBar* bar;
    std::vector<QImage> seen;
};

LRESULT CALLBACK watch(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR data) {
    auto* watcher = reinterpret_cast<Watcher*>(data);
    if (message == 0x41D)
        watcher->seen.push_back(watcher->bar->shown());
    return DefSubclassProc(window, message, wParam, lParam);
}

} // namespace

TEST_F(NativeResources, ThreeHundredObjectsThatAreKeptAreSeen) {
    const int drawing = objects(GR_GDIOBJECTS);
    const int user = objects(GR_USEROBJECTS);
    std::vector<HPEN> pens;
    std::vector<HMENU> menus;
    for (int i = 0; i < 3 * tolerance; ++i) {
        pens.push_back(CreatePen(PS_SOLID, 1, 0));
        menus.push_back(CreateMenu());
    }
    EXPECT_GT(objects(GR_GDIOBJECTS), drawing + tolerance);
    EXPECT_GT(objects(GR_USEROBJECTS), user + tolerance);
    for (HPEN pen : pens)
        DeleteObject(pen);
    for (HMENU menu : menus)
        DestroyMenu(menu);
}

TEST_F(NativeResources, AThousandRepaintsKeepNothing) {
    NativeBar bar(BarOptions{.lists = Lists::NormalOnly});
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    bar.pointAtButton(0);
    repaint(bar, 20);
    const int drawing = objects(GR_GDIOBJECTS);
    const int user = objects(GR_USEROBJECTS);
    repaint(bar, repaints);
    EXPECT_NEAR(objects(GR_GDIOBJECTS), drawing, tolerance);
    EXPECT_NEAR(objects(GR_USEROBJECTS), user, tolerance);
    expectPainted(bar);
}

TEST_F(NativeResources, TakingAndGivingBackKeepsNothing) {
    NativeBar bar;
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    const int drawing = objects(GR_GDIOBJECTS);
    for (int i = 0; i < repaints; ++i) {
        ASSERT_TRUE(skin.SubClassToolBar(*system, bar.containerHandle()));
        skin.SetSkinPicture(testSkin());
    }
    EXPECT_NEAR(objects(GR_GDIOBJECTS), drawing, tolerance);
    EXPECT_TRUE(recorder.log.isEmpty());
}

TEST_F(NativeResources, NothingIsSeenOfAPictureThatIsNotFinished) {
    NativeBar bar;
    bar.addUsualButtons();
    Watcher watcher{&bar, {}};
    SetWindowSubclass(bar.toolbar(), &watch, 1, reinterpret_cast<DWORD_PTR>(&watcher));
    ASSERT_TRUE(take(bar));
    const QImage before = bar.shown();
    watcher.seen.clear();
    QImage other = testSkin();
    other.invertPixels();
    skin.SetSkinPicture(other);
    UpdateWindow(bar.toolbar());
    ASSERT_EQ(watcher.seen.size(), 9U);
    for (const QImage& seen : watcher.seen)
        EXPECT_EQ(seen, before);
    EXPECT_NE(bar.shown(), before);
}

TEST_F(NativeResources, ErasingLeavesThePictureThere) {
    NativeBar bar;
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    const QImage before = bar.shown();
    HDC context = GetDC(bar.toolbar());
    EXPECT_NE(SendMessageW(bar.toolbar(), 20, reinterpret_cast<WPARAM>(context), 0), 0);
    ReleaseDC(bar.toolbar(), context);
    EXPECT_EQ(bar.shown(), before);
}

TEST_F(NativeResources, OnlyThePartThatIsAskedForIsPainted) {
    NativeBar bar;
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    const QImage before = bar.shown();
    QImage other = testSkin();
    other.invertPixels();
    skin.SetSkinPicture(other);
    ValidateRect(bar.toolbar(), nullptr);
    const QRect part = bar.rect(1);
    const RECT area{part.left(), part.top(), part.right() + 1, part.bottom() + 1};
    InvalidateRect(bar.toolbar(), &area, FALSE);
    UpdateWindow(bar.toolbar());
    const QImage after = bar.shown();
    EXPECT_NE(after.copy(part), before.copy(part));
    EXPECT_EQ(after.copy(bar.rect(0)), before.copy(bar.rect(0)));
    EXPECT_EQ(after.copy(bar.rect(3)), before.copy(bar.rect(3)));
}

} // namespace toolbar_test
