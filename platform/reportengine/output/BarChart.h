#pragma once

#include "platform/reportengine/output/FieldText.h"
#include <QPainter>
#include <vector>

namespace quorvane::report {

/// One bar of a chart.
struct Bar {
    QString name;
    double value = 0;
};

/// A total by group as horizontal bars: names on the left, since they are people's and long, values at the
/// bars' ends, a quiet grid, negative bars to the left of zero in red. When there are more groups than the
/// height has room for, the largest keep their order and the others become one bar.
class BarChart {
public:
    BarChart(const PageContext& context, const Chart& chart, const Style& style);

    const std::vector<Bar>& bars() const { return m_bars; }
    void draw(QPainter& painter, const QRectF& rect);

private:
    struct Frame;
    void collect();
    QString valueText(double value, int decimals) const;
    void drawTitle(QPainter& painter, QRectF& rect) const;
    void drawNote(QPainter& painter, const QRectF& rect, const QString& note) const;
    void placeMarks(Frame& frame, double negativeRoom, double positiveRoom) const;
    QString markText(const Frame& frame, double value) const;
    Frame measured(QPainter& painter, const QRectF& rect) const;
    void drawGrid(QPainter& painter, const Frame& frame) const;
    void drawBar(QPainter& painter, const Frame& frame, int position) const;

    const PageContext& m_context;
    const Chart& m_chart;
    Style m_style;
    std::vector<Bar> m_bars;
    double m_unit = 1;
    int m_decimals = 0;
};

/// The bars that fit: all of them, or the largest in their order with the rest summed up behind.
std::vector<Bar> largestBars(std::vector<Bar> bars, int room);

/// The distance between an axis' marks: 1, 2 or 5 times a power of ten, about the given number over the span.
double markDistance(double span, int marks);

/// The position of a column's sum in GroupEntry::totals: charts count their columns in the order in which the
/// definition first names them. -1 for a column that no chart sums.
int chartTotal(const Definition& definition, int column);

} // namespace quorvane::report
