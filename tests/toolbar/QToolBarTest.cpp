#include "tests/toolbar/FailureRecorder.h"
#include "tests/toolbar/MapSkin.h"
#include "ui/toolbar/QToolBarHook.h"
#include "ui/toolbar/cSubclassToolBar.h"
#include <QActionGroup>
#include <QComboBox>
#include <QIconEngine>
#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

/// An icon that does something whenever a picture of it is asked for.
class ActingEngine final : public QIconEngine {
public:
    explicit ActingEngine(std::function<void()> act) : m_act(std::move(act)) {}
    void paint(QPainter*, const QRect&, QIcon::Mode, QIcon::State) override {}
    QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override {
        m_act();
        QPixmap result(size);
        result.fill(Qt::black);
        return result;
    }
    QIconEngine* clone() const override { return new ActingEngine(m_act); }

private:
    std::function<void()> m_act;
};

class QToolBarTest : public testing::Test {
protected:
    QToolBarTest() {
        container = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(container.get());
        layout->setContentsMargins({});
        toolbar = new QToolBar(container.get());
        layout->addWidget(toolbar);
        first = toolbar->addAction(icon(), u"Uno"_s);
        second = toolbar->addAction(icon(), u"Dos"_s);
        container->resize(400, 60);
        container->move(100, 100);
        QCursor::setPos(0, 0);
    }

    static QIcon icon() {
        QPixmap pixmap(24, 24);
        pixmap.fill(Qt::green);
        return pixmap;
    }

    void showSkinned() {
        skin->SetSkinPicture(mapPicture());
        ASSERT_TRUE(skin->SubClassToolBar(container.get()));
        container->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(container.get()));
    }

    QToolButton* buttonOf(QAction* action) const {
        return qobject_cast<QToolButton*>(toolbar->widgetForAction(action));
    }

    static void pointAt(const QWidget* widget, QPoint place) { QCursor::setPos(widget->mapToGlobal(place)); }

    /// Pixel of the whole toolbar at a place of one of its buttons.
    QRgb pixel(const QWidget* button, QPoint place = {}) const {
        return toolbar->grab().toImage().pixel(button->pos() + place);
    }

    QRgb bare(const QWidget* button) const {
        const QImage background = ToolbarSkin(mapPicture()).background(toolbar->size());
        return background.pixel(button->pos());
    }

    /// True when the skin's background reaches the toolbar's corner.
    bool isSkinned() const { return toolbar->grab().toImage().pixel(0, 0) == mapPixel(195, 0); }

    std::unique_ptr<QWidget> container;
    QToolBar* toolbar = nullptr;
    QAction* first = nullptr;
    QAction* second = nullptr;
    FailureRecorder recorder;
    std::unique_ptr<cSubclassToolBar> skin = std::make_unique<cSubclassToolBar>(recorder);
};

} // namespace

TEST_F(QToolBarTest, IsPaintedFromTheSkin) {
    showSkinned();
    EXPECT_TRUE(isSkinned());
    EXPECT_EQ(pixel(buttonOf(first)), bare(buttonOf(first)));
}

TEST_F(QToolBarTest, TheButtonUnderTheMouseIsHot) {
    showSkinned();
    pointAt(buttonOf(second), {5, 5});
    EXPECT_EQ(pixel(buttonOf(second)), mapPixel(0, 0));
    EXPECT_EQ(pixel(buttonOf(first)), bare(buttonOf(first)));
}

