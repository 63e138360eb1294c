#include "platform/reportengine/viewer/TextMarks.h"
#include "platform/quorvane32/base/SpanishText.h"

namespace quorvane::report {

namespace {

int styleNumber(const Definition& definition, const ShownPage& shown, const PlacedText& text) {
    const Band& band = shown.page.bands[text.band];
    return styleOf(definition.sections[band.section].objects[text.object], band, text.object);
}

/// The part of an object that its text of the given width takes.
QRectF alignedRect(const QRectF& rect, Qt::Alignment alignment, double width) {
    QRectF place = rect;
    place.setWidth(width);
    if (alignment & Qt::AlignRight)
        place.moveRight(rect.right());
    else if (alignment & Qt::AlignHCenter)
        place.moveLeft(rect.center().x() - width / 2);
    return place;
}

} // namespace

QString sought(const QString& text) {
    return foldPlain(text.trimmed());
}

std::vector<TextHit> hitsOn(const ShownPage& shown, int page, const QString& folded) {
    std::vector<TextHit> hits;
    if (folded.isEmpty())
        return hits;
    for (int text = 0; text < static_cast<int>(shown.texts.size()); ++text) {
        if (shown.texts[text].text.size() < folded.size())
            continue;
        const QString all = foldPlain(shown.texts[text].text);
        for (qsizetype at = all.indexOf(folded); at >= 0; at = all.indexOf(folded, at + folded.size()))
            hits.push_back({page, text, static_cast<int>(at)});
    }
    return hits;
}

const FontFace& TextMarks::face(const Definition& definition, const ShownPage& shown,
                                const PlacedText& text) {
    return m_faces.face(definition.styles, styleNumber(definition, shown, text), &m_device);
}

QRectF TextMarks::rectOf(const Definition& definition, const ShownPage& shown, const PlacedText& text) {
    const double width = face(definition, shown, text).width(text.text);
    if (width >= text.rect.width())
        return text.rect;
    return alignedRect(text.rect, definition.styles[styleNumber(definition, shown, text)].alignment, width);
}

QRectF TextMarks::rectOf(const Definition& definition, const ShownPage& shown, const TextHit& hit,
                         int length) {
    const PlacedText& text = shown.texts[hit.text];
    const FontFace& letters = face(definition, shown, text);
    const double whole = letters.width(text.text);
    if (whole > text.rect.width())
        return text.rect;
    QRectF place = rectOf(definition, shown, text);
    const double before = letters.width(QStringView(text.text).left(hit.from));
    const double upTo = letters.width(QStringView(text.text).left(hit.from + length));
    return {place.left() + before, place.top(), upTo - before, place.height()};
}

} // namespace quorvane::report
