#include "reports/drilldown/MessageLoop.h"
#include <QCoreApplication>
#include <chrono>
#include <thread>

namespace dalvora {

void yieldToMessageLoop() {
    constexpr std::chrono::microseconds moment(50);
    QCoreApplication::processEvents();
    std::this_thread::sleep_for(moment);
}

} // namespace dalvora
