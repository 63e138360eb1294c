#pragma once

#include "ui/toolbar/ToolbarPainter.h"
#include <QIcon>
#include <QWidget>

namespace dalvora::toolbar {

struct BoardRow;
struct BoardColumn;

/// A table of buttons, every state in a row of its own and every style in a column, drawn once from the skin
/// and once by the toolkit. The states are described, not played, so all of them are seen at once.
class StateBoard final : public QWidget {
public:
    StateBoard(ToolbarPainter painter, QIcon icon, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintBlock(QPainter& painter, int left, const QString& title, bool skinned) const;
    void paintSkinned(QPainter& painter, const QRect& cell, const BoardRow& row,
                      const BoardColumn& column) const;
    void paintPlain(QPainter& painter, const QRect& cell, const BoardRow& row,
                    const BoardColumn& column) const;

    ToolbarPainter m_painter;
    QIcon m_icon;
};

} // namespace dalvora::toolbar
