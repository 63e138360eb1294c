#include "app/HostChannel.h"
#include "platform/dde/SystemRequestAnswerer.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QTimer>

namespace dalvora {

namespace {

/// Long enough for the first picture of the window and the first keys.
constexpr int afterStart = 300;

} // namespace

void HostChannel::beginSoon(const QStringList& topics) {
    QTimer::singleShot(afterStart, this, [this, topics] { begin(topics); });
}

void HostChannel::begin(const QStringList& topics) {
    try {
        for (const QString& topic : topics) {
            auto answerer = quorvane::makeRequestAnswerer(topic, m_execute);
            if (answerer->listen())
                m_answerers.push_back(std::move(answerer));
        }
    } catch (const quorvane::RunTimeError&) {
        // Nobody asked for anything yet: whoever does finds nobody there, and the user works on.
        return;
    }
}

} // namespace dalvora
