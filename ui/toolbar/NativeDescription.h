#pragma once

#include "ui/toolbar/NativeWindows.h"

namespace dalvora::toolbar {

/// Describes a native toolbar as it is now. None when the window is gone before everything is read.
std::optional<ToolbarDescription> describeToolbar(NativeWindows& windows, NativeHandle toolbar,
                                                  bool textOnRight);

/// The image lists of a native toolbar.
class NativeImages final : public ToolbarImages {
public:
    NativeImages(NativeWindows& windows, NativeHandle toolbar);
    QPixmap image(ImageListKind list, int index) const override;

private:
    NativeWindows& m_windows;
    NativeHandle m_normal;
    NativeHandle m_hot;
    NativeHandle m_disabled;
};

} // namespace dalvora::toolbar
