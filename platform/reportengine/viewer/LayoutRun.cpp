#include "platform/reportengine/viewer/LayoutRun.h"
#include "platform/reportengine/layout/Layout.h"
#include <QTimerEvent>
#include <new>

namespace quorvane::report {

namespace {

constexpr std::chrono::milliseconds slice{25};
constexpr std::chrono::milliseconds shortSlice{8};
constexpr int giveWayFor = 300;

} // namespace

void LayoutRun::start(Layout& layout) {
    m_layout = &layout;
    m_error.reset();
    m_state = State::Running;
    m_timer.start(0, this);
}

void LayoutRun::stop() {
    if (isRunning())
        end(State::Stopped);
}

void LayoutRun::giveWay() {
    m_busyUser.setRemainingTime(giveWayFor);
}

void LayoutRun::end(State state) {
    m_timer.stop();
    m_state = state;
    Q_EMIT ended();
}

void LayoutRun::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_timer.timerId()) {
        QObject::timerEvent(event);
        return;
    }
    ++m_slices;
    bool more = false;
    try {
        more = m_layout->advance(m_busyUser.hasExpired() ? slice : shortSlice);
    } catch (const RunTimeError& error) {
        m_error = error;
    } catch (const std::bad_alloc&) {
        m_error = RunTimeError(ErrorOutOfMemory, QStringLiteral("Memoria insuficiente"));
    }
    Q_EMIT progressed();
    if (m_error)
        end(State::Failed);
    else if (!more)
        end(State::Complete);
}

} // namespace quorvane::report