TEST_F(QToolBarTest, APressedButtonLooksPressedUntilItIsReleased) {
    showSkinned();
    QToolButton* button = buttonOf(first);
    pointAt(button, {5, 5});
    QTest::mousePress(button, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(pixel(button), mapPixel(15, 0));
    QTest::mouseRelease(button, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(pixel(button), mapPixel(0, 0));
}

TEST_F(QToolBarTest, CheckedAndExclusiveButtonsAreKnown) {
    first->setCheckable(true);
    first->setChecked(true);
    second->setCheckable(true);
    second->setChecked(true);
    auto* group = new QActionGroup(toolbar);
    group->addAction(second);
    showSkinned();
    EXPECT_EQ(pixel(buttonOf(first)), mapPixel(30, 0));
    for (QAction* action : {first, second}) {
        pointAt(buttonOf(action), {5, 5});
        buttonOf(action)->setDown(true);
    }
    // Held down, an exclusive button looks checked and hot, another one pressed.
    EXPECT_EQ(pixel(buttonOf(second)), mapPixel(45, 0));
    pointAt(buttonOf(first), {5, 5});
    EXPECT_EQ(pixel(buttonOf(first)), mapPixel(15, 0));
}

TEST_F(QToolBarTest, AButtonWithAMenuIsADropDownButton) {
    auto* menu = new QMenu(toolbar);
    menu->addAction(u"Todo"_s);
    first->setMenu(menu);
    buttonOf(first)->setPopupMode(QToolButton::MenuButtonPopup);
    showSkinned();
    QToolButton* button = buttonOf(first);
    const QPoint arrow(button->width() - 13, 0);
    pointAt(button, {5, 5});
    EXPECT_EQ(pixel(button), mapPixel(60, 0));
    EXPECT_EQ(pixel(button, arrow), mapPixel(120, 0));
    pointAt(button, arrow + QPoint(5, 5));
    menu->popup(button->mapToGlobal(QPoint(0, 200)));
    EXPECT_TRUE(QTest::qWaitForWindowExposed(menu));
    EXPECT_EQ(pixel(button), mapPixel(60, 0));
    EXPECT_EQ(pixel(button, arrow), mapPixel(135, 0)) << "its menu is open";
    menu->close();
}

TEST_F(QToolBarTest, SeparatorsAreThoseOfTheSkin) {
    QAction* separator = toolbar->insertSeparator(second);
    showSkinned();
    const QRect rect = toolbar->widgetForAction(separator)->geometry();
    const int left = rect.x() + (rect.width() - 8) / 2;
    EXPECT_EQ(toolbar->grab().toImage().pixel(std::max(left, rect.x()), rect.y()),
              mapPixel(187 + std::max(left, rect.x()) - left, 0));
}

TEST_F(QToolBarTest, ButtonsThatComeLaterAreSkinnedToo) {
    showSkinned();
    QAction* third = toolbar->addAction(icon(), u"Tres"_s);
    third->setCheckable(true);
    third->setChecked(true);
    QTest::qWait(1);
    EXPECT_EQ(pixel(buttonOf(third)), mapPixel(30, 0));
    delete third;
    QTest::qWait(1);
    EXPECT_TRUE(isSkinned());
}

TEST_F(QToolBarTest, OtherControlsPaintThemselves) {
    auto* combo = new QComboBox;
    combo->addItem(u"Todas"_s);
    toolbar->addWidget(combo);
    container->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(container.get()));
    const QPoint inside = combo->geometry().center();
    const QRgb plain = toolbar->grab().toImage().pixel(inside);
    showSkinned();
    EXPECT_EQ(toolbar->grab().toImage().pixel(inside), plain);
}

TEST_F(QToolBarTest, AButtonTakenOutOfTheToolbarPaintsItselfAgain) {
    auto* button = new QToolButton(toolbar);
    button->setAutoRaise(false);
    button->resize(40, 30);
    showSkinned();
    button->setParent(container.get());
    button->move(200, 0);
    button->show();
    const QImage own = button->grab().toImage();
    EXPECT_NE(own.pixel(20, 0), own.pixel(20, 15)) << "a frame is drawn";
}

TEST_F(QToolBarTest, AButtonThatIsNotInTheLayoutPaintsItself) {
    auto* button = new QToolButton(toolbar);
    button->setAutoRaise(false);
    button->setGeometry(300, 0, 40, 30);
    showSkinned();
    ASSERT_TRUE(button->isVisible());
    const QImage own = button->grab().toImage();
    EXPECT_NE(own.pixel(20, 0), own.pixel(20, 15)) << "a frame is drawn";
}

TEST_F(QToolBarTest, ForcedTextStandsRightOfTheImageUntilItIsRestored) {
    toolbar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    ASSERT_TRUE(skin->SubClassToolBar(container.get(), true));
    EXPECT_EQ(toolbar->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    skin->UnSubClassToolBar();
    EXPECT_EQ(toolbar->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    toolbar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    ASSERT_TRUE(skin->SubClassToolBar(container.get(), true));
    skin->UnSubClassToolBar(true);
    EXPECT_EQ(toolbar->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
}

TEST_F(QToolBarTest, CaptionsStandRightOfTheImagesInTheToolbarsOwnStyleToo) {
    toolbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    showSkinned();
    const QToolButton* button = buttonOf(first);
    // The image alone would be in the middle, as it is above a caption.
    EXPECT_EQ(pixel(button, {button->width() / 2 - 14, button->height() / 2}), QColor(Qt::green).rgb());
    EXPECT_NE(pixel(button, {button->width() / 2 + 11, button->height() / 2}), QColor(Qt::green).rgb());
}

TEST_F(QToolBarTest, IsRepaintedWhenItIsTakenAndGivenBackAndWhenTheMouseComesAndGoes) {
    int painted = 0;
    first->setIcon(QIcon(new ActingEngine([&] { ++painted; })));
    container->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(container.get()));
    buttonOf(first)->setAutoRaise(false);
    const auto isRepaintedBy = [&](const std::function<void()>& act) {
        QTest::qWait(20);
        painted = 0;
        act();
        return QTest::qWaitFor([&] { return painted > 0; }, 1000);
    };
    skin->SetSkinPicture(mapPicture());
    EXPECT_TRUE(isRepaintedBy([&] { skin->SubClassToolBar(container.get()); }));
    EXPECT_TRUE(isRepaintedBy([&] {
        QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
        QCoreApplication::sendEvent(buttonOf(first), &enter);
    }));
    EXPECT_TRUE(isRepaintedBy([&] {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(buttonOf(first), &leave);
    }));
    EXPECT_TRUE(isRepaintedBy([&] { skin->UnSubClassToolBar(); }));
}

TEST_F(QToolBarTest, UnsubclassingGivesThePaintingBack) {
    container->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(container.get()));
    const QImage plain = toolbar->grab().toImage();
    showSkinned();
    EXPECT_NE(toolbar->grab().toImage(), plain);
    skin->UnSubClassToolBar();
    EXPECT_EQ(toolbar->grab().toImage(), plain);
    showSkinned();
    skin.reset();
    EXPECT_EQ(toolbar->grab().toImage(), plain);
}

TEST_F(QToolBarTest, ANewSkinIsShownAtOnce) {
    showSkinned();
    QImage other = mapPicture();
    other.setPixel(195, 0, qRgb(9, 9, 9));
    QTest::qWait(1);
    bool painted = false;
    const auto engine = [&] { painted = true; };
    first->setIcon(QIcon(new ActingEngine(engine)));
    QTest::qWait(1);
    painted = false;
    skin->SetSkinPicture(other);
    ASSERT_TRUE(QTest::qWaitFor([&] { return painted; }));
    EXPECT_EQ(toolbar->grab().toImage().pixel(0, 0), qRgb(9, 9, 9));
}

TEST_F(QToolBarTest, WithoutASkinOrWithOneOfWrongSizeTheToolbarPaintsItself) {
    container->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(container.get()));
    const QImage plain = toolbar->grab().toImage();
    ASSERT_TRUE(skin->SubClassToolBar(container.get()));
    EXPECT_EQ(toolbar->grab().toImage(), plain);
    for (const QImage& picture :
         {QImage(u"no such file.bmp"_s), mapPicture().copy(0, 0, 195, 23), mapPicture().copy(0, 0, 216, 8)}) {
        skin->SetSkinPicture(picture);
        EXPECT_EQ(toolbar->grab().toImage(), plain);
    }
    skin->SetSkinPicture(mapPicture());
    EXPECT_TRUE(isSkinned());
}

TEST_F(QToolBarTest, AContainerWithoutAToolbarIsRefusedSilently) {
    QWidget empty;
    EXPECT_FALSE(skin->SubClassToolBar(&empty));
    EXPECT_FALSE(skin->SubClassToolBar(nullptr));
    EXPECT_TRUE(recorder.log.isEmpty());
}

TEST_F(QToolBarTest, AToolbarIsTakenOnce) {
    showSkinned();
    cSubclassToolBar other(recorder);
    EXPECT_FALSE(other.SubClassToolBar(container.get()));
    ASSERT_EQ(recorder.log.size(), 1);
    EXPECT_TRUE(recorder.log.front().endsWith(u": Window handle is already subclassed"_s));
    EXPECT_TRUE(isSkinned());
    EXPECT_TRUE(skin->SubClassToolBar(container.get())) << "its owner takes it anew";
    skin.reset();
    EXPECT_TRUE(other.SubClassToolBar(container.get()));
}

TEST_F(QToolBarTest, TheToolbarMayGoBeforeTheSkin) {
    showSkinned();
    container.reset();
    skin->SetSkinPicture(mapPicture());
    skin->UnSubClassToolBar(true);
    EXPECT_TRUE(recorder.log.isEmpty());
}

// Sent straight to the filter: the toolkit itself does not expect a widget to end in its own paint event.
TEST_F(QToolBarTest, TheToolbarMayDieWhileItIsPainted) {
    showSkinned();
    skin->UnSubClassToolBar();
    const ToolbarPainter painter{ToolbarSkin(mapPicture())};
    const auto hook = QToolBarHook::take(container.get(), false, painter, recorder);
    first->setIcon(QIcon(new ActingEngine([this] { delete std::exchange(toolbar, nullptr); })));
    QPaintEvent event(toolbar->rect());
    EXPECT_TRUE(dynamic_cast<QToolBarHook&>(*hook).eventFilter(toolbar, &event));
    EXPECT_EQ(toolbar, nullptr);
    hook->invalidate();
    hook->restoreStyle();
}

TEST_F(QToolBarTest, ButtonsMayGoWhileTheToolbarIsPainted) {
    showSkinned();
    bool cleared = false;
    first->setIcon(QIcon(new ActingEngine([&] {
        if (!std::exchange(cleared, true))
            toolbar->clear();
    })));
    EXPECT_TRUE(isSkinned());
    EXPECT_TRUE(cleared);
    QTest::qWait(1);
    EXPECT_TRUE(isSkinned());
}

TEST_F(QToolBarTest, TheSkinMayGoWhileItPaints) {
    showSkinned();
    first->setIcon(QIcon(new ActingEngine([this] { skin.reset(); })));
    toolbar->grab();
    EXPECT_EQ(skin, nullptr);
    EXPECT_FALSE(isSkinned());
}

} // namespace toolbar_test
