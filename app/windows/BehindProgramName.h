#pragma once

#include <QString>

namespace dalvora {

/// What a command line says behind the program's name, every blank of it as it stands. Quotation marks are
/// left out: who starts a program puts them around a part with blanks, and they belong to no value.
QString behindProgramName(const QString& commandLine);

} // namespace dalvora
