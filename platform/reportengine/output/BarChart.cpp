#include "platform/reportengine/output/BarChart.h"
#include "platform/reportengine/layout/Layout.h"
#include "platform/reportengine/output/FontFaces.h"
#include <algorithm>
#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace quorvane::report {

namespace {

constexpr QColor barColour(0x3f, 0x5f, 0x8a);
constexpr QColor negativeColour(0xb3, 0x26, 0x1e);
constexpr QColor gridColour(0xe1, 0xe5, 0xeb);
constexpr QColor axisColour(0x8a, 0x94, 0xa3);
constexpr QColor labelColour(0x33, 0x3d, 0x4b);
constexpr QColor quietColour(0x5f, 0x6b, 0x7a);

constexpr double labelSize = 8;
constexpr double titleSize = 9.5;
constexpr double gap = 5;             ///< points between a name, its bar and its value
constexpr double narrowestPitch = 11; ///< a bar with its name takes at least this height
constexpr double widestPitch = 20;    ///< and at most this, so that two bars do not become two blocks
constexpr double barPart = 0.62;      ///< of the pitch
constexpr double longestName = 0.32;  ///< of the chart's width
constexpr int wantedMarks = 5;
/// From here values are told in millions: eight digits on an axis are not read, they are counted.
constexpr double millionsFrom = 1e7;

Style labelStyle(const Style& style) {
    Style label = style;
    label.size = labelSize;
    label.bold = false;
    label.italic = false;
    return label;
}

} // namespace

/// Where everything lies, once names and values are measured.
struct BarChart::Frame {
    FontFace labels;
    QRectF plot; ///< from the lowest to the highest mark, without names and values
    double low = 0;
    double high = 0;
    double mark = 1;
    double pitch = widestPitch;
    double nameRight = 0;
    double nameRoom = 0;

    double x(double value) const { return plot.left() + (value - low) / (high - low) * plot.width(); }
};

int chartTotal(const Definition& definition, int column) {
    std::vector<int> columns;
    for (const Section& section : definition.sections)
        for (const ReportObject& object : section.objects)
            if (object.kind == ObjectKind::Chart &&
                std::find(columns.begin(), columns.end(), object.chart.column) == columns.end())
                columns.push_back(object.chart.column);
    const auto found = std::find(columns.begin(), columns.end(), column);
    return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

double markDistance(double span, int marks) {
    if (!(span > 0) || !std::isfinite(span))
        return 1;
    const double wanted = span / marks;
    const double power = std::pow(10, std::floor(std::log10(wanted)));
    for (const double step : {1.0, 2.0, 5.0})
        if (wanted <= step * power)
            return step * power;
    return 10 * power;
}

std::vector<Bar> largestBars(std::vector<Bar> bars, int room) {
    if (static_cast<int>(bars.size()) <= room || room < 2)
        return bars;
    std::vector<size_t> order(bars.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](size_t left, size_t right) {
        return std::abs(bars[left].value) > std::abs(bars[right].value);
    });
    const size_t kept = room - 1;
    Bar rest{u"Otros (%1)"_s.arg(bars.size() - kept), 0};
    for (size_t i = kept; i < order.size(); ++i)
        rest.value += bars[order[i]].value;
    order.resize(kept);
    std::sort(order.begin(), order.end());
    std::vector<Bar> largest;
    largest.reserve(room);
    for (const size_t position : order)
        largest.push_back(std::move(bars[position]));
    largest.push_back(std::move(rest));
    return largest;
}

BarChart::BarChart(const PageContext& context, const Chart& chart, const Style& style)
    : m_context(context), m_chart(chart), m_style(style) {
    collect();
}

void BarChart::collect() {
    const int total = chartTotal(*m_context.definition, m_chart.column);
    if (!m_context.groups || total < 0)
        return;
    for (const GroupEntry& entry : *m_context.groups)
        if (entry.level == m_chart.group && static_cast<size_t>(total) < entry.totals.size() &&
            std::isfinite(entry.totals[total]))
            m_bars.push_back({entry.name, entry.totals[total]});
}

QString BarChart::valueText(double value, int decimals) const {
    return m_context.regional.groupedText(value / m_unit, decimals);
}

void BarChart::drawTitle(QPainter& painter, QRectF& rect) const {
    Style style = m_style;
    style.size = titleSize;
    style.bold = true;
    const FontFace face(style, painter.device());
    QString title = m_chart.title;
    if (m_unit != 1)
        title += title.isEmpty() ? u"Millones"_s : u", en millones"_s;
    if (title.isEmpty())
        return;
    painter.setFont(face.font());
    painter.setPen(m_style.colour);
    painter.drawText(QPointF(rect.left(), rect.top() + face.ascent()), face.elided(title, rect.width()));
    rect.setTop(rect.top() + face.ascent() + face.descent() + gap);
}

void BarChart::drawNote(QPainter& painter, const QRectF& rect, const QString& note) const {
    const FontFace face(labelStyle(m_style), painter.device());
    painter.setFont(face.font());
    painter.setPen(quietColour);
    painter.drawText(QPointF(rect.left(), rect.top() + face.ascent()), face.elided(note, rect.width()));
}

