#pragma once

namespace dalvora {

/// Yields to the message loop: each call lets the program answer one round of what has happened meanwhile
/// (paints, keys, clicks, timers). Now and then it gives the processor away as well, so that 20,000 yields
/// are at least half a second on any machine and a program that was just started gets to run.
class MessageLoop {
public:
    void operator()();

private:
    int m_rounds = 0;
};

} // namespace dalvora
