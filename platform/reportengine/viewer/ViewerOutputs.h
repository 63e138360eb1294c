#pragma once

#include "platform/reportengine/output/Output.h"
#include <QElapsedTimer>
#include <QObject>
#include <functional>

class QPrinter;

namespace quorvane::report {

class ReportPages;

/// Writes a laid-out report to files and printers from the viewer. It runs on the user-interface thread and
/// lets the window answer between pages, so that it can be followed and stopped.
class ViewerOutputs : public QObject {
    Q_OBJECT
public:
    enum class Format { Pdf, Spreadsheet, Csv };

    explicit ViewerOutputs(QObject* parent = nullptr) : QObject(parent) {}

    bool isRunning() const { return m_running; }
    void stop() { m_stopped = true; }

    // Both return when it is over: false when it was stopped. Errors are those of the output.
    bool write(ReportPages& pages, Format format, const QString& path);
    bool print(ReportPages& pages, QPrinter& printer, int first, int last);

Q_SIGNALS:
    void progressed(int done, int total);

private:
    using Work = std::function<bool(const OutputSource&, const OutputProgress&)>;
    bool run(ReportPages& pages, const Work& work);
    bool goesOn(int done, int total);

    QElapsedTimer m_sinceEvents;
    bool m_running = false;
    bool m_stopped = false;
};

} // namespace quorvane::report
