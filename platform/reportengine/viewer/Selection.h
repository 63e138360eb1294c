#pragma once

#include "platform/reportengine/viewer/PagePlace.h"
#include <QString>
#include <optional>

namespace quorvane::report {

class ReportPages;
struct PlacedText;
struct ShownPage;

/// What the user has marked by dragging over pages: the texts between two places, from the one column to the
/// other, as a table is marked. Over several pages the pages' own headings and feet are left out, so that the
/// lines follow each other as one list.
class Selection {
public:
    void begin(const PagePlace& place);
    void extendTo(const PagePlace& place);
    /// All of a page.
    void selectPage(int page, const QSizeF& size);
    void clear();

    bool isEmpty() const { return !m_anchor || !m_dragged; }
    int firstPage() const { return m_from.page; }
    int lastPage() const { return m_to.page; }
    bool contains(const ReportPages& pages, int page, const ShownPage& shown, const PlacedText& text) const;

    /// The marked texts: a line a row, tabulators between the texts. Errors are those of ReportPages::make.
    QString text(const ReportPages& pages) const;

private:
    std::optional<PagePlace> m_anchor;
    PagePlace m_from; ///< the upper end
    PagePlace m_to;   ///< the lower end
    double m_left = 0;
    double m_right = 0;
    bool m_dragged = false;
};

} // namespace quorvane::report
