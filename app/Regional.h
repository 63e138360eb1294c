#pragma once

#include "platform/quorvane32/base/RegionalSettings.h"
#include <QLocale>

namespace dalvora {

/// The settings of the user's locale when it is a Spanish one, else the usual Spanish ones: every text of the
/// program is Spanish, and a number shall not read otherwise than the words around it.
quorvane::RegionalSettings regionalSettings(const QLocale& locale);

} // namespace dalvora
