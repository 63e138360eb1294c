#pragma once

#include <chrono>
#include <functional>

namespace dalvora {

/// Yields to the message loop: each call lets the program answer one round of what has happened meanwhile
/// (paints, keys, clicks, timers). Now and then it gives the processor away as well, so that 20,000 yields
/// are about half a second on a machine of any speed and a program that was just started gets to run. What a
/// system with a slow clock sleeps too long (15 milliseconds for one) is made up for by the yields after it.
class MessageLoop {
public:
    using Rest = std::function<void(std::chrono::milliseconds)>;

    MessageLoop();
    explicit MessageLoop(Rest rest) : m_rest(std::move(rest)) {}

    void operator()();

private:
    using Clock = std::chrono::steady_clock;

    Rest m_rest;
    Clock::time_point m_due; ///< when the yields so far should have been over
};

} // namespace dalvora
