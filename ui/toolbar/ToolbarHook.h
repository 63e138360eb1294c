#pragma once

namespace dalvora::toolbar {

/// A toolbar whose painting is taken over; ends with the object.
class ToolbarHook {
public:
    virtual ~ToolbarHook() = default;
    /// Puts back the style that the toolbar had before.
    virtual void restoreStyle() = 0;
    /// Has the toolbar painted again.
    virtual void invalidate() = 0;
};

} // namespace dalvora::toolbar
