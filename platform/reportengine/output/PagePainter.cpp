#include "platform/reportengine/output/PagePainter.h"
#include "platform/reportengine/output/BarChart.h"
#include "platform/reportengine/output/FontFaces.h"
#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane::report {

namespace {

/// The ground of every other detail: enough to guide the eye along the line, pale enough to print well.
constexpr QColor tint(0xf4, 0xf6, 0xf9);
/// A figure too wide for its place is drawn smaller down to this part of its size; a cut one would be read as
/// another figure.
constexpr double smallestFigure = 0.6;
/// A font's line may be this much higher than its object before it is clipped.
constexpr double heightSlack = 1;

/// Line breaks and tabs from the database would be drawn as boxes.
QString onOneLine(QString text) {
    for (QChar& character : text)
        if (character.unicode() < 0x20)
            character = u' ';
    return text;
}

QPointF baseline(const QRectF& rect, Qt::Alignment alignment, double width, const FontFace& face) {
    double x = rect.left();
    if (alignment & Qt::AlignRight)
        x = rect.right() - width;
    else if (alignment & Qt::AlignHCenter)
        x = rect.left() + (rect.width() - width) / 2;
    double top = rect.top();
    const double height = face.ascent() + face.descent();
    if (alignment & Qt::AlignVCenter)
        top = rect.top() + (rect.height() - height) / 2;
    else if (alignment & Qt::AlignBottom)
        top = rect.bottom() - height;
    return {x, top + face.ascent()};
}

void drawImage(QPainter& painter, const QRectF& rect, Qt::Alignment alignment, const QImage& image) {
    if (image.isNull())
        return;
    const QSizeF size = QSizeF(image.size()).scaled(rect.size(), Qt::KeepAspectRatio);
    QRectF target(rect.topLeft(), size);
    if (alignment & Qt::AlignRight)
        target.moveRight(rect.right());
    else if (alignment & Qt::AlignHCenter)
        target.moveLeft(rect.left() + (rect.width() - size.width()) / 2);
    if (alignment & Qt::AlignBottom)
        target.moveBottom(rect.bottom());
    else if (alignment & Qt::AlignVCenter)
        target.moveTop(rect.top() + (rect.height() - size.height()) / 2);
    painter.drawImage(target, image);
}

void drawLine(QPainter& painter, const QRectF& rect, const Style& style, double stroke) {
    if (stroke <= 0)
        return;
    painter.setPen(QPen(style.colour, stroke, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(rect.topLeft(), rect.bottomRight());
}

void drawBox(QPainter& painter, const QRectF& rect, const Style& style, double stroke) {
    if (style.background.isValid())
        painter.fillRect(rect, style.background);
    if (stroke <= 0)
        return;
    painter.setPen(QPen(style.colour, stroke, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    const double half = stroke / 2;
    painter.drawRect(rect.adjusted(half, half, -half, -half));
}

} // namespace

/// One page on its way onto a painter. Changes of font and pen cost more than short texts, so the last ones
/// are remembered.
class PagePainter::Impl {
public:
    explicit Impl(const PageContext& pageContext) : context(pageContext) {}

    void paint(QPainter& target, const Page& page);
    void forgetFonts() { faces = FontFaces(); }

    PageContext context;

private:
    const Definition& definition() const { return *context.definition; }
    void drawBand(const Page& page, const Band& band);
    void drawObject(const Page& page, const Band& band, int position);
    void drawText(const QRectF& rect, int style, const QString& text, bool figure);
    void drawFigure(const QRectF& rect, const Style& style, const FontFace& face, const QString& text);
    void drawWithin(const QRectF& rect, const QPointF& place, const QString& text, const FontFace& face);
    void useText(int style, const FontFace& face);
    void drawChart(const QRectF& rect, int style, const Chart& chart);
    const FontFace& face(int style) { return faces.face(definition().styles, style, painter->device()); }

    FontFaces faces;
    QPainter* painter = nullptr;
    int font = -1;
    QColor pen;
};

void PagePainter::Impl::paint(QPainter& target, const Page& page) {
    painter = &target;
    font = -1;
    pen = QColor();
    for (const Band& band : page.bands)
        drawBand(page, band);
    painter = nullptr;
}

void PagePainter::Impl::drawBand(const Page& page, const Band& band) {
    const Section& section = definition().sections[band.section];
    if (section.shaded && band.odd) {
        const QMarginsF& margins = definition().margins;
        const double width = definition().pageSize.width() - margins.left() - margins.right();
        painter->fillRect(QRectF(margins.left(), band.top, width, section.height), tint);
    }
    for (int position = 0; position < static_cast<int>(section.objects.size()); ++position)
        if (isShown(section.objects[position], band, position))
            drawObject(page, band, position);
}

void PagePainter::Impl::drawObject(const Page& page, const Band& band, int position) {
    const ReportObject& object = definition().sections[band.section].objects[position];
    const QRectF rect = objectRect(definition(), band, object);
    const int style = styleOf(object, band, position);
    const Style& look = definition().styles[style];
    switch (object.kind) {
    case ObjectKind::Field:
    case ObjectKind::Text: {
        const bool own = static_cast<size_t>(position) < band.values.size();
        drawText(rect, style, fieldText(context, page, band, position),
                 own && isNumber(band.values[position]));
        return;
    }
    case ObjectKind::Line:
        drawLine(*painter, rect, look, object.stroke);
        break;
    case ObjectKind::Box:
        drawBox(*painter, rect, look, object.stroke);
        break;
    case ObjectKind::Image:
        drawImage(*painter, rect, look.alignment, object.image);
        break;
    case ObjectKind::Chart:
        drawChart(rect, style, object.chart);
        break;
    }
    pen = QColor();
}

void PagePainter::Impl::useText(int style, const FontFace& face) {
    if (font != style) {
        painter->setFont(face.font());
        font = style;
    }
    const QColor& colour = definition().styles[style].colour;
    if (pen != colour) {
        painter->setPen(colour);
        pen = colour;
    }
}

void PagePainter::Impl::drawText(const QRectF& rect, int style, const QString& text, bool figure) {
    const Style& look = definition().styles[style];
    if (look.background.isValid())
        painter->fillRect(rect, look.background);
    if (text.isEmpty())
        return;
    const FontFace& letters = face(style);
    useText(style, letters);
    if (figure && letters.width(text) > rect.width()) {
        drawFigure(rect, look, letters, text);
        return;
    }
    const QString shown = figure ? text : letters.elided(onOneLine(text), rect.width());
    const bool fromLeft = !(look.alignment & (Qt::AlignRight | Qt::AlignHCenter));
    const double width = fromLeft ? 0 : letters.width(shown);
    drawWithin(rect, baseline(rect, look.alignment, width, letters), shown, letters);
}

void PagePainter::Impl::drawWithin(const QRectF& rect, const QPointF& place, const QString& text,
                                   const FontFace& letters) {
    if (letters.ascent() + letters.descent() <= rect.height() + heightSlack) {
        painter->drawText(place, text);
        return;
    }
    painter->save();
    painter->setClipRect(rect, Qt::IntersectClip);
    painter->drawText(place, text);
    painter->restore();
}

void PagePainter::Impl::drawFigure(const QRectF& rect, const Style& style, const FontFace& letters,
                                   const QString& text) {
    const double scale = rect.width() / letters.width(text);
    const QString shown =
        scale >= smallestFigure ? text : QString(static_cast<int>(rect.width() / letters.width(u"#")), u'#');
    const double factor = scale >= smallestFigure ? scale : 1;
    QPointF place = baseline(rect, style.alignment, letters.width(shown) * factor, letters);
    painter->save();
    painter->translate(place);
    painter->scale(factor, factor);
    painter->drawText(QPointF(0, 0), shown);
    painter->restore();
}

void PagePainter::Impl::drawChart(const QRectF& rect, int style, const Chart& chart) {
    const Style& look = definition().styles[style];
    BarChart bars(context, chart, look);
    bars.draw(*painter, rect);
    font = -1;
}

PagePainter::PagePainter(const PageContext& context) : m_impl(std::make_unique<Impl>(context)) {}

PagePainter::~PagePainter() = default;

void PagePainter::setContext(const PageContext& context) {
    // The fonts are those of the definition's styles.
    if (context.definition != m_impl->context.definition)
        m_impl->forgetFonts();
    m_impl->context = context;
}

void PagePainter::paint(QPainter& painter, const Page& page) const {
    painter.save();
    m_impl->paint(painter, page);
    painter.restore();
}

} // namespace quorvane::report
