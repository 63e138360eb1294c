#pragma once

#include "ui/toolbar/MessageTable.h"
#include "ui/toolbar/NativeWindows.h"
#include <memory>

namespace dalvora::toolbar {

class FailureReporter;

/// Handles a message; the answer counts instead of the previous procedure's. None lets the message go on.
using MessageCallback =
    std::function<std::optional<qintptr>(quint32 message, MessageTime time, quintptr wParam, qintptr lParam)>;

/// Intercepts the messages of one native window: those of its table go to a callback before or after the
/// previous procedure, all others only there. Lets go by itself when the window is destroyed. Failures are
/// told by the reporter and make the operation return false.
class WindowSubclass final : public WindowProcedure {
public:
    WindowSubclass(NativeWindows& windows, FailureReporter& reporter)
        : m_windows(windows), m_reporter(reporter) {}
    ~WindowSubclass() override { unsubclass(); }
    Q_DISABLE_COPY_MOVE(WindowSubclass)

    bool subclass(NativeHandle window, MessageCallback callback);
    void unsubclass();
    /// 0 when nothing is intercepted, or no longer.
    NativeHandle window() const { return m_window; }

    bool addMessage(quint32 message, MessageTime time);
    bool removeMessage(quint32 message, MessageTime time);

    qintptr receive(quint32 message, quintptr wParam, qintptr lParam) override;

private:
    bool fail(const QString& routine, const QString& text);

    NativeWindows& m_windows;
    FailureReporter& m_reporter;
    NativeHandle m_window = 0;
    MessageCallback m_callback;
    MessageTable m_table;
    /// Tells a message in progress that a callback ended the interception.
    std::shared_ptr<bool> m_active;
};

} // namespace dalvora::toolbar
