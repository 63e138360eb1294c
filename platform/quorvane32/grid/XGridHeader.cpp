#include "platform/quorvane32/grid/XGridHeader.h"
#include "platform/quorvane32/grid/XGridState.h"
#include <QPaintEvent>
#include <QPainter>

namespace quorvane {

namespace {

// The captions stand over the texts of the cells.
constexpr int leftMargin = 4;
constexpr int rightMargin = 5;
constexpr int verticalMargin = 4;
constexpr int tallest = 10000;

int heightOf(const QFontMetrics& metrics, const QString& caption, int width) {
    return metrics.boundingRect(QRect(0, 0, width, tallest), Qt::TextWordWrap, caption).height();
}

/// The smallest width that needs no more lines than the given one, so that no last line holds a mere "a:".
int balancedWidth(const QFontMetrics& metrics, const QString& caption, int width) {
    const int height = heightOf(metrics, caption, width);
    if (height <= metrics.height())
        return width;
    int tooNarrow = 0;
    int enough = width;
    while (enough - tooNarrow > 1) {
        const int middle = (tooNarrow + enough) / 2;
        const QRect needed = metrics.boundingRect(QRect(0, 0, middle, tallest), Qt::TextWordWrap, caption);
        (needed.height() <= height && needed.width() <= middle ? enough : tooNarrow) = middle;
    }
    return enough;
}

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
        const int room = sectionSize(c) - leftMargin - rightMargin;
        height = qMax(height, heightOf(metrics, m_state.column(c).caption(), room));
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
    return {fontMetrics().horizontalAdvance(caption) + leftMargin + rightMargin, fontMetrics().height()};
}

QColor XGridHeader::background(int section) const {
    return m_state.cellBackColors.value({0, section}, palette().color(QPalette::Button));
}

void XGridHeader::paintEvent(QPaintEvent* event) {
    QHeaderView::paintEvent(event);
    // The band goes on beyond the last column, so that the caption row ends where the grid ends.
    const QRect beyond(length() - offset(), 0, viewport()->width(), viewport()->height());
    QPainter painter(viewport());
    painter.fillRect(beyond, background(m_state.cols() - 1));
    painter.setPen(m_state.lineColor);
    painter.drawLine(beyond.bottomLeft(), beyond.bottomRight());
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
    QRect room = rect.adjusted(leftMargin, 0, -rightMargin, -1);
    const int width = balancedWidth(fontMetrics(), column.caption(), room.width());
    if (column.textAlignment() & Qt::AlignRight)
        room.setLeft(room.right() - width + 1);
    else
        room.setWidth(width);
    painter->drawText(room, static_cast<int>(column.textAlignment()) | Qt::TextWordWrap, column.caption());
}

} // namespace quorvane
