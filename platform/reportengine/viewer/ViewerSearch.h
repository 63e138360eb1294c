#pragma once

#include "platform/reportengine/viewer/TextSearch.h"
#include <QObject>

namespace quorvane::report {

class FindBar;
class PageView;

/// Brings the find bar, the search and the marks on the pages together.
class ViewerSearch : public QObject {
    Q_OBJECT
public:
    ViewerSearch(FindBar& bar, PageView& view);

    /// Searches other pages from now on; null for none.
    void setPages(ReportPages* pages);
    void pagesAdded(bool moreToCome) { m_search.pagesAdded(moreToCome); }

    void open();
    /// Goes on from the present place; with nothing to look for the bar opens.
    void next(bool forward);
    /// Ends a search that is running, else closes the bar; false when there was nothing to do.
    bool cancel();
    bool isRunning() const { return m_search.isRunning(); }

Q_SIGNALS:
    /// A hit is to be seen.
    void found(int page);

private:
    void start(bool forward, bool inclusive);
    void enter(const QString& text);
    void show(const TextHit& hit, bool wrapped);
    void close();

    FindBar& m_bar;
    PageView& m_view;
    ReportPages* m_pages = nullptr;
    TextSearch m_search;
    QString m_folded;
    bool m_forward = true;
    std::optional<TextHit> m_hit;
    int m_pageAtHit = 0; ///< on the screen when the hit was shown
};

} // namespace quorvane::report
