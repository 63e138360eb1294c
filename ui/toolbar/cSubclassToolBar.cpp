#include "ui/toolbar/cSubclassToolBar.h"
#include "ui/toolbar/NativeToolbarHook.h"
#include "ui/toolbar/QToolBarHook.h"

namespace dalvora::toolbar {

cSubclassToolBar::cSubclassToolBar(FailureReporter& reporter) : m_reporter(reporter) {}

cSubclassToolBar::~cSubclassToolBar() {
    UnSubClassToolBar();
}

bool cSubclassToolBar::SubClassToolBar(QWidget* hwnd, bool ForceTextAlignRight) {
    UnSubClassToolBar();
    m_hook = QToolBarHook::take(hwnd, ForceTextAlignRight, m_painter, m_reporter);
    return m_hook != nullptr;
}

bool cSubclassToolBar::SubClassToolBar(NativeWindows& system, NativeHandle hwnd, bool ForceTextAlignRight) {
    UnSubClassToolBar();
    m_hook = NativeToolbarHook::take(system, hwnd, ForceTextAlignRight, m_painter, m_reporter);
    return m_hook != nullptr;
}

void cSubclassToolBar::UnSubClassToolBar(bool Restore) {
    if (m_hook && Restore)
        m_hook->restoreStyle();
    m_hook.reset();
}

void cSubclassToolBar::SetSkinPicture(const QImage& Pic) {
    m_painter = ToolbarPainter(ToolbarSkin(Pic));
    if (m_hook)
        m_hook->invalidate();
}

} // namespace dalvora::toolbar
