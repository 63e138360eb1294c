#pragma once

#include <QString>

namespace dalvora::demo {

/// Makes a folder ready for a first start: quorvane.db with the demonstration companies, and a quorvane.ini
/// that signs in the user `demo` by itself. Nothing is seen of either before it is whole: the database is
/// built under another name and the profile comes last, so a start that is killed is simply done again. A
/// database that is there already is kept, and so is a profile. Several programs may call it at once. Errors:
/// 75 when the folder cannot be made or written, 61 when the disk is full, the engine's own.
void createDemonstration(const QString& folder);

} // namespace dalvora::demo
