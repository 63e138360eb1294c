#include "ui/toolbar/NativeDescription.h"

namespace dalvora::toolbar {

namespace {

/// Bits of a style byte that say what a button is; the others concern its width and its caption.
constexpr quint8 kindBits = 0x0F;

NativeHandle ask(NativeWindows& windows, NativeHandle toolbar, quint32 message) {
    return static_cast<NativeHandle>(windows.send(toolbar, message, 0, 0));
}

} // namespace

std::optional<ToolbarDescription> describeToolbar(NativeWindows& windows, NativeHandle toolbar,
                                                  bool textOnRight) {
    ToolbarDescription bar;
    if (const NativeHandle images = ask(windows, toolbar, message::GetImageList))
        bar.iconSize = windows.iconSize(images);
    bar.size = windows.windowSize(toolbar);
    bar.font = windows.font(ask(windows, toolbar, message::GetFont));
    bar.textOnRight = textOnRight;
    bar.cursor = windows.cursorIn(toolbar);
    bar.menuOpen = windows.isMenuVisible();
    const auto count = static_cast<int>(windows.send(toolbar, message::ButtonCount, 0, 0));
    for (int i = 0; i < count && windows.isWindow(toolbar); ++i)
        bar.buttons.emplace_back(windows.button(toolbar, i)).style &= kindBits;
    if (!windows.isWindow(toolbar))
        return std::nullopt;
    return bar;
}

NativeImages::NativeImages(NativeWindows& windows, NativeHandle toolbar)
    : m_windows(windows)
    , m_normal(ask(windows, toolbar, message::GetImageList))
    , m_hot(ask(windows, toolbar, message::GetHotImageList))
    , m_disabled(ask(windows, toolbar, message::GetDisabledImageList)) {}

QPixmap NativeImages::image(ImageListKind list, int index) const {
    const NativeHandle handle = list == ImageListKind::Normal ? m_normal
                                : list == ImageListKind::Hot  ? m_hot
                                                              : m_disabled;
    return handle == 0 ? QPixmap() : m_windows.image(handle, index);
}

} // namespace dalvora::toolbar
