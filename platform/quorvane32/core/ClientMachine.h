#pragma once

#include <QString>
#include <QSysInfo>

namespace quorvane {

/// Tells which machine the program runs on, for the session's audit trail.
class ClientMachine {
public:
    QString name() const { return QSysInfo::machineHostName(); }
};

} // namespace quorvane
