#include "ui/toolbar/SubclassFailure.h"
#include <QCoreApplication>
#include <windows.h>

namespace dalvora::toolbar {

namespace {

const wchar_t* wide(const QString& text) {
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

} // namespace

void SystemFailureReporter::writeEventLog(const QString& entry) {
    const QString program = QCoreApplication::applicationName();
    HANDLE log = RegisterEventSourceW(nullptr, wide(program));
    if (log == nullptr)
        return;
    const wchar_t* text = wide(entry);
    ReportEventW(log, EVENTLOG_WARNING_TYPE, 0, 0, nullptr, 1, 0, &text, nullptr);
    DeregisterEventSource(log);
}

} // namespace dalvora::toolbar
