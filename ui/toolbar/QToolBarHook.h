#pragma once

#include "ui/toolbar/ToolbarHook.h"
#include "ui/toolbar/ToolbarPainter.h"
#include <QImage>
#include <QObject>
#include <QPointer>
#include <memory>

class QPaintEvent;
class QToolBar;

namespace dalvora::toolbar {

class FailureReporter;

/// Takes over the painting of one of the toolkit's toolbars: an event filter on the toolbar, which is painted
/// whole, and on its buttons, which then have nothing left to paint.
class QToolBarHook final : public QObject, public ToolbarHook {
    Q_OBJECT
public:
    /// Null when the container has no toolbar or its toolbar is taken already. The painter is read at each
    /// repaint.
    static std::unique_ptr<ToolbarHook> take(QWidget* container, bool forceTextRight,
                                             const ToolbarPainter& painter, FailureReporter& reporter);
    ~QToolBarHook() override;
    Q_DISABLE_COPY_MOVE(QToolBarHook)

    void restoreStyle() override;
    void invalidate() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QToolBarHook(QToolBar& toolbar, bool forceTextRight, const ToolbarPainter& painter);

    void watchChild(QObject* child);
    bool filterChild(QObject* child, QEvent* event);
    bool isPaintedHere(const QWidget& child) const;
    void paint(const QPaintEvent& event);

    const ToolbarPainter& m_painter;
    /// The toolbar by its address only: it still sends events when it is no longer a toolbar but the rest of
    /// one that is being destroyed.
    const QObject* m_watched;
    QPointer<QToolBar> m_toolbar;
    Qt::ToolButtonStyle m_savedStyle;
    bool m_textOnRight;
    /// Of the last repaint, for the next one.
    QImage m_picture;
};

} // namespace dalvora::toolbar
