#include "tests/reportengine_viewer/ViewerFixture.h"
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace quorvane::report;

namespace {

class Running : public test::ViewerFixture {
protected:
    /// Lets things happen until the viewer has told that it has begun.
    void begin() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return viewer->layoutRun().slices() > 3; }));
    }
};

} // namespace

TEST_F(Running, AMillionRowsAreLaidOutInSlicesAndTheWindowLives) {
    show(1000000);
    begin();
    // A timer gets its turn between the slices: as often as there are slices, or nearly.
    int turns = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&turns] { ++turns; });
    timer.start(0);
    const int before = viewer->layoutRun().slices();
    ASSERT_TRUE(QTest::qWaitFor([&] { return viewer->layoutRun().slices() >= before + 20; }, 20000));
    EXPECT_GE(turns, 15);
    EXPECT_FALSE(report->layout().complete());
    press(Qt::Key_Escape);
    EXPECT_EQ(viewer->layoutRun().state(), LayoutRun::State::Stopped);
    const int stopped = viewer->layoutRun().slices();
    QTest::qWait(50);
    EXPECT_EQ(viewer->layoutRun().slices(), stopped);
}

TEST_F(Running, ProgressIsToldAndStopped) {
    QSignalSpy told(viewer.get(), &ReportViewer::statusChanged);
    show(1000000);
    ASSERT_TRUE(QTest::qWaitFor([this] { return part<QWidget>("work").isVisible(); }));
    EXPECT_TRUE(part<QLabel>("workText").text().startsWith(u"Leyendo filas: "_s));
    EXPECT_GT(told.size(), 1);
    QTest::mouseClick(&part<QPushButton>("workStop"), Qt::LeftButton);
    EXPECT_FALSE(viewer->layoutRun().isRunning());
    EXPECT_FALSE(part<QWidget>("work").isVisible());
    EXPECT_TRUE(viewer->notice().startsWith(u"Se detuvo la preparación"_s));
}

TEST_F(Running, AStoppedReportGoesOn) {
    show(100000, true);
    ASSERT_TRUE(QTest::qWaitFor([this] { return view().geometryOfPages().count() > 0; }));
    press(Qt::Key_Escape);
    const int known = view().pages()->count();
    EXPECT_EQ(part<QLabel>("pageCount").text().right(1), u"…"_s);
    QTest::mouseClick(&part<QPushButton>("noticeButton"), Qt::LeftButton);
    finish();
    EXPECT_GT(view().pages()->count(), known);
    EXPECT_TRUE(view().pages()->complete());
    EXPECT_EQ(viewer->notice(), u""_s);
}

TEST_F(Running, ALostConnectionIsToldOnceAndThePagesStay) {
    QSignalSpy told(viewer.get(), &ReportViewer::statusChanged);
    showFailing(60000, 30000);
    finish();
    EXPECT_EQ(viewer->layoutRun().state(), LayoutRun::State::Failed);
    EXPECT_TRUE(viewer->notice().contains(u"Se perdió la conexión"_s)) << qPrintable(viewer->notice());
    EXPECT_GT(view().pages()->count(), 100);
    press(Qt::Key_End);
    EXPECT_EQ(view().currentPage(), view().pages()->count() - 1);
    EXPECT_TRUE(told.last().front().toString().startsWith(u"Informe incompleto"_s));
    QTest::mouseClick(&part<QToolButton>("noticeClose"), Qt::LeftButton);
    QTest::qWait(30);
    EXPECT_EQ(viewer->notice(), u""_s);
}

TEST_F(Running, AnIncompleteReportIsNotExported) {
    bool asked = false;
    viewer->setDialogs({[](QWidget*, const ViewerDialogs::FileQuestion&) { return u"/nowhere/x.pdf"_s; },
                        [&asked](QWidget*, QPrinter&, ViewerDialogs::Pages&, int) { return asked = true; },
                        [](QWidget*, const QString&) { return std::nullopt; },
                        [](const QString&) { return true; }});
    showFailing(60000, 30000);
    finish();
    trigger("exportPdf");
    EXPECT_TRUE(viewer->notice().contains(u"no se puede imprimir ni exportar"_s));
    trigger("print");
    EXPECT_FALSE(asked);
}

TEST_F(Running, ARowlessReportHasOnePage) {
    open(0);
    EXPECT_EQ(part<QLabel>("pageCount").text(), u"de 1"_s);
}

TEST_F(Running, ClosingTheWindowEndsTheWork) {
    show(1000000);
    begin();
    viewer->close();
    EXPECT_FALSE(viewer->layoutRun().isRunning());
}

TEST_F(Running, ALossBeforeTheFirstPageLeavesAnEmptyDesk) {
    showFailing(100, 0);
    finish();
    EXPECT_EQ(view().geometryOfPages().count(), 0);
    EXPECT_TRUE(viewer->notice().contains(u"Se perdió la conexión"_s));
    EXPECT_FALSE(action("print").isEnabled());
    for (const int key : {Qt::Key_PageDown, Qt::Key_End, Qt::Key_Home, Qt::Key_Plus})
        press(key, key == Qt::Key_Plus ? Qt::ControlModifier : Qt::NoModifier);
    QTest::mouseClick(view().viewport(), Qt::LeftButton);
    EXPECT_FALSE(view().grab().isNull());
}
