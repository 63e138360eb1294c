#pragma once

#include "ui/toolbar/ToolbarDescription.h"
#include <QImage>
#include <functional>
#include <optional>

namespace dalvora::toolbar {

/// Handle of a native window or image list; 0 is none.
using NativeHandle = quintptr;

/// Messages of native windows and toolbars, by their numbers.
namespace message {
inline constexpr quint32 Size = 5;
inline constexpr quint32 Paint = 15;
inline constexpr quint32 EraseBackground = 20;
inline constexpr quint32 GetFont = 49;
inline constexpr quint32 WindowDestroyed = 0x82; ///< the last one that a window receives
inline constexpr quint32 ButtonCount = 0x418;
inline constexpr quint32 GetItemRect = 0x41D;
inline constexpr quint32 GetImageList = 0x431;
inline constexpr quint32 GetHotImageList = 0x435;
inline constexpr quint32 GetDisabledImageList = 0x437;
inline constexpr quint32 SetStyle = 0x438;
inline constexpr quint32 GetStyle = 0x439;
inline constexpr quint32 GetButtonInfo = 0x441;
} // namespace message

/// Style bits of native toolbars.
namespace toolbarStyle {
inline constexpr quint32 Flat = 0x800;
inline constexpr quint32 List = 0x1000; ///< captions right of the images
} // namespace toolbarStyle

inline constexpr QStringView toolbarClass = u"ToolbarWindow32";
inline constexpr QStringView oldToolbarClass = u"msvb_lib_toolbar";
inline constexpr QStringView menuClass = u"#32768";

/// Receives the messages of a window that is intercepted.
class WindowProcedure {
public:
    virtual ~WindowProcedure() = default;
    virtual qintptr receive(quint32 message, quintptr wParam, qintptr lParam) = 0;
};

/// What interception and painting ask of the window system, in the smallest steps: what is done with the
/// answers is the same code in the program and in tests, where no such windows exist.
class NativeWindows {
public:
    virtual ~NativeWindows() = default;

    /// First child window of a class; 0 without one.
    virtual NativeHandle findChild(NativeHandle parent, QStringView className) const = 0;
    virtual bool isWindow(NativeHandle window) const = 0;
    virtual bool belongsToThisProcess(NativeHandle window) const = 0;
    virtual bool isIntercepted(NativeHandle window) const = 0;

    /// Sends the window's messages to a procedure from now on; an error number of the system when it refuses.
    virtual std::optional<quint32> intercept(NativeHandle window, WindowProcedure& procedure) = 0;
    /// Gives the messages back to the previous procedure.
    virtual void release(NativeHandle window) = 0;
    virtual qintptr callPrevious(NativeHandle window, quint32 message, quintptr wParam, qintptr lParam) = 0;

    virtual qintptr send(NativeHandle window, quint32 message, quintptr wParam, qintptr lParam) = 0;
    virtual void invalidate(NativeHandle window) = 0;

    virtual QSize windowSize(NativeHandle window) const = 0;
    virtual QPoint cursorIn(NativeHandle window) const = 0;
    virtual bool isMenuVisible() const = 0;
    /// Information, with its whole style byte, and rectangle of a button by its index.
    virtual ToolbarButton button(NativeHandle toolbar, int index) const = 0;
    virtual QFont font(NativeHandle font) const = 0;
    virtual QSize iconSize(NativeHandle imageList) const = 0;
    virtual QPixmap image(NativeHandle imageList, int index) const = 0;
    /// Begins painting, copies the drawn picture to the window in one block (a null picture not at all) and
    /// ends painting. The window may be gone when the drawing returns.
    virtual void paint(NativeHandle window, const std::function<QImage()>& draw) = 0;
};

} // namespace dalvora::toolbar
