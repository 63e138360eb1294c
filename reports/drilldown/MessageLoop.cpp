#include "reports/drilldown/MessageLoop.h"
#include <QCoreApplication>
#include <algorithm>
#include <thread>

namespace dalvora {

MessageLoop::MessageLoop()
    : MessageLoop([](std::chrono::milliseconds time) { std::this_thread::sleep_for(time); }) {}

void MessageLoop::operator()() {
    constexpr std::chrono::microseconds yield(25);
    constexpr std::chrono::milliseconds rest(1);
    // Beyond one long sleep nothing is made up for: time between two waits is none of theirs.
    constexpr std::chrono::milliseconds mostBehind(20);
    QCoreApplication::processEvents();
    const Clock::time_point now = Clock::now();
    m_due = std::max(m_due + yield, now - mostBehind);
    if (m_due - now >= rest)
        m_rest(rest);
}

} // namespace dalvora
