#pragma once

#include "tests/load/LoadCompany.h"

namespace dalvora::test {

/// The parts of a program that lacks one thing: "no-transactions", "no-audit" (every fifth entry) or
/// "no-reading" (reads that belong together); "" lacks nothing. For seeing that the test would notice.
LoadParts withoutPart(const QString& part);

} // namespace dalvora::test
