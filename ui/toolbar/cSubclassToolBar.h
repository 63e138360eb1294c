#pragma once

#include "ui/toolbar/NativeWindows.h"
#include "ui/toolbar/ToolbarPainter.h"
#include <memory>

class QWidget;

namespace dalvora::toolbar {

class FailureReporter;
class ToolbarHook;

/// Gives the toolbar of a form the look of a skin bitmap. A form creates one, hands it the skin picture and
/// the window that contains the toolbar. Until both are there, and whenever something is wrong with them, the
/// toolbar paints itself. May go before the toolbar or after it.
class cSubclassToolBar {
public:
    /// The reporter must outlive this object.
    explicit cSubclassToolBar(FailureReporter& reporter);
    ~cSubclassToolBar();
    Q_DISABLE_COPY_MOVE(cSubclassToolBar)

    /// Takes over the painting of the first toolbar in a container. Captions stand right of the images when
    /// that is forced or is the toolbar's own style. False when there is no toolbar, or a failure was
    /// reported.
    bool SubClassToolBar(QWidget* hwnd, bool ForceTextAlignRight = false);
    /// The same for a native window; the window system must outlive this object.
    bool SubClassToolBar(NativeWindows& system, NativeHandle hwnd, bool ForceTextAlignRight = false);

    /// Gives the painting back and, when asked to, the style that the toolbar had before.
    void UnSubClassToolBar(bool Restore = false);

    /// Loads the skin bitmap. One too small for its layout is no skin: the toolbar paints itself.
    void SetSkinPicture(const QImage& Pic);

private:
    FailureReporter& m_reporter;
    /// Shared with the hook, which takes a copy for each repaint.
    ToolbarPainter m_painter;
    std::unique_ptr<ToolbarHook> m_hook;
};

} // namespace dalvora::toolbar
