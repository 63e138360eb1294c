#include "ui/toolbar/MessageTable.h"
#include <algorithm>

namespace dalvora::toolbar {

bool MessageTable::add(quint32 message, MessageTime time) {
    std::vector<quint32>& messages = list(time);
    if (handles(message, time))
        return true;
    if (message == ALL_MESSAGES)
        messages.clear();
    if (messages.size() == MSG_ENTRIES)
        return false;
    messages.push_back(message);
    return true;
}

bool MessageTable::remove(quint32 message, MessageTime time) {
    std::vector<quint32>& messages = list(time);
    if (message == ALL_MESSAGES) {
        messages.clear();
        return true;
    }
    return std::erase(messages, message) > 0;
}

void MessageTable::clear() {
    m_before.clear();
    m_after.clear();
}

bool MessageTable::handles(quint32 message, MessageTime time) const {
    const std::vector<quint32>& messages = time == MessageTime::Before ? m_before : m_after;
    return std::any_of(messages.begin(), messages.end(),
                       [&](quint32 entry) { return entry == message || entry == ALL_MESSAGES; });
}

} // namespace dalvora::toolbar
