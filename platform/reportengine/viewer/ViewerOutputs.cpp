#include "platform/reportengine/viewer/ViewerOutputs.h"
#include "platform/reportengine/viewer/ReportPages.h"
#include <QCoreApplication>
#include <QPrinter>
#include <QScopeGuard>

namespace quorvane::report {

namespace {

/// The window answers about this often, in milliseconds.
constexpr int eventInterval = 40;

} // namespace

bool ViewerOutputs::goesOn(int done, int total) {
    if (m_sinceEvents.elapsed() >= eventInterval) {
        Q_EMIT progressed(done, total);
        QCoreApplication::processEvents();
        m_sinceEvents.restart();
    }
    return !m_stopped;
}

bool ViewerOutputs::run(ReportPages& pages, const Work& work) {
    m_running = true;
    m_stopped = false;
    m_sinceEvents.start();
    const auto over = qScopeGuard([this] { m_running = false; });
    const OutputSource source{&pages.report().layout(), pages.context()};
    return work(source, [this](int done, int total) { return goesOn(done, total); });
}

bool ViewerOutputs::write(ReportPages& pages, Format format, const QString& path) {
    return run(pages, [format, path](const OutputSource& source, const OutputProgress& progress) {
        switch (format) {
        case Format::Spreadsheet:
            return writeSpreadsheet(source, path, progress);
        case Format::Csv:
            return writeCsv(source, path, progress);
        default:
            return writePdf(source, path, progress);
        }
    });
}

bool ViewerOutputs::print(ReportPages& pages, QPrinter& printer, int first, int last) {
    return run(pages, [&](const OutputSource& source, const OutputProgress& progress) {
        return printPages(source, printer, first, last, printer.copyCount(), progress);
    });
}

} // namespace quorvane::report
