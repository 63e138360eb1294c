#include "platform/skin/PictureEngine.h"

#include <QPainter>
#include <QPixmapCache>
#include <QResource>

#include <algorithm>
#include <cstring>

namespace skin {

namespace {

using namespace Qt::StringLiterals;

/// A picture as the build tool stores it: plain pixels, so that no reader of image formats is loaded for it.
/// A null image when there is none of that name.
QImage picture(const QString& path, int side) {
    const QByteArray pixels = QResource(path).uncompressedData();
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    if (pixels.size() != image.sizeInBytes())
        return {};
    std::memcpy(image.bits(), pixels.constData(), pixels.size());
    return image;
}

/// The disabled look: the picture's lightness in a cool grey, half transparent.
QImage disabled(QImage image) {
    image = std::move(image).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int grey = 96 + qGray(line[x]) * 140 / 255;
            line[x] = qRgba(grey - 8, grey, std::min(255, grey + 10), qAlpha(line[x]) * 11 / 20);
        }
    }
    return image;
}

} // namespace

PictureEngine::PictureEngine(QString normal, QString hot, QList<int> sizes)
    : m_normal(std::move(normal)), m_hot(std::move(hot)), m_sizes(std::move(sizes)) {}

QImage PictureEngine::load(int side, QIcon::Mode mode) const {
    const bool hot = mode == QIcon::Active || mode == QIcon::Selected;
    // The drawn size itself where there is one, else the next larger, made smaller.
    const auto fit =
        std::find_if(m_sizes.begin(), m_sizes.end(), [side](int drawn) { return drawn >= side; });
    const int drawn = fit != m_sizes.end() ? *fit : m_sizes.last();
    QImage image = picture(u"%1-%2.argb"_s.arg(hot ? m_hot : m_normal).arg(drawn), drawn);
    if (drawn > side)
        image = image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return mode == QIcon::Disabled ? disabled(std::move(image)) : image;
}

QPixmap PictureEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) {
    const int side = std::min({size.width(), size.height(), m_sizes.last()});
    if (side <= 0)
        return {};
    const QString key = u"skin %1 %2 %3 %4"_s.arg(m_normal, m_hot).arg(side).arg(int(mode));
    QPixmap result;
    if (!QPixmapCache::find(key, &result)) {
        result = QPixmap::fromImage(load(side, mode));
        QPixmapCache::insert(key, result);
    }
    return result;
}

QPixmap PictureEngine::scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal) {
    return pixmap(size, mode, state);
}

void PictureEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) {
    const qreal ratio = painter->device() ? painter->device()->devicePixelRatio() : 1.0;
    QPixmap picture = pixmap(rect.size() * ratio, mode, state);
    picture.setDevicePixelRatio(1.0);
    painter->drawPixmap(rect, picture);
}

QSize PictureEngine::actualSize(const QSize& size, QIcon::Mode, QIcon::State) {
    const int side = std::min({size.width(), size.height(), m_sizes.last()});
    return {side, side};
}

QList<QSize> PictureEngine::availableSizes(QIcon::Mode, QIcon::State) {
    QList<QSize> sizes;
    for (const int side : m_sizes)
        sizes.append({side, side});
    return sizes;
}

QIconEngine* PictureEngine::clone() const {
    return new PictureEngine(*this);
}

} // namespace skin
