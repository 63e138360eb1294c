#include "forms/main/CommandDispatch.h"
#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "forms/FormServices.h"
#include "forms/main/MainControls.h"
#include "forms/main/RecordCommands.h"
#include <QApplication>
#include <QScopedValueRollback>

namespace dalvora {

namespace {

/// The control to come back to: a cell's editor is gone by then, its grid is not.
QWidget* entryOf(QWidget* focused) {
    for (QWidget* widget = focused; widget; widget = widget->parentWidget())
        if (qobject_cast<quorvane::XGrid*>(widget))
            return widget;
    return focused;
}

} // namespace

CommandDispatch::CommandDispatch(MainControls& controls, SessionContext& context, FormServices& services,
                                 RecordCommands& record)
    : m_controls(controls)
    , m_actions{
          {"limpiar", [&record] { record.newRecord(); }},
          {"leer",
           [&record, &context] {
               context.Table->LecturaTotal = false;
               record.readRecord(0);
           }},
          {"eliminar",
           [&record] {
               if (record.deleteRecord())
                   record.newRecord();
           }},
          {"grabar",
           [&record] {
               if (record.saveRecord())
                   record.newRecord();
           }},
          {"salir", [&services] { services.terminate(); }},
          {"ayuda", [&services] { services.Help(QStringLiteral("138")); }},
          {"ayudabuscar", [&services] { services.Help(QStringLiteral("-1")); }},
          {"ayudauso", [&services] { services.Help(QStringLiteral("0")); }},
          {"acercade",
           [&services] { services.ShowAbout(QStringLiteral("Veltrano"), QStringLiteral("Dalvora")); }},
          {"vprevia", [&services] { services.previewReport(); }},
          {"imprimir", [&services] { services.printReport(); }},
          {"cerrar", [&services] { services.terminate(); }},
          {"cliente", [&services] { services.showSalespeople(); }},
      } {}

void CommandDispatch::dispatch(const QString& key, bool Direct) {
    if (Direct) {
        run(key);
        return;
    }
    if (!m_controls.txt_Focus->hasFocus())
        m_focusBefore = entryOf(QApplication::focusWidget());
    m_controls.txt_Focus->setFocus();
    m_controls.timFocus->setProperty("Tag", key);
    m_controls.timFocus->start();
}

void CommandDispatch::timFocus_Timer() {
    // A window that asks something first gets its answer: the command must not change the record beneath it.
    if (QApplication::activeModalWidget()) {
        m_controls.timFocus->start();
        return;
    }
    m_controls.timFocus->stop();
    dispatch(m_controls.timFocus->property("Tag").toString(), true);
}

bool CommandDispatch::isBusy() const {
    return m_running || m_controls.timFocus->isActive();
}

void CommandDispatch::run(const QString& key) {
    const QScopedValueRollback running(m_running, true);
    const auto action = m_actions.constFind(key.toLower());
    if (action == m_actions.constEnd())
        ShowMessage(QStringLiteral("Botón no implementado ") + key, MessageError);
    else
        (*action)();
    returnFocus();
}

void CommandDispatch::returnFocus() {
    if (m_controls.txt_Focus->hasFocus() && m_focusBefore && m_focusBefore->isEnabled())
        m_focusBefore->setFocus();
}

} // namespace dalvora
