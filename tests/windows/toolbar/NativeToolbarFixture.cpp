#include "tests/windows/toolbar/NativeToolbarFixture.h"
#include "ui/toolbar/windows/WindowsToolbars.h"
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPalette>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

bool areAlike(QRgb a, QRgb b, int steps) {
    return std::abs(qRed(a) - qRed(b)) <= steps && std::abs(qGreen(a) - qGreen(b)) <= steps &&
           std::abs(qBlue(a) - qBlue(b)) <= steps;
}

/// Number of pixels that differ, and one of them.
std::pair<int, QPoint> difference(const QImage& a, const QImage& b, int steps) {
    int count = 0;
    QPoint first(-1, -1);
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (!areAlike(a.pixel(x, y), b.pixel(x, y), steps) && count++ == 0)
                first = {x, y};
    return {count, first};
}

} // namespace

QString scenesFolder() {
    return QStringLiteral(SCENES_FOLDER) + u'/' +
           QFileInfo(QCoreApplication::applicationFilePath()).baseName();
}

QImage shippedSkin() {
    return QImage(QStringLiteral(STYLES_FOLDER) + u"/LightBlueToolbar.bmp"_s)
        .convertToFormat(QImage::Format_RGB32);
}

QImage testSkin() {
    QImage picture = shippedSkin();
    picture.setPixel(215, 0, qRgb(160, 0, 0));
    picture.setPixel(215, 6, qRgb(0, 100, 0));
    picture.setPixel(215, 10, qRgb(120, 60, 230));
    return picture;
}

NativeToolbarFixture::NativeToolbarFixture() : system(windowSystem()) {}

bool NativeToolbarFixture::take(const NativeBar& bar, bool forceTextRight) {
    textOnRight = forceTextRight || (GetWindowLongW(bar.toolbar(), GWL_STYLE) & TBSTYLE_LIST) != 0;
    skin.SetSkinPicture(picture);
    const bool taken = skin.SubClassToolBar(*system, bar.containerHandle(), forceTextRight);
    InvalidateRect(bar.toolbar(), nullptr, TRUE);
    settle();
    return taken;
}

void NativeToolbarFixture::expectPainted(const NativeBar& bar, const QString& sceneName) {
    UpdateWindow(bar.toolbar());
    settle();
    Scene scene;
    scene.bar = bar.description(textOnRight);
    scene.images = bar.images();
    scene.skin = picture;
    scene.emboss = {QGuiApplication::palette().color(QPalette::Light),
                    QGuiApplication::palette().color(QPalette::Dark)};
    scene.shown = bar.shown();
    const QImage expected =
        ToolbarPainter(ToolbarSkin(scene.skin)).paint(scene.bar, scene.images, QRect({}, scene.bar.size));
    ASSERT_EQ(scene.shown.size(), expected.size());
    const auto [count, first] = difference(scene.shown, expected, steps);
    EXPECT_EQ(count, 0) << sceneName.toStdString() << ": first at " << first.x() << ',' << first.y()
                        << ", shown " << std::hex << scene.shown.pixel(first) << ", expected "
                        << expected.pixel(first);
    if (count > 0) {
        QDir().mkpath(scenesFolder());
        const QString test =
            QString::fromLatin1(testing::UnitTest::GetInstance()->current_test_info()->name());
        scene.shown.save(scenesFolder() + u"/failed-%1-shown.png"_s.arg(test));
        expected.save(scenesFolder() + u"/failed-%1-expected.png"_s.arg(test));
    }
    if (sceneName.isEmpty())
        return;
    EXPECT_TRUE(saveScene(scene, scenesFolder() + u'/' + sceneName));
}

} // namespace toolbar_test
