#include "forms/main/HeaderBinding.h"
#include "common/SetControlValue.h"
#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "forms/ComboBoxList.h"
#include "forms/FormServices.h"
#include "forms/frmPeriodo.h"
#include "forms/main/MainControls.h"
#include "forms/main/RecordCommands.h"
#include "platform/quorvane32/core/Session.h"
#include "platform/quorvane32/grid/FocusLoss.h"
#include <QComboBox>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

namespace dalvora {

namespace {

enum HeaderColumn : int { ColumnCode = 2, ColumnDescription = 3, ColumnStart = 5, ColumnEnd = 6 };

/// Values of a row of the lookup "CodigosComision".
enum LookupValue : int { FoundCode, FoundDescription, FoundStart, FoundEnd, FoundCount };

} // namespace

HeaderBinding::HeaderBinding(MainControls& controls, SessionContext& context, FormServices& services,
                             RecordCommands& record, QWidget& form)
    : m_controls(controls), m_context(context), m_services(services), m_record(record), m_form(form) {
    m_controls.TxtCodigo->installEventFilter(this);
    m_controls.TxtGlosa->installEventFilter(this);
    connect(m_controls.coCodigo, &QPushButton::clicked, this, &HeaderBinding::coCodigo_Click);
    connect(m_controls.FecIni, &quorvane::XDate::changed, this, &HeaderBinding::FecIni_Change);
    connect(m_controls.FecFin, &quorvane::XDate::changed, this, &HeaderBinding::FecFin_Change);
    connect(m_controls.Opt_Monto, &QRadioButton::clicked, this, &HeaderBinding::Opt_Monto_Click);
}

void HeaderBinding::bind(int column, QWidget& control) {
    if (!control.isEnabled())
        return;
    DBTable& table = *m_context.Table;
    if (auto* check = qobject_cast<QCheckBox*>(&control)) {
        table.setTextValue(column, check->isChecked() ? QStringLiteral("S") : QStringLiteral("N"));
        check->setChecked(table.TextValue(column).compare(QLatin1String("S"), Qt::CaseInsensitive) == 0);
    } else if (auto* combo = qobject_cast<QComboBox*>(&control)) {
        table.setTextValue(column, combo->currentText());
        const QString stored = table.TextValue(column);
        if (stored != combo->currentText()) {
            ComboBoxList list(*combo);
            SetControlValue(list, stored, true);
        }
    } else if (auto* text = qobject_cast<QLineEdit*>(&control)) {
        table.setTextValue(column, text->text());
        const QString stored = table.TextValue(column);
        if (stored != text->text())
            text->setText(stored);
    }
}

void HeaderBinding::tryRead() {
    const DBTable& table = *m_context.Table;
    if (m_guard > 0 || m_record.isReading() || table.SysRecordEnabled)
        return;
    if (table.Codigo().isEmpty() || table.FECHAINICIO().isEmpty() || table.FechaFinal().isEmpty())
        return;
    // The question moves the focus, which must not try again.
    const QScopedValueRollback guard(m_guard, m_guard + 1);
    if (mayLoseEntries())
        m_record.readRecord(0);
}

/// Reads that nobody commanded ask before they replace lines that were entered. False keeps them.
bool HeaderBinding::mayLoseEntries() {
    return !m_context.Table->hasUnsavedChanges() ||
           ShowMessage(
               QStringLiteral("¿ Seguro de leer otro registro perdiendo las modificaciones ingresadas ?"),
               MessageQuestion) == ButtonYes;
}

void HeaderBinding::TxtCodigo_LostFocus() {
    bind(ColumnCode, *m_controls.TxtCodigo);
    // Whatever the rights: the write itself refuses who may not.
    if (!m_controls.TxtCodigo->text().isEmpty())
        m_controls.button(u"grabar").setEnabled(true);
    tryRead();
}

void HeaderBinding::TxtGlosa_LostFocus() {
    bind(ColumnDescription, *m_controls.TxtGlosa);
}

void HeaderBinding::FecIni_Change() {
    bind(ColumnStart, *m_controls.FecIni);
}

void HeaderBinding::FecFin_Change() {
    bind(ColumnEnd, *m_controls.FecFin);
    // The end date completes the key; the start date alone never reads.
    tryRead();
}

void HeaderBinding::Opt_Monto_Click() {
    m_controls.XGrid2->setVisible(true);
    m_controls.XGrid->setVisible(false);
}

bool HeaderBinding::TxtCodigo_Event(QEvent& event) {
    switch (event.type()) {
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent&>(event).key() != Qt::Key_F8)
            return false;
        coCodigo_Click();
        return true;
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent&>(event).button() != Qt::LeftButton)
            return false;
        // A click stores the code again and may read: an entry pasted with the mouse needs no Tab.
        TxtCodigo_LostFocus();
        return false;
    case QEvent::FocusOut:
        // A read locks this control, which takes the focus from it: nobody has left an entry then.
        if (!m_record.isReading() &&
            quorvane::endsEntry(*m_controls.TxtCodigo, static_cast<QFocusEvent&>(event)))
            TxtCodigo_LostFocus();
        return false;
    default:
        return false;
    }
}

bool HeaderBinding::eventFilter(QObject* watched, QEvent* event) {
    if (!m_context.Table)
        return false;
    if (watched == m_controls.TxtCodigo)
        return TxtCodigo_Event(*event);
    if (watched == m_controls.TxtGlosa && event->type() == QEvent::FocusOut &&
        quorvane::endsEntry(*m_controls.TxtGlosa, static_cast<QFocusEvent&>(*event)))
        TxtGlosa_LostFocus();
    return false;
}

/// The key controls of a loaded record are locked: another scheme is chosen into a new record, never into the
/// one on screen. False when the user rather keeps what has been entered.
bool HeaderBinding::readyForAnother() {
    DBTable& table = *m_context.Table;
    if (!mayLoseEntries())
        return false;
    if (table.SysRecordEnabled || table.hasUnsavedChanges())
        m_record.newRecord();
    // Dates entered before must not refuse those of the chosen scheme.
    table.ClearDates();
    return true;
}

void HeaderBinding::coCodigo_Click() {
    QStringList values;
    {
        const QScopedValueRollback guard(m_guard, m_guard + 1);
        const bool chosen =
            m_services.QueryLookup(QStringLiteral("CodigosComision"), QStringLiteral("DALVORA.qry"),
                                   m_context.Session->CompanyCode(), values);
        if (!chosen || values.size() < FoundCount || !readyForAnother())
            return;
        const auto put = [&](int column, QLineEdit& control, LookupValue value) {
            control.setText(values[value]);
            bind(column, control);
        };
        put(ColumnCode, *m_controls.TxtCodigo, FoundCode);
        put(ColumnDescription, *m_controls.TxtGlosa, FoundDescription);
        put(ColumnStart, *m_controls.FecIni, FoundStart);
        put(ColumnEnd, *m_controls.FecFin, FoundEnd);
        m_controls.coCodigo->setEnabled(false);
    }
    TxtCodigo_LostFocus();
}

void HeaderBinding::mnuModif_Click() {
    if (!m_periodo)
        m_periodo = new frmPeriodo(*m_context.Table, &m_form);
    m_periodo->Form_Load();
    m_periodo->exec();
    // The program may have been ended from outside meanwhile.
    if (!m_context.Table)
        return;
    m_controls.FecIni->setText(m_context.Table->TextValue(ColumnStart));
    m_controls.FecFin->setText(m_context.Table->TextValue(ColumnEnd));
    m_record.showPeriod();
}

} // namespace dalvora
