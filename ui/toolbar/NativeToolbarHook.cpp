#include "ui/toolbar/NativeToolbarHook.h"
#include "ui/toolbar/NativeDescription.h"

namespace dalvora::toolbar {

std::unique_ptr<ToolbarHook> NativeToolbarHook::take(NativeWindows& windows, NativeHandle container,
                                                     bool forceTextRight, const ToolbarPainter& painter,
                                                     FailureReporter& reporter) {
    std::unique_ptr<NativeToolbarHook> hook(new NativeToolbarHook(windows, painter, reporter));
    if (!hook->find(container))
        return nullptr;
    // The style is changed first and stays so when the interception fails: the toolbar then paints itself
    // flat.
    hook->changeStyle(forceTextRight);
    if (!hook->intercept())
        return nullptr;
    return hook;
}

bool NativeToolbarHook::find(NativeHandle container) {
    m_toolbar = m_windows.findChild(container, toolbarClass);
    if (m_toolbar == 0) {
        m_toolbar = m_windows.findChild(container, oldToolbarClass);
        m_oldStyle = m_toolbar != 0;
    }
    return m_toolbar != 0;
}

void NativeToolbarHook::changeStyle(bool forceTextRight) {
    m_savedStyle = static_cast<quint32>(m_windows.send(m_toolbar, message::GetStyle, 0, 0));
    quint32 style = m_savedStyle | toolbarStyle::Flat;
    if (forceTextRight)
        style |= toolbarStyle::List;
    m_textOnRight = (style & toolbarStyle::List) != 0;
    m_windows.send(m_toolbar, message::SetStyle, 0, static_cast<qintptr>(style));
}

bool NativeToolbarHook::intercept() {
    const auto callback = [this](quint32 message, MessageTime, quintptr, qintptr) { return handle(message); };
    return m_subclass.subclass(m_toolbar, callback) &&
           m_subclass.addMessage(message::Paint, MessageTime::Before) &&
           m_subclass.addMessage(message::EraseBackground, MessageTime::Before) &&
           m_subclass.addMessage(message::Size, MessageTime::After);
}

std::optional<qintptr> NativeToolbarHook::handle(quint32 message) {
    if (!m_painter.canPaint())
        return std::nullopt;
    if (message == message::Paint) {
        paint();
        return 0;
    }
    if (message == message::Size) {
        // The background is stretched over the whole height, so every row of it looks different now; the
        // toolbar would have only the new part painted.
        m_windows.invalidate(m_toolbar);
        return std::nullopt;
    }
    // Not zero: the background counts as erased.
    return 1;
}

/// Works on copies: whoever answers the toolbar's questions may destroy it, or end this interception.
void NativeToolbarHook::paint() const {
    NativeWindows& windows = m_windows;
    windows.paint(m_toolbar, [&windows, painter = m_painter, toolbar = m_toolbar, right = m_textOnRight] {
        const auto bar = describeToolbar(windows, toolbar, right);
        if (!bar)
            return QImage();
        return painter.paint(*bar, NativeImages(windows, toolbar), QRect({}, bar->size));
    });
}

void NativeToolbarHook::restoreStyle() {
    if (m_windows.isWindow(m_toolbar))
        m_windows.send(m_toolbar, message::SetStyle, 0, static_cast<qintptr>(m_savedStyle));
}

void NativeToolbarHook::invalidate() {
    if (m_windows.isWindow(m_toolbar))
        m_windows.invalidate(m_toolbar);
}

} // namespace dalvora::toolbar
