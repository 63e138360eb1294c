#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

namespace quorvane {

struct XGridState;

/// Paints the cells: tints, lines, a picture, one line of text with the column's alignment, and the small
/// button or the list arrow. A text that does not fit ends in "…" and shows whole in its tool tip.
class XGridDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    XGridDelegate(const XGridState& state, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    /// The cell under the pointer, and the one whose button is held down.
    void setHovered(const QModelIndex& index) { m_hovered = index; }
    void setPressed(const QModelIndex& index) { m_pressed = index; }
    /// Whether the grid has the focus, also through its editor.
    void setGridFocused(bool focused) { m_focused = focused; }
    bool isGridFocused() const { return m_focused; }

    /// True when the cell shows a button or a list arrow that can be clicked now.
    bool hasLiveButton(const QModelIndex& index) const;

private:
    QRect textRect(const QRect& cell, const QModelIndex& index) const;
    QColor background(const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintPicture(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintButton(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    bool isCurrent(const QModelIndex& index) const;

    const XGridState& m_state;
    QPersistentModelIndex m_hovered;
    QPersistentModelIndex m_pressed;
    bool m_focused = false;
};

} // namespace quorvane
