#pragma once

#include "platform/reportengine/layout/PageWalker.h"
#include <vector>

namespace quorvane::report {

/// Where each page of a report begins: a few hundred bytes a page, side by side.
class PageIndex {
public:
    int size() const { return static_cast<int>(m_places.size()); }
    void add(const PageStart& start);
    PageStart at(int page) const;
    /// The last page that begins at the place or before it.
    int pageOf(const FlowPlace& place) const;

private:
    std::vector<FlowPlace> m_places;
    std::vector<NeumaierSum> m_sums; ///< of all pages, one after the other
    std::vector<qint64> m_counts;
};

} // namespace quorvane::report
