#include "platform/help/LineIcons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

namespace help {

namespace {

constexpr qreal Grid = 24; // the drawings below live on a grid of 24 by 24

QPainterPath polyline(std::initializer_list<QPointF> points) {
    QPainterPath path;
    bool first = true;
    for (const QPointF& point : points) {
        first ? path.moveTo(point) : path.lineTo(point);
        first = false;
    }
    return path;
}

QPainterPath magnifier() {
    QPainterPath path;
    path.addEllipse(QPointF(10.5, 10.5), 6, 6);
    path.addPath(polyline({{15, 15}, {20, 20}}));
    return path;
}

QPainterPath panel() {
    QPainterPath path;
    path.addRoundedRect(QRectF(3.5, 5, 17, 14), 1.5, 1.5);
    path.addPath(polyline({{9.5, 5}, {9.5, 19}}));
    path.addPath(polyline({{5.5, 8.5}, {7.5, 8.5}}));
    path.addPath(polyline({{5.5, 11.5}, {7.5, 11.5}}));
    return path;
}

QPainterPath home() {
    QPainterPath path = polyline({{3.5, 12}, {12, 4.5}, {20.5, 12}});
    path.addPath(polyline({{6, 10}, {6, 19.5}, {18, 19.5}, {18, 10}}));
    path.addPath(polyline({{10, 19.5}, {10, 14}, {14, 14}, {14, 19.5}}));
    return path;
}

QPainterPath printer() {
    QPainterPath path = polyline({{7, 9}, {7, 4}, {17, 4}, {17, 9}});
    path.addPath(polyline({{7, 17}, {4, 17}, {4, 9}, {20, 9}, {20, 17}, {17, 17}}));
    path.addRect(QRectF(7, 14, 10, 6));
    return path;
}

QPainterPath book() {
    QPainterPath path = polyline({{12, 6.5}, {12, 19}});
    path.moveTo(12, 6.5);
    path.quadTo(8, 4, 3.5, 5.5);
    path.lineTo(3.5, 18);
    path.quadTo(8, 16.5, 12, 19);
    path.quadTo(16, 16.5, 20.5, 18);
    path.lineTo(20.5, 5.5);
    path.quadTo(16, 4, 12, 6.5);
    return path;
}

QPainterPath page() {
    QPainterPath path = polyline({{14, 3.5}, {6, 3.5}, {6, 20.5}, {18, 20.5}, {18, 7.5}, {14, 3.5}});
    path.addPath(polyline({{14, 3.5}, {14, 7.5}, {18, 7.5}}));
    path.addPath(polyline({{9, 12}, {15, 12}}));
    path.addPath(polyline({{9, 16}, {15, 16}}));
    return path;
}

QPainterPath outline(Glyph glyph) {
    QPainterPath path = magnifier();
    switch (glyph) {
    case Glyph::Panel:
        return panel();
    case Glyph::Back:
        path = polyline({{20, 12}, {4.5, 12}});
        path.addPath(polyline({{11, 5.5}, {4.5, 12}, {11, 18.5}}));
        return path;
    case Glyph::Forward:
        path = polyline({{4, 12}, {19.5, 12}});
        path.addPath(polyline({{13, 5.5}, {19.5, 12}, {13, 18.5}}));
        return path;
    case Glyph::Home:
        return home();
    case Glyph::Print:
        return printer();
    case Glyph::Find:
        return path;
    case Glyph::ZoomIn:
        path.addPath(polyline({{10.5, 8}, {10.5, 13}}));
        [[fallthrough]];
    case Glyph::ZoomOut:
        path.addPath(polyline({{8, 10.5}, {13, 10.5}}));
        return path;
    case Glyph::Previous:
        return polyline({{5.5, 15}, {12, 8.5}, {18.5, 15}});
    case Glyph::Next:
        return polyline({{5.5, 9}, {12, 15.5}, {18.5, 9}});
    case Glyph::Close:
        path = polyline({{7, 7}, {17, 17}});
        path.addPath(polyline({{17, 7}, {7, 17}}));
        return path;
    case Glyph::Book:
        return book();
    case Glyph::Page:
        return page();
    }
    return path;
}

class LineIconEngine : public QIconEngine {
public:
    LineIconEngine(Glyph glyph, OnSelection onSelection) : m_glyph(glyph), m_onSelection(onSelection) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const bool selected = mode == QIcon::Selected && m_onSelection == OnSelection::SelectedText;
        const auto role = selected ? QPalette::HighlightedText : QPalette::WindowText;
        const qreal side = std::min(area.width(), area.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(area.center() + QPointF(0.5 - side / 2 + 0.5, 0.5 - side / 2 + 0.5));
        painter->scale(side / Grid, side / Grid);
        painter->setPen(QPen(palette.color(group, role), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(outline(m_glyph));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new LineIconEngine(m_glyph, m_onSelection); }

private:
    Glyph m_glyph;
    OnSelection m_onSelection;
};

} // namespace

QIcon lineIcon(Glyph glyph, OnSelection onSelection) {
    return QIcon(new LineIconEngine(glyph, onSelection));
}

} // namespace help
