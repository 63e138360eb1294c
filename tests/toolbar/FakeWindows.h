#pragma once

#include "ui/toolbar/NativeWindows.h"
#include <map>
#include <vector>

namespace toolbar_test {

using namespace dalvora::toolbar;

/// Windows that exist only in memory. Everything that is sent to the previous procedure is kept.
class FakeWindows final : public NativeWindows {
public:
    struct Sent {
        quint32 message;
        quintptr wParam;
        qintptr lParam;
        bool operator==(const Sent&) const = default;
    };
    struct Window {
        NativeHandle parent = 0;
        QString className;
        bool ownProcess = true;
        WindowProcedure* procedure = nullptr;
        std::map<quint32, qintptr> answers;
        std::vector<ToolbarButton> buttons;
        std::vector<Sent> received;
        int invalidated = 0;
        QImage shown;
        int paintings = 0;
    };

    Window& create(NativeHandle handle, NativeHandle parent, const QString& className) {
        Window& window = windows[handle];
        window.parent = parent;
        window.className = className;
        return window;
    }

    /// As the system does it: the window hears of its end, then it is gone.
    void destroy(NativeHandle handle) {
        deliver(handle, message::WindowDestroyed, 0, 0);
        windows.erase(handle);
    }

    /// A message from outside, to whatever procedure the window has now.
    qintptr deliver(NativeHandle handle, quint32 message, quintptr wParam, qintptr lParam) {
        Window& window = windows.at(handle);
        return window.procedure ? window.procedure->receive(message, wParam, lParam)
                                : callPrevious(handle, message, wParam, lParam);
    }

    NativeHandle findChild(NativeHandle parent, QStringView className) const override {
        for (const auto& [handle, window] : windows)
            if (window.parent == parent && window.className == className)
                return handle;
        return 0;
    }
    bool isWindow(NativeHandle window) const override { return windows.count(window) > 0; }
    bool belongsToThisProcess(NativeHandle window) const override { return windows.at(window).ownProcess; }
    bool isIntercepted(NativeHandle window) const override { return windows.at(window).procedure != nullptr; }
    std::optional<quint32> intercept(NativeHandle window, WindowProcedure& procedure) override {
        if (!refusal)
            windows.at(window).procedure = &procedure;
        if (onIntercept)
            onIntercept();
        return refusal;
    }
    void release(NativeHandle window) override { windows.at(window).procedure = nullptr; }
    qintptr callPrevious(NativeHandle handle, quint32 message, quintptr wParam, qintptr lParam) override {
        Window& window = windows.at(handle);
        window.received.push_back({message, wParam, lParam});
        if (message == message::ButtonCount)
            return static_cast<qintptr>(window.buttons.size());
        const auto answer = window.answers.find(message);
        return answer == window.answers.end() ? 0 : answer->second;
    }
    qintptr send(NativeHandle window, quint32 message, quintptr wParam, qintptr lParam) override {
        return isWindow(window) ? deliver(window, message, wParam, lParam) : 0;
    }
    void invalidate(NativeHandle window) override { ++windows.at(window).invalidated; }
    QSize windowSize(NativeHandle) const override { return size; }
    QPoint cursorIn(NativeHandle) const override { return cursor; }
    bool isMenuVisible() const override { return menuVisible; }
    ToolbarButton button(NativeHandle toolbar, int index) const override {
        const ToolbarButton result = windows.at(toolbar).buttons.at(static_cast<std::size_t>(index));
        if (onButton)
            onButton();
        return result;
    }
    /// The handle is the font's height.
    QFont font(NativeHandle handle) const override {
        QFont result;
        if (handle != 0)
            result.setPixelSize(static_cast<int>(handle));
        return result;
    }
    QSize iconSize(NativeHandle) const override { return {16, 16}; }
    QPixmap image(NativeHandle list, int) const override {
        QPixmap result(16, 16);
        result.fill(QColor(0, static_cast<int>(list), 0));
        return result;
    }
    void paint(NativeHandle window, const std::function<QImage()>& draw) override {
        const QImage picture = draw();
        if (!isWindow(window))
            return;
        windows.at(window).shown = picture;
        ++windows.at(window).paintings;
    }

    std::map<NativeHandle, Window> windows;
    std::function<void()> onIntercept; ///< happens before an interception is over
    std::optional<quint32> refusal;
    QSize size{200, 40};
    QPoint cursor{-100, -100};
    bool menuVisible = false;
    /// Called whenever a button is asked for.
    std::function<void()> onButton;
};

} // namespace toolbar_test
