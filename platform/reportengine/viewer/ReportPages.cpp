#include "platform/reportengine/viewer/ReportPages.h"
#include <algorithm>

namespace quorvane::report {

namespace {

/// Pages that are kept: at the smallest zoom a large screen shows about this many.
constexpr std::size_t keptPages = 32;

bool carriesText(const ReportObject& object) {
    return object.kind == ObjectKind::Field || object.kind == ObjectKind::Text;
}

} // namespace

PageContext ReportPages::context() const {
    PageContext context;
    context.definition = &m_report.definition();
    context.regional = m_report.regional();
    const Layout& layout = m_report.layout();
    context.pageCount = layout.complete() ? layout.pageCount() : 0;
    context.groups = &layout.groups();
    return context;
}

ShownPage ReportPages::make(int index) const {
    ShownPage shown;
    shown.page = m_report.layout().page(index);
    const PageContext all = context();
    for (int band = 0; band < static_cast<int>(shown.page.bands.size()); ++band) {
        const Band& placed = shown.page.bands[band];
        const std::vector<ReportObject>& objects = definition().sections[placed.section].objects;
        for (int object = 0; object < static_cast<int>(objects.size()); ++object) {
            if (!carriesText(objects[object]) || !isShown(objects[object], placed, object))
                continue;
            const QRectF rect = objectRect(definition(), placed, objects[object]);
            shown.texts.push_back({band, object, rect, fieldText(all, shown.page, placed, object)});
        }
    }
    return shown;
}

std::shared_ptr<const ShownPage> ReportPages::page(int index) {
    const auto found =
        std::find_if(m_kept.begin(), m_kept.end(), [index](const Kept& kept) { return kept.index == index; });
    if (found != m_kept.end()) {
        std::rotate(m_kept.begin(), found, found + 1);
        return m_kept.front().page;
    }
    auto made = std::make_shared<const ShownPage>(make(index));
    m_kept.push_front({index, made});
    if (m_kept.size() > keptPages)
        m_kept.pop_back();
    return made;
}

} // namespace quorvane::report
