#pragma once

#include "app/HostCommand.h"
#include "platform/dde/RequestAnswerer.h"
#include <QObject>

namespace dalvora {

class frmMain;
struct SessionContext;

/// Carries out on the main form what other programs of the ERP ask for. A command that opens or adds a record
/// is answered first and runs with the next event, since it may end in a message that a person has to answer;
/// none runs inside another one, nor beside a window that waits for an answer. What the user has entered is
/// not replaced before he was asked.
class HostRequests : public QObject {
    Q_OBJECT
public:
    HostRequests(frmMain& form, SessionContext& context) : m_form(form), m_context(context) {}

    /// Error 5 with the reason in Spanish when the command is refused.
    quorvane::ChannelAnswer execute(const QString& command);

private:
    bool isBusy() const;
    void runSoon(const HostCommand& command, int milliseconds);
    void run(const HostCommand& command);
    /// False when the user keeps what has been entered.
    bool mayReplaceEntries(const HostCommand& command);
    void open(const HostCommand& command);

    frmMain& m_form;
    SessionContext& m_context;
    /// A command waits for its turn or runs.
    bool m_working = false;
};

} // namespace dalvora
