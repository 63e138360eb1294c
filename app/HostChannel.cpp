#include "app/HostChannel.h"
#include "platform/dde/SystemRequestAnswerer.h"
#include "platform/quorvane32/base/RunTimeError.h"

namespace dalvora {

bool HostChannel::begin(const QStringList& topics) {
    bool all = true;
    try {
        for (const QString& topic : topics) {
            if (m_answerers.contains(topic))
                continue;
            auto answerer = quorvane::makeRequestAnswerer(topic, m_execute);
            if (answerer->listen())
                m_answerers.emplace(topic, std::move(answerer));
            else
                all = false;
        }
    } catch (const quorvane::RunTimeError&) {
        // Nobody asked for anything yet: whoever does finds nobody there, and the user works on. To ask again
        // would not bring the module.
        return true;
    }
    return all;
}

} // namespace dalvora
