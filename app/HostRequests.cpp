#include "app/HostRequests.h"
#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "forms/main/frmMain.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Session.h"
#include <QApplication>
#include <QPointer>
#include <QScopeGuard>
#include <QTimer>

namespace dalvora {

using namespace Qt::StringLiterals;
using Action = HostCommand::Action;

namespace {

enum HeaderColumn : int { ColumnCode = 2, ColumnStart = 5, ColumnEnd = 6 };

[[noreturn]] void refuse(const QString& why) {
    throw quorvane::RunTimeError(quorvane::ErrorInvalidCall, why);
}

} // namespace

quorvane::ChannelAnswer HostRequests::execute(const QString& command) {
    const HostCommand wanted = readHostCommand(command);
    if (!m_context.Table)
        refuse(u"Dalvora está terminando"_s);
    if (!wanted.company.isEmpty() &&
        wanted.company.compare(m_context.Session->CompanyCode(), Qt::CaseInsensitive) != 0)
        refuse(u"Dalvora trabaja con la empresa %1"_s.arg(m_context.Session->CompanyCode()));
    if (wanted.action == Action::Show) {
        m_form.comeToFront();
        return {true, {}};
    }
    if (isBusy())
        refuse(u"Dalvora está ocupado: hay una operación en curso o una ventana que espera respuesta"_s);
    m_working = true;
    runSoon(wanted, 0);
    return {true, {}};
}

bool HostRequests::isBusy() const {
    // The pointer of its own is what every long operation shows while it works.
    return m_working || m_form.isBusy() || QApplication::activeModalWidget() ||
           QApplication::activePopupWidget() || QGuiApplication::overrideCursor();
}

void HostRequests::runSoon(const HostCommand& command, int milliseconds) {
    QTimer::singleShot(milliseconds, this, [this, command] { run(command); });
}

void HostRequests::run(const HostCommand& command) {
    constexpr int shortWhile = 100;
    m_working = false;
    if (!m_context.Table) // the user ended the program first
        return;
    const bool busy = isBusy(); // the user was quicker
    m_working = true;
    if (busy) {
        runSoon(command, shortWhile);
        return;
    }
    const auto done = qScopeGuard([this] { m_working = false; });
    m_form.comeToFront();
    if (!mayReplaceEntries(command))
        return;
    try {
        if (command.action == Action::Add)
            m_form.addRecordQuietly();
        else
            open(command);
    } catch (const quorvane::RunTimeError& error) {
        ShowRunTimeError(u"Error al abrir registro"_s, error);
    }
}

bool HostRequests::mayReplaceEntries(const HostCommand& command) {
    const QPointer<QWidget> entry = m_form.endEntry();
    if (!m_context.Table) // ended from outside while an entry was refused with a message
        return false;
    if (!m_form.wouldLoseEntry())
        return true;
    const QString question =
        command.action == Action::Add
            ? u"¿ Seguro de iniciar otro registro perdiendo las modificaciones ingresadas ?"_s
            : u"¿ Seguro de leer otro registro perdiendo las modificaciones ingresadas ?"_s;
    if (ShowMessage(question, MessageQuestion) == ButtonYes)
        return m_context.Table != nullptr;
    if (entry)
        entry->setFocus();
    return false;
}

// The record takes nothing from the key string: who opens one gives it the code, and on a cleared header, so
// that no dates of the record before decide what is found.
void HostRequests::open(const HostCommand& command) {
    m_form.record().newRecord();
    m_form.endEntry();
    DBTable& table = *m_context.Table;
    table.setTextValue(ColumnCode, command.key);
    table.setTextValue(ColumnStart, m_context.Regional.dateText(command.start));
    table.setTextValue(ColumnEnd, m_context.Regional.dateText(command.end));
    m_form.record().showRecord();
    m_form.openRecord(command.key, command.enabled);
}

} // namespace dalvora
