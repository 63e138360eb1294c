#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/engine/Report.h"

namespace quorvane::report {

// The engine as long as it has no outputs.
void Report::printOut(bool, int, int, int) {
    throw RunTimeError(ErrorPrinter, QStringLiteral("La impresión no está disponible en esta versión"));
}

} // namespace quorvane::report
