#pragma once

#include "platform/reportengine/output/FieldText.h"
#include <memory>

class QPainter;

namespace quorvane::report {

/// Draws pages: the one place where screen, PDF and printer get their looks from. Keeps the fonts and what is
/// measured between pages, so one painter serves a whole output.
class PagePainter {
public:
    explicit PagePainter(const PageContext& context);
    ~PagePainter();

    /// The context may change between pages (the number of pages while a report is being laid out).
    void setContext(const PageContext& context);
    /// Draws the page; one unit of the painter is one point, the origin the page's upper left corner.
    void paint(QPainter& painter, const Page& page) const;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace quorvane::report
