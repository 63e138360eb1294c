#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include <QBasicTimer>
#include <QDeadlineTimer>
#include <QObject>
#include <optional>

namespace quorvane::report {

class Layout;

/// Lays a report out while its window is in use: in slices on the user-interface thread, from a timer that
/// lets everything else that has happened go first.
class LayoutRun : public QObject {
    Q_OBJECT
public:
    enum class State { Idle, Running, Stopped, Complete, Failed };

    explicit LayoutRun(QObject* parent = nullptr) : QObject(parent) {}

    /// Begins, or goes on after stop(). The layout outlives this object.
    void start(Layout& layout);
    void stop();
    State state() const { return m_state; }
    bool isRunning() const { return m_state == State::Running; }
    /// What ended it; set when the state is Failed.
    const std::optional<RunTimeError>& error() const { return m_error; }
    /// The user is scrolling or typing: shorter slices for a moment.
    void giveWay();
    int slices() const { return m_slices; }

Q_SIGNALS:
    /// Rows have been read or pages have become known.
    void progressed();
    /// The state is Stopped, Complete or Failed now.
    void ended();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void end(State state);

    Layout* m_layout = nullptr;
    State m_state = State::Idle;
    std::optional<RunTimeError> m_error;
    QBasicTimer m_timer;
    QDeadlineTimer m_busyUser{0};
    int m_slices = 0;
};

} // namespace quorvane::report
