#include "ui/toolbar/SubclassFailure.h"
#include <syslog.h>

namespace dalvora::toolbar {

void SystemFailureReporter::writeEventLog(const QString& entry) {
    syslog(LOG_USER | LOG_WARNING, "%s", qUtf8Printable(entry));
}

} // namespace dalvora::toolbar
