#include "reports/drilldown/MessageLoop.h"
#include <QElapsedTimer>
#include <gtest/gtest.h>
#include <thread>

using namespace dalvora;
using namespace std::chrono_literals;

namespace {

constexpr int yields = 20000;

qint64 timeOf(MessageLoop loop) {
    QElapsedTimer time;
    time.start();
    for (int i = 0; i < yields; ++i)
        loop();
    return time.elapsed();
}

} // namespace

TEST(MessageLoop, AsManyYieldsAsBetweenTwoAttemptsGiveAStartedProgramTime) {
    EXPECT_GE(timeOf(MessageLoop()), 450);
}

TEST(MessageLoop, ASystemThatSleepsLongerThanItIsToldDoesNotMultiplyTheWait) {
    EXPECT_LT(timeOf(MessageLoop([](auto) { std::this_thread::sleep_for(16ms); })), 4000)
        << "a rest for every 40 yields would be 8 seconds";
}
