#include "platform/reportengine/viewer/ViewerSearch.h"
#include "platform/reportengine/viewer/FindBar.h"
#include "platform/reportengine/viewer/PageView.h"
#include <limits>

namespace quorvane::report {

using namespace Qt::StringLiterals;

ViewerSearch::ViewerSearch(FindBar& bar, PageView& view) : QObject(&bar), m_bar(bar), m_view(view) {
    connect(&bar, &FindBar::textEntered, this, &ViewerSearch::enter);
    connect(&bar, &FindBar::nextWanted, this, &ViewerSearch::next);
    connect(&bar, &FindBar::closed, this, &ViewerSearch::close);
    connect(&m_search, &TextSearch::found, this, &ViewerSearch::show);
    connect(&m_search, &TextSearch::notFound, this, [this] {
        m_hit.reset();
        m_view.setMarks(m_folded, m_hit);
        m_bar.showMessage(u"No encontrado"_s, true);
    });
    connect(&m_search, &TextSearch::failed, this,
            [this](const QString& reason) { m_bar.showMessage(reason, true); });
    connect(&m_search, &TextSearch::progressed, this,
            [this](int page) { m_bar.showMessage(u"Buscando... página %1 (Esc detiene)"_s.arg(page + 1)); });
}

void ViewerSearch::setPages(ReportPages* pages) {
    m_search.stop();
    m_pages = pages;
    m_hit.reset();
    m_folded.clear();
    m_bar.showMessage({});
    m_bar.hide();
}

void ViewerSearch::open() {
    m_bar.open();
    enter(m_bar.text());
}

void ViewerSearch::enter(const QString& text) {
    const QString folded = sought(text);
    if (folded == m_folded && (m_hit || m_search.isRunning()))
        return;
    m_folded = folded;
    m_view.setMarks(m_folded, {});
    m_search.stop();
    if (m_folded.isEmpty()) {
        m_hit.reset();
        m_bar.showMessage({});
        return;
    }
    start(true, true);
}

void ViewerSearch::next(bool forward) {
    const QString folded = sought(m_bar.text());
    if (!m_pages || folded.isEmpty()) {
        open();
        return;
    }
    m_bar.show();
    const bool same = folded == m_folded && m_hit;
    m_folded = folded;
    start(forward, !same);
}

void ViewerSearch::start(bool forward, bool inclusive) {
    if (!m_pages)
        return;
    m_forward = forward;
    TextHit from{m_view.currentPage(), forward ? 0 : std::numeric_limits<int>::max(), 0};
    // On from the hit, unless the reader has gone to another page meanwhile.
    if (m_hit && m_pageAtHit == m_view.currentPage())
        from = *m_hit;
    m_bar.showMessage({});
    m_search.find(*m_pages, m_folded, forward, from, inclusive);
}

void ViewerSearch::show(const TextHit& hit, bool wrapped) {
    m_hit = hit;
    m_view.setMarks(m_folded, m_hit);
    m_view.reveal(hit, static_cast<int>(m_folded.size()));
    m_pageAtHit = m_view.currentPage();
    const QString page = u"Página %1"_s.arg(hit.page + 1);
    const QString jump = m_forward ? u", desde el comienzo"_s : u", desde el final"_s;
    m_bar.showMessage(wrapped ? page + jump : page);
    Q_EMIT found(hit.page);
}

bool ViewerSearch::cancel() {
    if (m_search.isRunning()) {
        m_search.stop();
        m_bar.showMessage(u"Búsqueda detenida"_s);
        return true;
    }
    if (m_bar.isHidden())
        return false;
    close();
    return true;
}

void ViewerSearch::close() {
    m_search.stop();
    m_bar.hide();
    m_hit.reset();
    m_folded.clear();
    m_view.setMarks({}, {});
    m_view.setFocus();
}

} // namespace quorvane::report
