#include "platform/reportengine/output/LaidOut.h"
#include "platform/reportengine/output/SpreadsheetWriter.h"
#include "platform/reportengine/sheet/SpreadsheetOutput.h"
#include <QObject>

namespace quorvane::report {

/// The module's door.
class SheetModule final : public QObject, public SpreadsheetWriter {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QUORVANE_SPREADSHEET_WRITER)
    Q_INTERFACES(quorvane::report::SpreadsheetWriter)

public:
    bool write(const OutputSource& source, const QString& path, const OutputProgress& progress) override {
        PageContext context = source.context;
        SpreadsheetOutput sheet(context, path);
        if (!layOutWhole(source, progress, context))
            return false;
        for (int page = 0; page < context.pageCount; ++page) {
            sheet.add(source.layout->page(page));
            if (progress && !progress(page + 1, context.pageCount))
                return false;
        }
        sheet.commit();
        return true;
    }
};

} // namespace quorvane::report

#include "SheetModule.moc"
