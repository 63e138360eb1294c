#pragma once

#include "platform/quorvane32/base/Date.h"
#include <QString>

namespace dalvora {

/// What another program of the ERP asks of this one. docs/host-requests.md describes the commands.
struct HostCommand {
    enum class Action {
        Show, ///< come to the front
        Add,  ///< a new record
        Open, ///< the record of a key
    };

    Action action = Action::Show;
    /// The company that the command is meant for; "" for whichever is running.
    QString company;
    /// The key string of the record to open: its code, without outer blanks.
    QString key;
    /// The period to open; both dates or none.
    quorvane::Date start;
    quorvane::Date end;
    /// The form stays enabled while the record is opened.
    bool enabled = true;
};

/// Reads a command such as "ACCION=ABRIR;CLAVE=MIXTA;HABILITADO=N": pairs key=value separated by ";", keys in
/// any case and order. Error 5 with the reason in Spanish for one that is not understood, 6 for one of more
/// than 32,767 characters.
HostCommand readHostCommand(const QString& command);

} // namespace dalvora
