#include "reports/drilldown/ShellStarter.h"
#include <QDir>
#include <windows.h>

#include <shellapi.h>

namespace dalvora {

namespace {

LPCWSTR wide(const QString& text) {
    return reinterpret_cast<LPCWSTR>(text.utf16());
}

} // namespace

int ShellStarter::open(const QString& file, const QString& workingFolder, int showState) {
    const QString path = QDir::toNativeSeparators(file);
    const HINSTANCE result = ShellExecuteW(nullptr, L"Open", wide(path), L"", wide(workingFolder), showState);
    // No handle: a number that only its type makes one.
    return static_cast<int>(reinterpret_cast<INT_PTR>(result));
}

} // namespace dalvora
