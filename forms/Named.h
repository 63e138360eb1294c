#pragma once

#include <QLatin1StringView>
#include <QString>

namespace dalvora {

/// Gives a control the name that the ERP's people know it by, and the one that people who cannot see the
/// screen hear.
template<class Control>
Control* named(Control* control, const char* name, const QString& accessibleName = {}) {
    control->setObjectName(QLatin1String(name));
    if (!accessibleName.isEmpty())
        control->setAccessibleName(accessibleName);
    return control;
}

} // namespace dalvora
