#include "app/ProgramCommandLine.h"
#include <QCoreApplication>
#include <QStringList>

namespace dalvora {

// The shell has taken the line apart; a blank stood between any two of its parts.
QString programCommandLine() {
    return QCoreApplication::arguments().mid(1).join(u' ');
}

} // namespace dalvora
