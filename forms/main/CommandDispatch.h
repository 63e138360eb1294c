#pragma once

#include <QHash>
#include <QPointer>
#include <QString>
#include <functional>

class QWidget;

namespace dalvora {

class FormServices;
class RecordCommands;
struct MainControls;
struct SessionContext;

/// Runs every command of the main form by its key. A click is deferred: the focus first leaves the control
/// that is being edited, which stores its entry, and a short timer then runs the command. A second click
/// before that replaces the first.
class CommandDispatch {
public:
    CommandDispatch(MainControls& controls, SessionContext& context, FormServices& services,
                    RecordCommands& record);

    void dispatch(const QString& key, bool Direct);
    void timFocus_Timer();
    /// A command waits for its turn or runs.
    bool isBusy() const;

private:
    void run(const QString& key);
    /// Gives the focus back where it was before the command took it, unless the command has moved it.
    void returnFocus();

    MainControls& m_controls;
    QPointer<QWidget> m_focusBefore;
    QHash<QString, std::function<void()>> m_actions;
    bool m_running = false;
};

} // namespace dalvora
