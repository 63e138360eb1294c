#include "platform/skin/ImageList.h"

#include "platform/quorvane32/base/RunTimeError.h"

#include <QImage>
#include <QPixmap>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using skin::ImageList;
using skin::ImageTone;

namespace {

QImage picture(const QIcon& icon, int side, QIcon::Mode mode = QIcon::Normal, qreal ratio = 1) {
    return icon.pixmap(QSize(side, side), ratio, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

int paintedPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 128;
    }
    return count;
}

double meanSaturation(const QImage& image) {
    double sum = 0;
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            if (colour.alpha() > 64) {
                sum += colour.hsvSaturationF();
                ++count;
            }
        }
    }
    return count ? sum / count : 0;
}

/// All requests that a toolbar makes at the common scales.
constexpr std::array ratios{1.0, 1.25, 1.5, 2.0, 3.0};

} // namespace

TEST(ImageList, HasTheTwentyKeysInOrder) {
    EXPECT_EQ(
        ImageList::keys().join(u' '),
        u"limpiar leer eliminar grabar inicio retrocede avanza final cerrar aceptar ayuda vprevia imprimir "
        u"texto word excel web navega grid Vendedores"_s);
}

TEST(ImageList, EveryImageIsDrawnInExactlyTheSizeTheScreenNeeds) {
    for (const ImageTone tone : {ImageTone::Normal, ImageTone::Hot}) {
        const ImageList list(tone);
        for (const QString& key : ImageList::keys()) {
            for (const double ratio : ratios) {
                const QImage image = picture(list.icon(key), 24, QIcon::Normal, ratio);
                EXPECT_EQ(image.width(), qRound(24 * ratio)) << qPrintable(key);
                EXPECT_DOUBLE_EQ(image.devicePixelRatio(), ratio);
                EXPECT_GT(paintedPixels(image), image.width() * image.height() / 8) << qPrintable(key);
            }
        }
    }
}

TEST(ImageList, NoTwoImagesAreTheSame) {
    const ImageList list;
    QList<QImage> seen;
    for (const QString& key : ImageList::keys()) {
        const QImage image = picture(list.icon(key), 24);
        EXPECT_FALSE(seen.contains(image)) << qPrintable(key);
        seen.append(image);
    }
}

TEST(ImageList, HotImagesAreBrighterAndShowWhileTheMouseIsOver) {
    const ImageList normal;
    const ImageList hot(ImageTone::Hot);
    for (const QString& key : ImageList::keys()) {
        const QIcon icon = skin::toolIcon(normal, hot, key);
        EXPECT_EQ(picture(icon, 24), picture(normal.icon(key), 24));
        EXPECT_EQ(picture(icon, 24, QIcon::Active), picture(hot.icon(key), 24));
        EXPECT_NE(picture(icon, 24), picture(icon, 24, QIcon::Active));
    }
}

TEST(ImageList, DisabledImagesLoseTheirColour) {
    const ImageList list;
    for (const QString& key : ImageList::keys()) {
        const QImage on = picture(list.icon(key), 24);
        const QImage off = picture(list.icon(key), 24, QIcon::Disabled);
        EXPECT_LT(meanSaturation(off), 0.35) << qPrintable(key);
        EXPECT_LT(meanSaturation(off), meanSaturation(on)) << qPrintable(key);
    }
}

TEST(ImageList, SizesThatWereNotDrawnAreMadeFromALargerOne) {
    const ImageList list;
    EXPECT_EQ(picture(list.icon(u"leer"_s), 27).width(), 27);
    EXPECT_EQ(picture(list.icon(u"leer"_s), 17).width(), 17);
    // Nothing larger than the largest drawing is invented.
    EXPECT_EQ(picture(list.icon(u"leer"_s), 500).width(), 96);
    EXPECT_TRUE(list.icon(u"leer"_s).pixmap(QSize(0, 0)).isNull());
}

TEST(ImageList, AnUnknownKeyIsError3265) {
    for (const QString& key : {u"cliente"_s, u"vendedores"_s, u"LEER"_s, QString(), u"../message/error"_s}) {
        try {
            ImageList().icon(key);
            FAIL() << qPrintable(key);
        } catch (const quorvane::RunTimeError& error) {
            EXPECT_EQ(error.number(), quorvane::ErrorItemNotFound);
        }
    }
}

TEST(ImageList, MessageAndWindowIconsAreThereInTheirSizes) {
    for (const QString& name : {u"informacion"_s, u"pregunta"_s, u"advertencia"_s, u"error"_s}) {
        for (const double ratio : {1.0, 1.5, 2.0, 3.0})
            EXPECT_GT(paintedPixels(picture(skin::messageIcon(name), 32, QIcon::Normal, ratio)), 400);
    }
    for (const int side : {16, 24, 32, 48, 64, 128, 256})
        EXPECT_GT(paintedPixels(picture(skin::windowIcon(), side)), side * side / 2);
}

TEST(ImageList, TheReportViewersIconsAreThereAndBrightenUnderTheMouse) {
    for (const QString& name : {u"panel"_s, u"exportar"_s, u"copiar"_s, u"alejar"_s, u"acercar"_s, u"ancho"_s,
                                u"pagina"_s, u"buscar"_s, u"arriba"_s, u"abajo"_s, u"quitar"_s}) {
        const QIcon icon = skin::reportIcon(name);
        EXPECT_GT(paintedPixels(picture(icon, 24)), 24) << qPrintable(name);
        EXPECT_NE(picture(icon, 24), picture(icon, 24, QIcon::Active)) << qPrintable(name);
    }
}
