#pragma once

#include "platform/reportengine/engine/Report.h"
#include "platform/reportengine/output/FieldText.h"
#include <QRectF>
#include <QSizeF>
#include <deque>
#include <memory>
#include <vector>

namespace quorvane::report {

/// A text that stands on a page: of which object, where, and what it says.
struct PlacedText {
    int band = 0;
    int object = 0;
    QRectF rect; ///< of the object, in points of the page
    QString text;
};

/// A page with what can be read on it.
struct ShownPage {
    Page page;
    std::vector<PlacedText>
        texts; ///< band by band; fields without a text count, so columns keep their places
};

/// The pages of a report as a viewer looks at them. A page is made in a few milliseconds, so only the last
/// ones are kept: those on the screen, which painting, the pointer and the selection ask for again and again.
class ReportPages {
public:
    /// The report has its rows and outlives this object.
    explicit ReportPages(Report& report) : m_report(report) {}

    Report& report() { return m_report; }
    const Definition& definition() const { return m_report.definition(); }
    /// Pages known so far.
    int count() const { return m_report.layout().pageCount(); }
    bool complete() const { return m_report.layout().complete(); }
    const QSizeF& pageSize() const { return definition().pageSize; }
    /// What pages are drawn with now; the number of pages is in it once it is known.
    PageContext context() const;

    /// A known page, kept for a while. Errors 9 and those of the layout's page.
    std::shared_ptr<const ShownPage> page(int index);
    /// The same without keeping it, for who goes through all of them.
    ShownPage make(int index) const;
    /// The pages look different from now on.
    void forget() { m_kept.clear(); }

private:
    struct Kept {
        int index;
        std::shared_ptr<const ShownPage> page;
    };
    Report& m_report;
    std::deque<Kept> m_kept; ///< the one used last at the front
};

} // namespace quorvane::report
