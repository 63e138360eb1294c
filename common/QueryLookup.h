#pragma once

#include <QString>
#include <QStringList>

namespace dalvora {

struct ComponentServices;

/// Lets the user choose a row of a named query. A query file without a folder is the one beside the program;
/// parameters are separated by "#". True when a row was chosen: `values` then holds its values, the first one
/// at index 0. Otherwise `values` is empty. Errors are told in a message box and never leave it.
bool QueryLookup(const ComponentServices& services, const QString& queryName, const QString& queryFile,
                 const QString& parameters, QStringList& values);

} // namespace dalvora
