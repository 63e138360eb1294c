#include "ui/toolbar/WindowSubclass.h"
#include "ui/toolbar/SubclassFailure.h"

namespace dalvora::toolbar {

using namespace Qt::StringLiterals;

bool WindowSubclass::fail(const QString& routine, const QString& text) {
    reportFailure(m_reporter, routine, text);
    return false;
}

bool WindowSubclass::subclass(NativeHandle window, MessageCallback callback) {
    const QString routine = u"SubclassWindow"_s;
    if (!m_windows.isWindow(window))
        return fail(routine, invalidHandleText());
    if (!m_windows.belongsToThisProcess(window))
        return fail(routine, foreignProcessText());
    if (m_windows.isIntercepted(window))
        return fail(routine, alreadySubclassedText());
    if (!callback)
        return fail(routine, callbackMissingText());
    unsubclass();
    // Messages may come before the call returns.
    m_window = window;
    m_callback = std::move(callback);
    m_active = std::make_shared<bool>(true);
    const auto error = m_windows.intercept(window, *this);
    if (!error)
        return true;
    m_window = 0;
    *m_active = false;
    return fail(routine, setWindowLongText(*error));
}

void WindowSubclass::unsubclass() {
    if (m_window == 0)
        return;
    *m_active = false;
    m_windows.release(std::exchange(m_window, 0));
    m_table.clear();
}

bool WindowSubclass::addMessage(quint32 message, MessageTime time) {
    const QString routine = u"AddMessage"_s;
    if (m_window == 0)
        return fail(routine, notInitializedText());
    return m_table.add(message, time) || fail(routine, tableOverflowText());
}

bool WindowSubclass::removeMessage(quint32 message, MessageTime time) {
    const QString routine = u"RemoveMessage"_s;
    if (m_window == 0)
        return fail(routine, notInitializedText());
    return m_table.remove(message, time) || fail(routine, messageNotFoundText(message));
}

// A callback may end the interception, or this object, while a message is in progress. What is needed
// afterwards is kept apart.
qintptr WindowSubclass::receive(quint32 message, quintptr wParam, qintptr lParam) {
    const NativeHandle window = m_window;
    NativeWindows& windows = m_windows;
    const std::shared_ptr<bool> active = m_active;
    if (message == message::WindowDestroyed) {
        const qintptr result = windows.callPrevious(window, message, wParam, lParam);
        if (*active)
            unsubclass();
        return result;
    }
    const MessageCallback callback = m_callback;
    if (m_table.handles(message, MessageTime::Before))
        if (const auto answer = callback(message, MessageTime::Before, wParam, lParam))
            return *answer;
    if (!*active)
        return windows.isWindow(window) ? windows.send(window, message, wParam, lParam) : 0;
    const qintptr result = windows.callPrevious(window, message, wParam, lParam);
    if (*active && m_table.handles(message, MessageTime::After))
        if (const auto answer = callback(message, MessageTime::After, wParam, lParam))
            return *answer;
    return result;
}

} // namespace dalvora::toolbar
