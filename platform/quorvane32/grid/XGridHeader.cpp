#include "platform/quorvane32/grid/XGridHeader.h"
#include "platform/quorvane32/grid/XGridState.h"
#include <QPaintEvent>
#include <QPainter>

namespace quorvane {

namespace {

constexpr int horizontalMargin = 5;
constexpr int verticalMargin = 4;
constexpr int tallest = 10000;

} // namespace

XGridHeader::XGridHeader(const XGridState& state, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), m_state(state) {
    setSectionsClickable(false);
    setHighlightSections(false);
    setSectionResizeMode(QHeaderView::Interactive);
    // Measuring a column to its contents looks at the rows in sight only.
    setResizeContentsPrecision(0);
    setFocusPolicy(Qt::NoFocus);
}

QSize XGridHeader::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    int height = metrics.height();
    for (int c = 0; c < qMin(count(), m_state.cols()); ++c) {
        if (isSectionHidden(c))
            continue;
        const QRect room(0, 0, sectionSize(c) - 2 * horizontalMargin, tallest);
        height =
            qMax(height, metrics.boundingRect(room, Qt::TextWordWrap, m_state.column(c).caption()).height());
    }
    return {QHeaderView::sizeHint().width(), height + 2 * verticalMargin + 1};
}

void XGridHeader::captionsChanged() {
    updateGeometry();
    Q_EMIT geometriesChanged();
    viewport()->update();
}

QSize XGridHeader::sectionSizeFromContents(int section) const {
    const QString caption = section < m_state.cols() ? m_state.column(section).caption() : QString();
    return {fontMetrics().horizontalAdvance(caption) + 2 * horizontalMargin, fontMetrics().height()};
}

QColor XGridHeader::background(int section) const {
    return m_state.cellBackColors.value({0, section}, palette().color(QPalette::Button));
}

void XGridHeader::paintEvent(QPaintEvent* event) {
    // The band goes on beyond the last column, so that the caption row ends where the grid ends.
    QPainter painter(viewport());
    painter.fillRect(event->rect(), background(m_state.cols() - 1));
    painter.setPen(m_state.lineColor);
    painter.drawLine(0, height() - 1, width(), height() - 1);
    painter.end();
    QHeaderView::paintEvent(event);
}

void XGridHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    if (!rect.isValid() || section >= m_state.cols())
        return;
    const XGridColumn& column = m_state.column(section);
    painter->fillRect(rect, background(section));
    painter->setPen(m_state.lineColor);
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    painter->drawLine(rect.topRight(), rect.bottomRight());
    painter->setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    const QRect room = rect.adjusted(horizontalMargin, 0, -horizontalMargin, -1);
    painter->drawText(room, static_cast<int>(column.textAlignment()) | Qt::TextWordWrap, column.caption());
}

} // namespace quorvane
