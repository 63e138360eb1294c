#include "tests/windows/toolbar/NativeToolbarFixture.h"
#include <QWidget>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

/// A window of the toolkit with a native toolbar in it, as a form may have one that is made by other means.
class NativeChild : public NativeToolbarFixture {
protected:
    NativeChild() {
        window.setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool);
        window.setGeometry(150, 160, 600, 120);
        window.setAttribute(Qt::WA_ShowWithoutActivating);
        window.show();
        bar = std::make_unique<NativeBar>(BarOptions{.container = reinterpret_cast<HWND>(window.winId())});
        bar->addUsualButtons();
        settle();
    }

    QWidget window;
    std::unique_ptr<NativeBar> bar;
};

} // namespace

TEST_F(NativeChild, IsPaintedInAWindowOfTheToolkit) {
    ASSERT_TRUE(take(*bar));
    expectPainted(*bar, u"child"_s);
    bar->pointAtButton(4);
    expectPainted(*bar, u"child-hot"_s);
    bar->pointAway();
    expectPainted(*bar);
}

// The toolkit counts in pixels of its own on a finer screen, the toolbar in the screen's.
TEST_F(NativeChild, IsPaintedInTheScreensPixelsWhateverTheToolkitsAre) {
    const qreal scale = window.devicePixelRatio();
    RecordProperty("devicePixelRatio", std::to_string(scale));
    RECT area{};
    GetClientRect(bar->container(), &area);
    EXPECT_NEAR(area.right, window.width() * scale, 1);
    ASSERT_TRUE(take(*bar));
    EXPECT_EQ(bar->shown().width(), 560);
    expectPainted(*bar);
    bar->pointAt(bar->rect(7).topRight() - QPoint(3, -3));
    EXPECT_TRUE(bar->settleUntilHot(7));
    expectPainted(*bar);
}

TEST_F(NativeChild, StaysPaintedWhenTheWindowIsRepaintedAndResized) {
    ASSERT_TRUE(take(*bar));
    window.repaint();
    window.resize(570, 200);
    settle();
    expectPainted(*bar);
    window.hide();
    window.show();
    settle();
    expectPainted(*bar);
}

TEST_F(NativeChild, GoesWithTheWindow) {
    auto second = std::make_unique<QWidget>();
    second->setGeometry(150, 300, 600, 120);
    second->show();
    const NativeBar inner(BarOptions{.container = reinterpret_cast<HWND>(second->winId())});
    ASSERT_TRUE(take(inner));
    second.reset();
    EXPECT_FALSE(IsWindow(inner.toolbar()));
    skin.SetSkinPicture(testSkin());
    skin.UnSubClassToolBar(true);
    EXPECT_TRUE(recorder.log.isEmpty());
    ASSERT_TRUE(take(*bar)) << "another one can be taken";
    expectPainted(*bar);
}

} // namespace toolbar_test
