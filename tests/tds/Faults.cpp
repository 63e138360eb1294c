#include "tests/tds/Faults.h"

#include <algorithm>

namespace dalvora::test::tds {

void Faults::failAt(const QString& words, int number, const QString& name) {
    const std::lock_guard lock(m_mutex);
    m_planned.push_back({words, {number, name}, {}});
}

void Faults::cutAt(const QString& words, Moment moment) {
    const std::lock_guard lock(m_mutex);
    m_planned.push_back({words, {}, moment});
}

std::optional<Faults::Planned> Faults::take(const QString& statement, bool cut) {
    const std::lock_guard lock(m_mutex);
    const auto found = std::ranges::find_if(m_planned, [&](const Planned& planned) {
        return planned.cut.has_value() == cut && statement.contains(planned.words, Qt::CaseInsensitive);
    });
    if (found == m_planned.end())
        return {};
    const Planned planned = *found;
    m_planned.erase(found);
    return planned;
}

std::optional<Faults::Failure> Faults::takeFailure(const QString& statement) {
    const auto planned = take(statement, false);
    return planned ? std::optional(planned->failure) : std::nullopt;
}

std::optional<Faults::Moment> Faults::takeCut(const QString& statement) {
    const auto planned = take(statement, true);
    return planned ? planned->cut : std::nullopt;
}

} // namespace dalvora::test::tds
