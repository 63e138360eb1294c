#include "app/windows/BehindProgramName.h"
#include <algorithm>

namespace dalvora {

namespace {

bool isBlank(QChar c) {
    return c == u' ' || c == u'\t';
}

} // namespace

QString behindProgramName(const QString& commandLine) {
    // The name ends at the first blank outside quotation marks.
    bool quoted = false;
    const auto* place = std::find_if(commandLine.begin(), commandLine.end(), [&quoted](QChar c) {
        quoted ^= c == u'"';
        return !quoted && isBlank(c);
    });
    place = std::find_if_not(place, commandLine.end(), isBlank);
    return QString(place, commandLine.end() - place).remove(u'"');
}

} // namespace dalvora
