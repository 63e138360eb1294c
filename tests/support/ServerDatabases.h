#pragma once

#include "tests/support/TestDatabase.h"

namespace dalvora::test {

/// Runs statements separated by ";" on a connection of their own.
void runScript(const QString& connectString, const QString& script);
/// Makes a database in a file; its tables are those of an engine.
void createFile(const QString& path, const QByteArray& tables);

// Databases on servers that a test program starts for itself, by their names. Where there are no such servers
// the lists of engines name none, and nothing calls these.

/// Makes one, with the program's tables or without any; `file` is where the test server keeps it. Its name.
QString createServerDatabase(TestEngine engine, bool tables, const QString& file);
void dropServerDatabase(TestEngine engine, const QString& name);
void closeServerDatabase(TestEngine engine, const QString& name);
/// How it is reached, as a connect string.
QString serverAddress(TestEngine engine, const QString& name);
void failOnServer(const QString& words, int error);

} // namespace dalvora::test
