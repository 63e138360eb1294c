#pragma once

#include "platform/reportengine/viewer/LineField.h"
#include "platform/reportengine/viewer/Selection.h"
#include <QBasicTimer>
#include <QObject>
#include <QPoint>
#include <optional>

class QMouseEvent;

namespace quorvane::report {

class PageView;

/// What the mouse does on pages: marks texts by dragging, clicks lines, shows which line it would click.
class PageMouse : public QObject {
    Q_OBJECT
public:
    explicit PageMouse(PageView& view);

    void setLinesClickable(bool clickable, const QString& toolTip);
    bool linesClickable() const { return m_clickable; }
    const QString& toolTip() const { return m_toolTip; }
    Selection& selection() { return m_selection; }
    const Selection& selection() const { return m_selection; }

    /// The detail line under the pointer, when lines can be clicked.
    const std::optional<PageArea>& hovered() const { return m_hovered; }
    /// The pages moved under the pointer.
    void pagesMoved();
    void leave();

    void press(QMouseEvent& event);
    void move(QMouseEvent& event);
    void release(QMouseEvent& event);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Line {
        PageArea area;
        int band = 0;
    };
    std::optional<Line> lineAt(const QPoint& point) const;
    std::vector<LineField> fieldsOf(const Line& line) const;
    void hover(const QPoint& point);
    void drag(const QPoint& point);
    void pan(const QPoint& point);

    PageView& m_view;
    Selection m_selection;
    bool m_clickable = false;
    QString m_toolTip;
    std::optional<PageArea> m_hovered;
    QPoint m_pressed;
    QPoint m_last;
    bool m_dragging = false;
    bool m_panning = false;
    QBasicTimer m_scrolling; ///< while a drag is held outside
};

} // namespace quorvane::report
