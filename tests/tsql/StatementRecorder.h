#pragma once

#include "platform/quorvane32/core/Engine.h"
#include <QString>
#include <memory>

namespace dalvora::test {

/// The file that gets every statement which this program gives to an engine, as it was given and before a
/// dialect has seen it: a JSON string a line. The linker puts the recorder between the connections and the
/// engines of a test program (see CMakeLists.txt), so no connection can be forgotten, wherever it is made.
QString statementFile();
/// Empties the file.
void startRecording();
/// The engine, with what it is given written down; for one that a test opens itself.
std::unique_ptr<quorvane::Engine> recorded(std::unique_ptr<quorvane::Engine> engine);

} // namespace dalvora::test
