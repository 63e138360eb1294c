#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include <QString>

namespace dalvora {

/// Caption of the messages about the ERP's components.
inline constexpr QStringView componentTitle = u"Quorvane ERP";

/// Tells that a component failed: the fixed text, the advice to install the components again
/// and the error.
void showComponentError(const QString& text, const quorvane::RunTimeError& error);

} // namespace dalvora
