#include "ui/toolbar/ToolbarPainter.h"
#include "ui/toolbar/ContentLayout.h"
#include "ui/toolbar/Emboss.h"
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <cmath>

namespace dalvora::toolbar {

namespace {

/// The text up to the first NUL; what follows is whatever the toolbar's buffer held before.
QString captionOf(const ToolbarButton& button) {
    const qsizetype end = button.caption.indexOf(QChar(u'\0'));
    return end < 0 ? button.caption : button.caption.left(end);
}

bool isEnabled(const ToolbarButton& button) {
    return (button.state & StateEnabled) != 0;
}

/// The image that a button shows now; null when it has none.
QPixmap imageOf(const ToolbarButton& button, const ToolbarImages& images, bool hot) {
    if (button.image < 0)
        return {};
    const ImageListKind list = !isEnabled(button) ? ImageListKind::Disabled
                               : hot              ? ImageListKind::Hot
                                                  : ImageListKind::Normal;
    QPixmap image = images.image(list, button.image);
    if (!image.isNull() || list == ImageListKind::Normal)
        return image;
    image = images.image(ImageListKind::Normal, button.image);
    if (image.isNull() || list == ImageListKind::Hot)
        return image;
    const QPalette system = QGuiApplication::palette();
    return QPixmap::fromImage(
        embossed(image.toImage(), system.color(QPalette::Light), system.color(QPalette::Dark)));
}

void paintContent(QPainter& painter, const ToolbarDescription& bar, const ToolbarButton& button,
                  const QPixmap& image) {
    const QString caption = captionOf(button);
    const QFontMetrics metrics = painter.fontMetrics();
    const QSize captionSize =
        caption.isEmpty() ? QSize() : metrics.size(Qt::TextShowMnemonic | Qt::TextSingleLine, caption);
    ContentLayout places = layoutContent(contentRect(button), image.isNull() ? QSize() : bar.iconSize,
                                         captionSize, bar.textOnRight);
    if (isSunk(button)) {
        places.image.translate(1, 1);
        places.caption.translate(1, 1);
    }
    // What is too high for its button is cut: nothing beside the button would be repainted with it.
    const QRect content = places.image | places.caption;
    const bool cut = !content.isEmpty() && !button.rect.contains(content);
    if (cut)
        painter.setClipRect(button.rect);
    if (!image.isNull()) {
        // An image smaller than the list's size stands in the middle of its place.
        QRect place({}, image.deviceIndependentSize().toSize());
        place.moveCenter(places.image.center());
        painter.drawPixmap(place.topLeft(), image);
    }
    if (!places.caption.isEmpty()) {
        const bool fits = places.caption.width() >= captionSize.width();
        painter.drawText(
            places.caption, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine,
            fits ? caption
                 : metrics.elidedText(caption, Qt::ElideRight, places.caption.width(), Qt::TextShowMnemonic));
    }
    if (cut)
        painter.setClipping(false);
}

} // namespace

QImage ToolbarPainter::paint(const ToolbarDescription& bar, const ToolbarImages& images, const QRect& part,
                             qreal scale, QImage earlier) const {
    const QRect shown = part & QRect({}, bar.size);
    if (!canPaint() || shown.isEmpty())
        return {};
    const QSize size(static_cast<int>(std::ceil(shown.width() * scale)),
                     static_cast<int>(std::ceil(shown.height() * scale)));
    QImage buffer = earlier.size() == size ? std::move(earlier) : QImage(size, QImage::Format_RGB32);
    buffer.setDevicePixelRatio(scale);
    m_skin.fillBackground(buffer, bar.size, shown.topLeft());
    QPainter painter(&buffer);
    painter.translate(-shown.topLeft());
    painter.setFont(bar.font);
    painter.setPen(m_skin.captionColour(CaptionColour::Normal));
    for (const ToolbarButton& button : bar.buttons) {
        if (button.style != StyleSeparator)
            if (const auto colour = captionColourOf(button))
                painter.setPen(m_skin.captionColour(*colour));
        if (button.rect.intersects(shown))
            paintButton(painter, bar, images, button);
    }
    return buffer;
}

void ToolbarPainter::paintButton(QPainter& painter, const ToolbarDescription& bar,
                                 const ToolbarImages& images, const ToolbarButton& button) const {
    if (button.style == StyleSeparator) {
        paintSeparator(painter, button.rect);
        return;
    }
    paintFaces(painter, bar, button);
    if (button.style == StyleDropDown)
        paintArrow(painter, button);
    paintContent(painter, bar, button, imageOf(button, images, button.rect.contains(bar.cursor)));
}

void ToolbarPainter::paintFaces(QPainter& painter, const ToolbarDescription& bar,
                                const ToolbarButton& button) const {
    const ButtonFaces faces = facesOf(button, pointerOn(button, bar.cursor), bar.menuOpen);
    const auto paintFace = [&](std::optional<FaceState> state, FacePart part, const QRect& rect) {
        if (state && !rect.isEmpty())
            painter.drawImage(rect.topLeft(), m_skin.face(*state, part, rect.size()));
    };
    paintFace(faces.whole, FacePart::Whole, button.rect);
    paintFace(faces.main, FacePart::Main, contentRect(button));
    paintFace(faces.arrow, FacePart::Arrow, arrowRect(button));
}

/// The piece keeps its width and stands in the middle of the button's rectangle, so that a wide space between
/// two groups does not become a thick bar.
void ToolbarPainter::paintSeparator(QPainter& painter, const QRect& rect) const {
    const QImage piece = m_skin.separator(rect.height());
    QRect place({}, piece.size());
    place.moveTopLeft({rect.x() + (rect.width() - piece.width()) / 2, rect.y()});
    const QRect visible = place & rect;
    painter.drawImage(visible.topLeft(), piece, visible.translated(-place.topLeft()));
}

void ToolbarPainter::paintArrow(QPainter& painter, const ToolbarButton& button) const {
    // Any bit makes the arrow look enabled: that of a disabled button that is checked or wrapped does too.
    const QImage glyph = m_skin.arrow(button.state != 0);
    const QRect rect = arrowRect(button);
    painter.drawImage(rect.x() + (rect.width() - glyph.width()) / 2,
                      rect.y() + (rect.height() - glyph.height()) / 2, glyph);
}

} // namespace dalvora::toolbar
