#include "platform/reportengine/viewer/Selection.h"
#include "platform/reportengine/viewer/ReportPages.h"
#include <algorithm>

namespace quorvane::report {

namespace {

/// Texts whose middles lie no further apart than this, in points, stand on one line.
constexpr double sameLine = 4;

bool isAbove(const PagePlace& one, const PagePlace& other) {
    return one.page != other.page ? one.page < other.page : one.point.y() < other.point.y();
}

QString oneLine(QString text) {
    for (QChar& character : text)
        if (character.unicode() < 0x20)
            character = u' ';
    return text;
}

/// Lines of the marked texts of a page, each from left to right.
QString linesOf(std::vector<const PlacedText*> texts) {
    std::stable_sort(texts.begin(), texts.end(), [](const PlacedText* one, const PlacedText* other) {
        return one->rect.center().y() < other->rect.center().y();
    });
    QString lines;
    for (auto from = texts.begin(); from != texts.end();) {
        const double middle = (*from)->rect.center().y();
        const auto to = std::find_if(from, texts.end(), [middle](const PlacedText* text) {
            return text->rect.center().y() > middle + sameLine;
        });
        std::sort(from, to, [](const PlacedText* one, const PlacedText* other) {
            return one->rect.left() < other->rect.left();
        });
        for (auto text = from; text != to; ++text)
            lines += (text == from ? QString() : QStringLiteral("\t")) + oneLine((*text)->text);
        lines += u'\n';
        from = to;
    }
    return lines;
}

} // namespace

void Selection::begin(const PagePlace& place) {
    m_anchor = place;
    m_dragged = false;
}

void Selection::extendTo(const PagePlace& place) {
    if (!m_anchor)
        return;
    m_dragged = true;
    m_from = isAbove(place, *m_anchor) ? place : *m_anchor;
    m_to = isAbove(place, *m_anchor) ? *m_anchor : place;
    m_left = std::min(place.point.x(), m_anchor->point.x());
    m_right = std::max(place.point.x(), m_anchor->point.x());
}

void Selection::selectPage(int page, const QSizeF& size) {
    begin({page, {0, 0}});
    extendTo({page, {size.width(), size.height()}});
}

void Selection::clear() {
    m_anchor.reset();
    m_dragged = false;
}

bool Selection::contains(const ReportPages& pages, int page, const ShownPage& shown,
                         const PlacedText& text) const {
    if (isEmpty() || page < m_from.page || page > m_to.page)
        return false;
    if (text.rect.right() < m_left || text.rect.left() > m_right)
        return false;
    if ((page == m_from.page && text.rect.bottom() < m_from.point.y()) ||
        (page == m_to.page && text.rect.top() > m_to.point.y()))
        return false;
    if (m_from.page == m_to.page)
        return true;
    const Band& band = shown.page.bands[text.band];
    const SectionKind kind = pages.definition().sections[band.section].kind;
    if (kind == SectionKind::PageFooter)
        return false;
    return page == m_from.page || (kind != SectionKind::PageHeader && !band.repeated);
}

QString Selection::text(const ReportPages& pages) const {
    QString all;
    if (isEmpty())
        return all;
    for (int page = m_from.page; page <= m_to.page; ++page) {
        const ShownPage shown = pages.make(page);
        std::vector<const PlacedText*> marked;
        for (const PlacedText& text : shown.texts)
            if (contains(pages, page, shown, text))
                marked.push_back(&text);
        all += linesOf(std::move(marked));
    }
    return all;
}

} // namespace quorvane::report
