#pragma once

#include "platform/reportengine/layout/SectionPlan.h"
#include "platform/reportengine/layout/Totals.h"
#include <QtGlobal>
#include <vector>

namespace quorvane::report {

/// A place in the stream of sections that the rows make: for each row the footers of the groups that ended
/// before it, the headers of those that begin with it and its details; behind the last row all footers and
/// the report's.
struct FlowPlace {
    qint64 row = 0;
    int step = 0; ///< sections of the row's share that are laid out already
};

/// What a page start has to remember so that the page can be made at any time.
struct PageStart {
    FlowPlace place;
    Totals::State totals;
};

/// A section on its page.
struct Placing {
    int section = 0;
    double top = 0;
    qint64 row = -1;       ///< the one that it shows, -1 when there are none
    bool repeated = false; ///< a group header that comes again on a further page of its group
};

/// Where groups begin and end and where pages do; whoever needs to know.
class WalkListener {
public:
    virtual ~WalkListener() = default;
    virtual void placed(const Placing& placing, const Totals& totals) = 0;
    /// A row's groups from `level` inward have ended; the totals are still theirs.
    virtual void groupsEnded(int level, const Totals& totals) = 0;
    virtual void groupsBegan(int level, qint64 row) = 0;
    /// A page is full, this is the start of the next; false stops the walk there.
    virtual bool pageFull(const PageStart& next) = 0;
    virtual const RowReader& rowAt(qint64 row) = 0;
};

/// Lays sections out on pages: where each stands, where a page ends. It looks at rows only to add them up;
/// the same walk counts the pages once and makes any one of them later.
class PageWalker {
public:
    PageWalker(const Definition& definition, const SectionPlan& plan, WalkListener& listener);

    /// Begins the report's first page, or goes back to a known page's start. `level` is the outermost group
    /// that changes before the start's row, `isEnd` whether it is behind the last row.
    void begin(int page, const PageStart& start, int level, bool isEnd);
    /// Lays out the present row; `level` is the outermost group that changes before it, `nextLevel` behind it
    /// (0 before the end). False when the listener stopped it.
    bool walkRow(int level, int nextLevel);
    /// What comes behind the last row, and the end of the last page. False when the listener stopped it.
    bool walkEnd();

    qint64 row() const { return m_place.row; }
    int page() const { return m_page; }

private:
    /// The sections of a row's share, in their order.
    struct Share {
        const SectionList* footers = nullptr;
        const SectionList* headers = nullptr;
        const SectionList* body = nullptr;
        int level = 0;
        bool isEnd = false;
        double tail = 0; ///< height of the footers that follow at once

        int headersFrom() const { return footers->size(); }
        int bodyFrom() const { return footers->size() + headers->size(); }
        int end() const { return bodyFrom() + body->size(); }
        int section(int step) const;
    };
    Share shareOf(int level, bool isEnd) const;
    bool walk(const Share& share);
    bool needsNewPage(const Share& share) const;
    bool beginsPage(const Share& share) const;
    double heightNeeded(const Share& share) const;
    int openGroups(const Share& share) const;
    bool breakPage(const Share& share);
    void startPage(const Share& share);
    void finishPage(const Share& share);
    void enterRow(const Share& share);
    void placeList(const SectionList& list, qint64 row, bool repeated = false);
    void place(int section, qint64 row, bool repeated = false);
    double height(int section) const { return m_definition.sections[section].height; }
    double bottom() const;
    double bodyHeight() const;

    const Definition& m_definition;
    const SectionPlan& m_plan;
    WalkListener& m_listener;
    Totals m_totals;
    FlowPlace m_place;
    int m_page = 0;
    double m_top = 0;
    bool m_fresh = true; ///< nothing on the page that another page would not have
    bool m_hasBody = false;
};

} // namespace quorvane::report
