#pragma once

#include "ui/toolbar/ToolbarHook.h"
#include "ui/toolbar/ToolbarPainter.h"
#include "ui/toolbar/WindowSubclass.h"

namespace dalvora::toolbar {

/// Takes over the painting of a native toolbar by its window procedure.
class NativeToolbarHook final : public ToolbarHook {
public:
    /// Null when the container has no toolbar or the interception failed. The painter is read at each
    /// repaint.
    static std::unique_ptr<ToolbarHook> take(NativeWindows& windows, NativeHandle container,
                                             bool forceTextRight, const ToolbarPainter& painter,
                                             FailureReporter& reporter);

    void restoreStyle() override;
    void invalidate() override;

    /// True when the toolbar is one of the old class.
    bool isOldStyle() const { return m_oldStyle; }

private:
    NativeToolbarHook(NativeWindows& windows, const ToolbarPainter& painter, FailureReporter& reporter)
        : m_windows(windows), m_painter(painter), m_subclass(windows, reporter) {}

    bool find(NativeHandle container);
    void changeStyle(bool forceTextRight);
    bool intercept();
    std::optional<qintptr> handle(quint32 message);
    void paint() const;

    NativeWindows& m_windows;
    const ToolbarPainter& m_painter;
    WindowSubclass m_subclass;
    NativeHandle m_toolbar = 0;
    bool m_oldStyle = false;
    bool m_textOnRight = false;
    quint32 m_savedStyle = 0;
};

} // namespace dalvora::toolbar
