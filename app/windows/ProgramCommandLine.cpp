#include "app/ProgramCommandLine.h"
#include "app/windows/BehindProgramName.h"
#include <windows.h>

namespace dalvora {

QString programCommandLine() {
    return behindProgramName(QString::fromWCharArray(GetCommandLineW()));
}

} // namespace dalvora