/// Chooses the axis' marks, fewer where their figures would touch, and leaves room beside them for the values
/// and for the outer halves of the first and the last mark's figures.
void BarChart::placeMarks(Frame& frame, double negativeRoom, double positiveRoom) const {
    const QRectF whole = frame.plot;
    const double lowest = frame.low;
    const double highest = frame.high;
    for (int wanted = wantedMarks; wanted > 0; --wanted) {
        frame.mark = markDistance(highest - lowest, wanted);
        frame.low = std::floor(lowest / frame.mark) * frame.mark;
        frame.high = std::max(std::ceil(highest / frame.mark) * frame.mark, frame.low + frame.mark);
        const double low = frame.labels.width(markText(frame, frame.low));
        const double high = frame.labels.width(markText(frame, frame.high));
        // The first one may stand under the names.
        const double left = std::max(negativeRoom, low / 2 - frame.nameRoom);
        frame.plot = whole.adjusted(left, 0, -std::max(positiveRoom, high / 2 + 1), 0);
        if (frame.x(frame.mark) - frame.x(0) >= std::max(low, high) + gap)
            return;
    }
}

QString BarChart::markText(const Frame& frame, double value) const {
    const double step = frame.mark / m_unit;
    return valueText(value, step >= 1 ? 0 : static_cast<int>(std::ceil(-std::log10(step))));
}

BarChart::Frame BarChart::measured(QPainter& painter, const QRectF& rect) const {
    Frame frame{FontFace(labelStyle(m_style), painter.device()), rect};
    double widestName = 0;
    double positiveRoom = 0;
    double negativeRoom = 0;
    for (const Bar& bar : m_bars) {
        widestName = std::max(widestName, frame.labels.width(bar.name));
        double& room = bar.value < 0 ? negativeRoom : positiveRoom;
        room = std::max(room, frame.labels.width(valueText(bar.value, m_decimals)) + gap);
        frame.low = std::min(frame.low, bar.value);
        frame.high = std::max(frame.high, bar.value);
    }
    frame.nameRoom = std::min(widestName, rect.width() * longestName);
    frame.nameRight = rect.left() + frame.nameRoom;
    frame.plot.setLeft(frame.nameRight + gap);
    placeMarks(frame, negativeRoom, positiveRoom);
    const double axisHeight = frame.labels.ascent() + frame.labels.descent() + 2;
    frame.pitch = std::min(widestPitch, (rect.height() - axisHeight) / static_cast<double>(m_bars.size()));
    frame.plot.setHeight(frame.pitch * static_cast<double>(m_bars.size()));
    return frame;
}

void BarChart::drawGrid(QPainter& painter, const Frame& frame) const {
    painter.setFont(frame.labels.font());
    const int marks = static_cast<int>(std::lround((frame.high - frame.low) / frame.mark));
    for (int i = 0; i <= marks; ++i) {
        const double value = frame.low + i * frame.mark;
        const bool zero = std::abs(value) < frame.mark / 2;
        const double x = frame.x(zero ? 0 : value);
        painter.setPen(QPen(zero ? axisColour : gridColour, zero ? 0.8 : 0.5));
        painter.drawLine(QPointF(x, frame.plot.top()), QPointF(x, frame.plot.bottom()));
        const QString text = markText(frame, zero ? 0 : value);
        painter.setPen(quietColour);
        painter.drawText(
            QPointF(x - frame.labels.width(text) / 2, frame.plot.bottom() + 2 + frame.labels.ascent()), text);
    }
}

void BarChart::drawBar(QPainter& painter, const Frame& frame, int position) const {
    const Bar& bar = m_bars[position];
    const double middle = frame.plot.top() + (position + 0.5) * frame.pitch;
    const double thickness = frame.pitch * barPart;
    const double zero = frame.x(0);
    const double end = frame.x(bar.value);
    painter.fillRect(QRectF(std::min(zero, end), middle - thickness / 2, std::abs(end - zero), thickness),
                     bar.value < 0 ? negativeColour : barColour);

    const double base = middle + (frame.labels.ascent() - frame.labels.descent()) / 2;
    const QString name = frame.labels.elided(bar.name, frame.nameRoom);
    painter.setPen(labelColour);
    painter.drawText(QPointF(frame.nameRight - frame.labels.width(name), base), name);
    const QString value = valueText(bar.value, m_decimals);
    if (bar.value < 0)
        painter.setPen(negativeColour);
    painter.drawText(QPointF(bar.value < 0 ? end - gap - frame.labels.width(value) : end + gap, base), value);
}

void BarChart::draw(QPainter& painter, const QRectF& rect) {
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    double largest = 0;
    bool whole = true;
    for (const Bar& bar : m_bars) {
        largest = std::max(largest, std::abs(bar.value));
        whole = whole && bar.value == std::floor(bar.value);
    }
    m_unit = largest >= millionsFrom ? 1e6 : 1;
    m_decimals = m_unit != 1 ? 1 : whole || largest >= 1000 ? 0 : 2;
    QRectF room = rect;
    drawTitle(painter, room);
    if (m_context.pageCount == 0) {
        drawNote(painter, room, u"El gráfico se dibuja cuando el informe está completo."_s);
    } else if (m_bars.empty()) {
        drawNote(painter, room, u"Sin datos."_s);
    } else if (const int fitting = static_cast<int>(room.height() / narrowestPitch) - 1; fitting < 2) {
        drawNote(painter, room, u"El gráfico no cabe en su lugar."_s);
    } else {
        m_bars = largestBars(std::move(m_bars), fitting);
        const Frame frame = measured(painter, room);
        drawGrid(painter, frame);
        for (int position = 0; position < static_cast<int>(m_bars.size()); ++position)
            drawBar(painter, frame, position);
    }
    painter.restore();
}

} // namespace quorvane::report
