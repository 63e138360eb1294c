// The viewer's pictures. With VIEWER_PICTURES naming a folder they are kept there, to be looked at.

#include "platform/reportengine/viewer/PageImages.h"
#include "platform/skin/SkinFramework.h"
#include "tests/reportengine_viewer/ViewerFixture.h"
#include <QPainter>

using namespace Qt::StringLiterals;
using namespace quorvane::report;

namespace {

class Picture : public test::ViewerFixture {
protected:
    void wear() {
        framework.loadSkin(QStringLiteral(STYLES_FOLDER "/Office2007.cjstyles"), u"LightBlue.ini"_s);
        framework.setApplyOptions(skin::ApplyToNewWindows);
        framework.applyWindow(*viewer);
    }
    void keep(const QString& name) {
        QTest::qWait(60);
        const QPixmap picture = viewer->grab();
        EXPECT_EQ(picture.size(), (viewer->size().toSizeF() * viewer->devicePixelRatioF()).toSize());
        const QString folder = qEnvironmentVariable("VIEWER_PICTURES");
        if (folder.isEmpty())
            return;
        const QString file = u"%1/%2-%3.png"_s.arg(folder, name).arg(viewer->devicePixelRatioF());
        EXPECT_TRUE(picture.save(file)) << qPrintable(file);
    }
    skin::SkinFramework framework;
};

} // namespace

TEST_F(Picture, APageAtFullSizeIsDrawnAsThePainterDrawsIt) {
    open(300);
    viewer->zoom(100);
    const PageGeometry& geometry = view().geometryOfPages();
    QImage expected(geometry.page(), QImage::Format_RGB32);
    expected.fill(Qt::white);
    QPainter painter(&expected);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    painter.scale(geometry.scale(), geometry.scale());
    PagePainter(view().pages()->context()).paint(painter, view().pages()->page(0)->page);
    painter.end();
    const double pixelsPerInch = 96 * view().devicePixelRatioF();
    EXPECT_EQ(geometry.page().width(), qRound(view().pages()->pageSize().width() * pixelsPerInch / 72));
    QImage screen = view().viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    screen.setDevicePixelRatio(1);
    const QRect place(geometry.place(0, view().scroll()), geometry.page());
    const QRect seen = place & screen.rect();
    ASSERT_GT(seen.height(), 400);
    EXPECT_EQ(screen.copy(seen), expected.copy(seen.translated(-place.topLeft())));
}

TEST_F(Picture, TilesOfALargeZoomFitTogether) {
    open(300);
    for (const double scale : {1.0, 4.0}) {
        PageImages images(*view().pages());
        const QSize size = (view().pages()->pageSize() * scale).toSize();
        images.setScale(scale, size);
        QImage tiled(size, QImage::Format_RGB32);
        QPainter painter(&tiled);
        images.draw(painter, 0, {0, 0}, tiled.rect());
        painter.end();
        QImage whole(size, QImage::Format_RGB32);
        whole.fill(Qt::white);
        QPainter direct(&whole);
        direct.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                              QPainter::SmoothPixmapTransform);
        direct.scale(scale, scale);
        PagePainter(view().pages()->context()).paint(direct, view().pages()->page(0)->page);
        direct.end();
        EXPECT_EQ(tiled, whole);
    }
}

TEST_F(Picture, TheViewerLooksRight) {
    wear();
    open(2000);
    viewer->zoom(100);
    keep(u"viewer"_s);
    search(u"factura"_s);
    keep(u"found"_s);
    press(Qt::Key_Escape);
    trigger("fitWidth");
    trigger("last");
    keep(u"last"_s);
    trigger("fitPage");
    press(Qt::Key_A, Qt::ControlModifier);
    keep(u"marked"_s);
    view().setZoom(0.25);
    keep(u"small"_s);
    view().setZoom(4);
    keep(u"large"_s);
}

TEST_F(Picture, WorkAndTroubleLookRight) {
    wear();
    show(1000000);
    ASSERT_TRUE(QTest::qWaitFor([this] { return part<QWidget>("work").isVisible(); }));
    keep(u"working"_s);
    viewer->stop();
    showFailing(5000, 3000);
    finish();
    keep(u"failed"_s);
}
