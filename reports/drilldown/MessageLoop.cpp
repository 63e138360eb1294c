#include "reports/drilldown/MessageLoop.h"
#include <QCoreApplication>
#include <chrono>
#include <thread>

namespace dalvora {

void MessageLoop::operator()() {
    constexpr int roundsBetweenRests = 40;
    constexpr std::chrono::milliseconds rest(1);
    QCoreApplication::processEvents();
    m_rounds = (m_rounds + 1) % roundsBetweenRests;
    if (m_rounds == 0)
        std::this_thread::sleep_for(rest);
}

} // namespace dalvora
