#pragma once

#include <QtGlobal>
#include <vector>

namespace dalvora::toolbar {

/// Most messages that one list of a table holds.
inline constexpr std::size_t MSG_ENTRIES = 32;

/// Stands for every message.
inline constexpr quint32 ALL_MESSAGES = 0xFFFFFFFF;

/// When a message is handled: before or after the previous window procedure.
enum class MessageTime { Before, After };

/// The window messages that a handler wants to see, each before or after the previous window procedure or
/// both. A list that holds ALL_MESSAGES holds nothing else.
class MessageTable {
public:
    /// False when the list is full. A message that is there already is not added again.
    bool add(quint32 message, MessageTime time);
    /// False when the list does not hold the message. ALL_MESSAGES empties the list.
    bool remove(quint32 message, MessageTime time);
    void clear();

    bool handles(quint32 message, MessageTime time) const;

private:
    std::vector<quint32>& list(MessageTime time) { return time == MessageTime::Before ? m_before : m_after; }

    std::vector<quint32> m_before;
    std::vector<quint32> m_after;
};

} // namespace dalvora::toolbar
