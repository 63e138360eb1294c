#include "platform/reportengine/output/SpreadsheetWriter.h"
#include "platform/quorvane32/base/Module.h"

namespace quorvane::report {

bool writeSpreadsheet(const OutputSource& source, const QString& path, const OutputProgress& progress) {
    return moduleFactory<SpreadsheetWriter>(QStringLiteral("quorvane_sheet_module"),
                                            QStringLiteral("la salida a planillas de cálculo"))
        .write(source, path, progress);
}

} // namespace quorvane::report
