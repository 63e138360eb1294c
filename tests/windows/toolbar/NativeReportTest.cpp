#include "tests/windows/toolbar/NativeToolbarFixture.h"
#include "ui/toolbar/WindowSubclass.h"
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

struct Box {
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    bool visible = false;
};

/// Answers the message box that comes and tells what it showed.
Box answerBox(const std::function<void()>& action) {
    Box box;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        auto* shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (shown == nullptr)
            return;
        box = {shown->text(), shown->icon(),
               IsWindowVisible(reinterpret_cast<HWND>(shown->winId())) != FALSE};
        shown->accept();
    });
    timer.start(20);
    action();
    return box;
}

class IdleProcedure final : public WindowProcedure {
public:
    qintptr receive(quint32, quintptr, qintptr) override { return 0; }
};

using NativeReport = NativeToolbarFixture;

} // namespace

TEST_F(NativeReport, AFailureShowsAMessageBoxWithTheExclamationIcon) {
    NativeBar bar;
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    SystemFailureReporter reporter;
    cSubclassToolBar second(reporter);
    bool taken = true;
    const Box box = answerBox([&] { taken = second.SubClassToolBar(*system, bar.containerHandle()); });
    EXPECT_FALSE(taken);
    EXPECT_TRUE(box.visible);
    EXPECT_EQ(box.icon, QMessageBox::Warning);
    EXPECT_TRUE(
        box.text.startsWith(u"Error in "_s + QCoreApplication::applicationName() + u".SubclassWindow"_s));
    EXPECT_TRUE(box.text.endsWith(u"Window handle is already subclassed"_s));
    expectPainted(bar);
}

// The checks before it leave no handle for which the system refuses; only a window that goes in between does.
TEST_F(NativeReport, TheSystemsErrorNumberComesBackFromAWindowThatIsGone) {
    auto bar = std::make_unique<NativeBar>();
    const NativeHandle gone = bar->toolbarHandle();
    bar.reset();
    IdleProcedure procedure;
    EXPECT_EQ(system->intercept(gone, procedure), std::optional<quint32>(ERROR_INVALID_WINDOW_HANDLE));
    EXPECT_FALSE(system->isIntercepted(gone));
    system->release(gone);
}

} // namespace toolbar_test
