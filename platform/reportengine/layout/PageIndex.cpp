#include "platform/reportengine/layout/PageIndex.h"
#include <algorithm>
#include <tuple>

namespace quorvane::report {

namespace {

/// One page's part of what all pages keep side by side.
template<class T> std::vector<T> partOf(const std::vector<T>& all, int page, int pages) {
    const auto size = static_cast<std::ptrdiff_t>(all.size()) / pages;
    return {all.begin() + page * size, all.begin() + (page + 1) * size};
}

} // namespace

void PageIndex::add(const PageStart& start) {
    m_places.push_back(start.place);
    m_sums.insert(m_sums.end(), start.totals.sums.begin(), start.totals.sums.end());
    m_counts.insert(m_counts.end(), start.totals.counts.begin(), start.totals.counts.end());
}

PageStart PageIndex::at(int page) const {
    return {m_places[page], {partOf(m_sums, page, size()), partOf(m_counts, page, size())}};
}

int PageIndex::pageOf(const FlowPlace& place) const {
    const auto behind =
        std::upper_bound(m_places.begin(), m_places.end(), place, [](const FlowPlace& a, const FlowPlace& b) {
            return std::tie(a.row, a.step) < std::tie(b.row, b.step);
        });
    return static_cast<int>(behind - m_places.begin()) - 1;
}

} // namespace quorvane::report
