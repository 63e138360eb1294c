#include "platform/reportengine/layout/PageWalker.h"
#include <algorithm>

namespace quorvane::report {

namespace {

/// Heights come from millimetres: their sums may miss the page's by a hair.
constexpr double hair = 0.01;

const SectionList none;

} // namespace

PageWalker::PageWalker(const Definition& definition, const SectionPlan& plan, WalkListener& listener)
    : m_definition(definition), m_plan(plan), m_listener(listener), m_totals(definition) {}

int PageWalker::Share::section(int step) const {
    if (step < headersFrom())
        return footers->sections[step];
    return step < bodyFrom() ? headers->sections[step - headersFrom()] : body->sections[step - bodyFrom()];
}

PageWalker::Share PageWalker::shareOf(int level, bool isEnd) const {
    return {m_place.row > 0 ? &m_plan.footersFrom[level] : &none,
            isEnd ? &none : &m_plan.headersFrom[level],
            isEnd ? &m_plan.reportFooter : &m_plan.details,
            level,
            isEnd,
            0};
}

void PageWalker::begin(int page, const PageStart& start, int level, bool isEnd) {
    m_page = page;
    m_place = start.place;
    m_totals.restore(start.totals);
    startPage(shareOf(level, isEnd));
}

bool PageWalker::walkRow(int level, int nextLevel) {
    Share share = shareOf(level, false);
    share.tail = m_plan.footersFrom[nextLevel].kept;
    if (!walk(share))
        return false;
    ++m_place.row;
    m_place.step = 0;
    return true;
}

bool PageWalker::walkEnd() {
    const Share share = shareOf(0, true);
    if (!walk(share))
        return false;
    finishPage(share);
    return true;
}

bool PageWalker::walk(const Share& share) {
    bool entered = m_place.step > share.headersFrom();
    for (;;) {
        const bool isLeft = m_place.step < share.end();
        if (isLeft && needsNewPage(share) && !breakPage(share))
            return false;
        if (!entered && m_place.step >= share.headersFrom()) {
            enterRow(share);
            entered = true;
        }
        if (!isLeft)
            return true;
        const bool isFooter = m_place.step < share.headersFrom() || share.isEnd;
        const int section = share.section(m_place.step);
        place(section, isFooter ? m_place.row - 1 : m_place.row);
        if (height(section) > 0) {
            m_hasBody = true;
            m_fresh = false;
        }
        ++m_place.step;
    }
}

/// The row is added up once what stood before it has its totals.
void PageWalker::enterRow(const Share& share) {
    const int groups = static_cast<int>(m_definition.groups.size());
    if (share.level < groups) {
        if (m_place.row > 0)
            m_listener.groupsEnded(share.level, m_totals);
        if (!share.isEnd)
            m_totals.restart(share.level);
    }
    if (share.isEnd)
        return;
    m_totals.add(m_listener.rowAt(m_place.row));
    if (share.level < groups)
        m_listener.groupsBegan(share.level, m_place.row);
}

bool PageWalker::needsNewPage(const Share& share) const {
    if (m_hasBody && beginsPage(share))
        return true;
    return !m_fresh && m_top + heightNeeded(share) > bottom() + hair;
}

/// Headers and the details under them stay together: when one of them begins a page, the first does.
bool PageWalker::beginsPage(const Share& share) const {
    const int step = m_place.step;
    if (step == share.headersFrom() && !share.isEnd) {
        const int last = std::min(share.bodyFrom(), share.end() - 1);
        for (int i = step; i <= last; ++i)
            if (m_definition.sections[share.section(i)].newPageBefore)
                return true;
        return false;
    }
    const bool isKept = step > share.headersFrom() && step <= share.bodyFrom() && !share.isEnd;
    return !isKept && m_definition.sections[share.section(step)].newPageBefore;
}

/// A header needs room for the first details under it, the last details for the footers behind them; when a
/// page has not that much room, less must do. What follows a header stays under it if it fits at all.
double PageWalker::heightNeeded(const Share& share) const {
    const int step = m_place.step;
    const double own = height(share.section(step));
    const bool isFirst = step == share.headersFrom();
    if (share.isEnd || step < share.headersFrom() || (!isFirst && step >= share.bodyFrom()))
        return own;
    double rest = 0;
    double untilDetails = 0;
    for (int i = step; i < share.end(); ++i) {
        rest += height(share.section(i));
        if (i <= share.bodyFrom())
            untilDetails = rest;
    }
    const double room = bodyHeight() - m_plan.repeated[openGroups(share)].height + hair;
    if (isFirst && rest + share.tail <= room)
        return rest + share.tail;
    if (isFirst && rest <= room)
        return rest;
    return untilDetails <= room ? untilDetails : own;
}

/// How many groups, from the outermost, have their header on an earlier page and go on.
int PageWalker::openGroups(const Share& share) const {
    const int step = m_place.step;
    if (step < share.headersFrom())
        return m_definition.sections[share.section(step)].group + 1;
    if (step < share.bodyFrom())
        return m_definition.sections[share.section(step)].group;
    return share.isEnd ? 0 : static_cast<int>(m_definition.groups.size());
}

bool PageWalker::breakPage(const Share& share) {
    finishPage(share);
    ++m_page;
    if (!m_listener.pageFull({m_place, m_totals.state()}))
        return false;
    startPage(share);
    return true;
}

void PageWalker::startPage(const Share& share) {
    m_top = m_definition.margins.top();
    m_fresh = true;
    m_hasBody = false;
    const qint64 row = share.isEnd ? m_place.row - 1 : m_place.row;
    if (m_page == 0) {
        placeList(m_plan.reportHeader, row);
        m_fresh = m_plan.reportHeader.height == 0;
    }
    // A report header that fills its page leaves no room for the page's.
    if (m_page > 0 || m_fresh || m_top + m_plan.pageHeader.height <= bottom() + hair)
        placeList(m_plan.pageHeader, row);
    if (m_page == 0 || m_place.step >= share.end())
        return;
    const SectionList& repeated = m_plan.repeated[openGroups(share)];
    if (m_top + repeated.height + height(share.section(m_place.step)) <= bottom() + hair)
        placeList(repeated, m_place.step < share.headersFrom() ? m_place.row - 1 : row, true);
}

void PageWalker::finishPage(const Share& share) {
    const bool isBefore = share.isEnd || m_place.step <= share.headersFrom();
    m_top = bottom();
    placeList(m_plan.pageFooter, isBefore ? m_place.row - 1 : m_place.row);
}

void PageWalker::placeList(const SectionList& list, qint64 row, bool repeated) {
    for (const int section : list.sections)
        place(section, row, repeated);
}

void PageWalker::place(int section, qint64 row, bool repeated) {
    const double own = height(section);
    if (own <= 0)
        return;
    m_listener.placed({section, m_top, row, repeated}, m_totals);
    m_top += own;
}

double PageWalker::bottom() const {
    return m_definition.pageSize.height() - m_definition.margins.bottom() - m_plan.pageFooter.height;
}

double PageWalker::bodyHeight() const {
    return bottom() - m_definition.margins.top() - m_plan.pageHeader.height;
}

} // namespace quorvane::report
