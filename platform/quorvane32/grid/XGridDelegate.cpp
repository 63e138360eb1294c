#include "platform/quorvane32/grid/XGridDelegate.h"
#include "platform/quorvane32/grid/XGridState.h"
#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

namespace quorvane {

namespace {

constexpr int textMargin = 4;
constexpr int largestPicture = 16;
/// No cell shows more characters than this in its line, no tool tip more than that.
constexpr qsizetype longestLine = 512;
constexpr qsizetype longestTip = 2000;

QPalette::ColorGroup colorGroup(const QStyleOptionViewItem& option) {
    return option.state & QStyle::State_Enabled ? QPalette::Active : QPalette::Disabled;
}

Qt::Alignment placeOf(XGridPicture::Alignment alignment) {
    switch (alignment) {
    case XGridPicture::LeftCentre:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case XGridPicture::Centre:
        return Qt::AlignCenter;
    case XGridPicture::RightCentre:
        return Qt::AlignRight | Qt::AlignVCenter;
    default:
        return Qt::AlignLeft | Qt::AlignTop;
    }
}

void paintArrow(QPainter* painter, const QRect& button) {
    const qreal half = button.width() / 5.0;
    const QPointF middle = QRectF(button).center();
    QPainterPath arrow;
    arrow.moveTo(middle + QPointF(-half, -half / 2));
    arrow.lineTo(middle + QPointF(0, half / 2));
    arrow.lineTo(middle + QPointF(half, -half / 2));
    QPen pen = painter->pen();
    pen.setWidthF(1.5);
    painter->setPen(pen);
    painter->drawPath(arrow);
}

} // namespace

XGridDelegate::XGridDelegate(const XGridState& state, QObject* parent)
    : QStyledItemDelegate(parent), m_state(state) {}

bool XGridDelegate::isCurrent(const QModelIndex& index) const {
    return index.row() + 1 == m_state.row && index.column() == m_state.col;
}

bool XGridDelegate::hasLiveButton(const QModelIndex& index) const {
    if (!index.isValid())
        return false;
    const XGridColumn& column = m_state.column(index.column());
    if (column.hasButton())
        return true;
    return column.isList() && column.isEditable() && (isCurrent(index) || m_hovered == index);
}

QRect XGridDelegate::textRect(const QRect& cell, const QModelIndex& index) const {
    QRect room = cell.adjusted(textMargin, 0, -textMargin - 1, -1);
    if (hasLiveButton(index))
        room.setRight(cellButtonRect(cell).left() - 2);
    return room;
}

QColor XGridDelegate::background(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const bool fixed = m_state.isFixed(index.column());
    const bool highlighted = m_state.highLight == 1 || (m_state.highLight == 2 && m_focused);
    if (!fixed && highlighted && (option.state & QStyle::State_Selected || isCurrent(index)))
        return m_state.selectionColor;
    const auto own = m_state.cellBackColors.constFind({index.row() + 1, index.column()});
    if (own != m_state.cellBackColors.constEnd())
        return *own;
    return option.palette.color(colorGroup(option), fixed ? QPalette::Button : QPalette::Base);
}

void XGridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
    const QRect cell = option.rect;
    painter->fillRect(cell, background(option, index));
    painter->setPen(m_state.lineColor);
    painter->drawLine(cell.bottomLeft(), cell.bottomRight());
    painter->drawLine(cell.topRight(), cell.bottomRight());
    paintPicture(painter, option, index);
    paintText(painter, option, index);
    if (hasLiveButton(index))
        paintButton(painter, option, index);
    if (m_state.focusRect != 0 && m_focused && isCurrent(index)) {
        painter->setPen(option.palette.color(QPalette::Highlight));
        painter->drawRect(cell.adjusted(0, 0, -2, -2));
    }
}

void XGridDelegate::paintPicture(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    const XGridPicture picture = m_state.picture(index.row() + 1, index.column());
    if (picture.icon.isNull())
        return;
    const QRect room = option.rect.adjusted(1, 1, -2, -2);
    const int side = qMin(largestPicture, qMin(room.width(), room.height()));
    const QRect place =
        QStyle::alignedRect(Qt::LeftToRight, placeOf(picture.alignment), QSize(side, side), room);
    const bool enabled = option.state & QStyle::State_Enabled;
    picture.icon.paint(painter, place, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
}

void XGridDelegate::paintText(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    const QString text = singleLine(index.data().toString(), longestLine);
    if (text.isEmpty())
        return;
    const QRect room = textRect(option.rect, index);
    const XGridColumn& column = m_state.column(index.column());
    painter->setFont(option.font);
    painter->setPen(option.palette.color(colorGroup(option), QPalette::Text));
    painter->drawText(room, static_cast<int>(column.textAlignment()) | Qt::TextSingleLine,
                      option.fontMetrics.elidedText(text, Qt::ElideRight, room.width()));
}

void XGridDelegate::paintButton(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    const XGridColumn& column = m_state.column(index.column());
    const QRect button = cellButtonRect(option.rect);
    const bool live = index.row() + 1 == m_state.row || m_hovered.row() == index.row();
    const QPalette& palette = option.palette;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    QColor ink = palette.color(colorGroup(option), QPalette::ButtonText);
    if (live) {
        const QColor face = palette.color(QPalette::Button);
        painter->setBrush(m_pressed == index   ? face.darker(115)
                          : m_hovered == index ? face.lighter(106)
                                               : face);
        painter->setPen(palette.color(QPalette::Mid));
        painter->drawRoundedRect(QRectF(button).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    } else {
        ink.setAlphaF(0.4F);
    }
    painter->setPen(ink);
    painter->setBrush(Qt::NoBrush);
    painter->setFont(option.font);
    if (column.hasButton())
        painter->drawText(button, Qt::AlignCenter, column.buttonText());
    else
        paintArrow(painter, button);
    painter->restore();
}

QSize XGridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QString text = singleLine(index.data().toString(), longestLine);
    const int beside = hasLiveButton(index) ? option.fontMetrics.height() + textMargin : 0;
    return {option.fontMetrics.horizontalAdvance(text) + 2 * textMargin + 2 + beside,
            option.fontMetrics.height()};
}

bool XGridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                              const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QString tip;
    const QString text = index.data().toString();
    if (hasLiveButton(index) && cellButtonRect(option.rect).contains(event->pos()))
        tip = m_state.column(index.column()).hasButton() ? tr("Buscar (F8)")
                                                         : tr("Abrir la lista (Alt+Flecha abajo)");
    else if (view->fontMetrics().horizontalAdvance(singleLine(text, longestLine)) >
             textRect(option.rect, index).width())
        tip = text.left(longestTip).replace(QChar(u'\0'), u' ').toHtmlEscaped();
    QToolTip::showText(event->globalPos(), tip, view->viewport(), option.rect);
    return true;
}

} // namespace quorvane
