#include "platform/quorvane32/lookup/AboutWindow.h"
#include "platform/quorvane32/lookup/QuorAbout.h"
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace quorvane;

TEST(AboutWindow, TellsTitleDescriptionAndVersion) {
    QuorAbout about;
    about.setApTitulo("Veltrano");
    about.setApDescripcion("Dalvora");
    about.setApVerMayor(1);
    about.setApVerMenor(0);
    about.setApRevision(203);
    bool seen = false;
    QTimer::singleShot(0, qApp, [&] {
        auto* window = qobject_cast<AboutWindow*>(QApplication::activeModalWidget());
        ASSERT_TRUE(window);
        const auto text = [&](const char* name) { return window->findChild<QLabel*>(name)->text(); };
        EXPECT_EQ(window->windowTitle(), "Acerca de Veltrano");
        EXPECT_EQ(text("lblTitulo"), "Veltrano");
        EXPECT_EQ(text("lblDescripcion"), "Dalvora");
        EXPECT_EQ(text("lblVersion"), "1.0.203");
        EXPECT_EQ(text("lblProducto"), "Quorvane ERP");
        EXPECT_TRUE(text("lblLicencia").startsWith("MIT"));
        EXPECT_EQ(text("lblQt"), QStringLiteral("Qt ") + qVersion());
        seen = true;
        QTest::keyClick(window, Qt::Key_Escape);
    });
    about.Mostrar();
    EXPECT_TRUE(seen);
}

TEST(AboutWindow, ShowsMarkupAsItIs) {
    const AboutWindow window({"<b>x</b>", "<i>y</i>", "1.0.0"});
    EXPECT_EQ(window.findChild<QLabel*>("lblTitulo")->textFormat(), Qt::PlainText);
    EXPECT_EQ(window.findChild<QLabel*>("lblDescripcion")->textFormat(), Qt::PlainText);
}

TEST(AboutWindow, EnterCloses) {
    AboutWindow window({"x", "y", "1.0.0"});
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
}

TEST(AboutWindow, TheTitleIsLargeWhateverTheFontIsMeasuredIn) {
    const QFont before = QApplication::font();
    for (const bool inPixels : {false, true}) {
        QFont font = before;
        if (inPixels)
            font.setPixelSize(12);
        else
            font.setPointSize(9);
        QApplication::setFont(font);
        const AboutWindow window({"x", "y", "1.0.0"});
        const auto height = [&](const char* name) {
            return window.findChild<QLabel*>(name)->fontMetrics().height();
        };
        EXPECT_GT(height("lblTitulo"), 1.5 * height("lblDescripcion")) << inPixels;
    }
    QApplication::setFont(before);
}
