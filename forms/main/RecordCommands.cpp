#include "forms/main/RecordCommands.h"
#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "forms/main/DetailGrid.h"
#include "forms/main/GridLayout.h"
#include "forms/main/MainControls.h"
#include "forms/main/StatusPanels.h"
#include <QScopedValueRollback>
#include <algorithm>

namespace dalvora {

namespace {

/// Columns of the record's header.
enum HeaderColumn : int { ColumnCode = 2, ColumnDescription = 3, ColumnStart = 5, ColumnEnd = 6 };

QString periodText(const DBTable& table) {
    const QString start = table.TextValue(ColumnStart);
    const QString end = table.TextValue(ColumnEnd);
    return start.isEmpty() && end.isEmpty() ? QString() : start + QStringLiteral(" - ") + end;
}

bool isYes(const QString& flag) {
    return flag.trimmed().compare(QLatin1String("S"), Qt::CaseInsensitive) == 0;
}

} // namespace

RecordCommands::RecordCommands(MainControls& controls, SessionContext& context, DetailGrid* const (&grids)[3])
    : m_controls(controls), m_context(context), m_grids{grids[0], grids[1], grids[2]} {}

void RecordCommands::setKeyEnabled(bool enabled) {
    for (QWidget* control :
         {static_cast<QWidget*>(m_controls.TxtCodigo), static_cast<QWidget*>(m_controls.TxtGlosa),
          static_cast<QWidget*>(m_controls.FecIni), static_cast<QWidget*>(m_controls.FecFin)})
        control->setEnabled(enabled);
}

void RecordCommands::newRecord() {
    DBTable& table = *m_context.Table;
    for (QLineEdit* text :
         {m_controls.TxtCodigo, m_controls.TxtGlosa, static_cast<QLineEdit*>(m_controls.FecIni),
          static_cast<QLineEdit*>(m_controls.FecFin)})
        text->setText(QString());
    setKeyEnabled(true);
    m_controls.coCodigo->setEnabled(true);
    table.ClearDates();
    table.DBClear();
    // What the controls no longer show must not be found, nor saved, with the next record.
    table.setTextValue(ColumnCode, QString());
    table.setTextValue(ColumnDescription, QString());
    refreshCommands();
    table.carga_inicio();
    showRecord();
    m_controls.TxtCodigo->setFocus();
}

bool RecordCommands::readRecord(int Pos) {
    const BusyStatus busy(*m_controls.StatusBar, QStringLiteral("Leyendo registro ..."));
    const QScopedValueRollback reading(m_reading, true);
    DBTable& table = *m_context.Table;
    if (!table.DBRead(Pos)) {
        showAfterFailedRead();
        return false;
    }
    refreshCommands();
    table.SaveDates();
    if (!table.SysRecordFound)
        table.carga_inicio();
    showRecord();
    setKeyEnabled(false);
    focusEntry();
    return true;
}

void RecordCommands::focusEntry() {
    if (m_controls.TxtCodigo->isEnabled())
        m_controls.TxtCodigo->setFocus();
    else
        m_controls.grids()[static_cast<std::size_t>(m_controls.SSTab1->currentIndex())]->setFocus();
}

/// A read that failed half way leaves what it has filled in so far; the grids must not show more than that.
void RecordCommands::showAfterFailedRead() {
    DBTable& table = *m_context.Table;
    if (table.DetailsCount() == 0 || table.MontosCount() == 0 || table.PreciosCount() == 0)
        table.carga_inicio();
    for (DetailGrid* grid : m_grids)
        grid->showLines();
}

void RecordCommands::showRecord() {
    const DBTable& table = *m_context.Table;
    m_controls.TxtCodigo->setText(table.TextValue(ColumnCode));
    m_controls.TxtGlosa->setText(table.TextValue(ColumnDescription));
    // A read by one date of a period finds the whole period, which may differ from what was entered.
    m_controls.FecIni->setText(table.TextValue(ColumnStart));
    m_controls.FecFin->setText(table.TextValue(ColumnEnd));
    showPeriod();
    for (DetailGrid* grid : m_grids)
        grid->showLines();
}

void RecordCommands::showPeriod() {
    m_controls.StatusBar->setText(panelPeriodo, periodText(*m_context.Table));
}

bool RecordCommands::isValidDay(QLineEdit& date) {
    // The day number is compared with 1900, not the year: 14 March 1905 is the first accepted day.
    constexpr double firstDayNumber = 1900;
    bool valid = false;
    try {
        valid = m_context.Regional.parseDate(date.text()).serial() >= firstDayNumber;
    } catch (const quorvane::RunTimeError&) {
        valid = false;
    }
    if (!valid) {
        ShowMessage(QStringLiteral("Fecha no válida"), MessageInformation);
        date.setFocus();
    }
    return valid;
}

bool RecordCommands::mayBeSaved() {
    const auto grids = m_controls.grids();
    const bool noLines =
        std::all_of(grids.begin(), grids.end(), [](const auto* grid) { return grid->text(1, 1).isEmpty(); });
    if (noLines) {
        ShowMessage(QStringLiteral("Debe ingresar al menos una comisión para poder Guardar"),
                    MessageInformation);
        return false;
    }
    quorvane::XDate& missing = m_controls.FecIni->text().isEmpty() ? *m_controls.FecIni : *m_controls.FecFin;
    if (missing.text().isEmpty()) {
        ShowMessage(QStringLiteral("Debe ingresar Fecha Inicial y Fecha Final para poder guardar"),
                    MessageInformation);
        missing.setFocus();
        return false;
    }
    return isValidDay(*m_controls.FecIni) && isValidDay(*m_controls.FecFin);
}

bool RecordCommands::saveRecord() {
    const BusyStatus busy(*m_controls.StatusBar, QStringLiteral("Grabando registro ..."));
    DBTable& table = *m_context.Table;
    table.Acumulable = m_controls.CheckP->isChecked() ? QStringLiteral("S") : QStringLiteral("N");
    if (!mayBeSaved())
        return false;
    const bool saved = table.DBWrite(true);
    if (!saved && table.SysErrorTable >= 0)
        FocusDetailCell(m_controls, table, table.SysErrorCol, table.SysErrorRow, table.SysErrorTable);
    return saved;
}

bool RecordCommands::deleteRecord() {
    DBTable& table = *m_context.Table;
    if (table.SysRecordFound &&
        ShowMessage(QStringLiteral("¿ Seguro de eliminar registro ?"), MessageQuestion) != ButtonYes)
        return false;
    bool deleted = false;
    {
        const BusyStatus busy(*m_controls.StatusBar, QStringLiteral("Eliminando registro ..."));
        deleted = table.DBDelete();
    }
    if (deleted)
        ShowMessage(QStringLiteral("Registro Eliminado"), MessageInformation);
    return deleted;
}

void RecordCommands::refreshCommands() {
    const DBTable& table = *m_context.Table;
    const bool mayWrite = table.SysAllowWrite();
    const bool mayDelete = table.SysAllowDelete();
    m_controls.button(u"eliminar").setEnabled(mayDelete);
    m_controls.button(u"grabar").setEnabled(mayWrite);
    m_controls.button(u"cliente").setEnabled(mayWrite);
    m_controls.menuItem(u"mnuLeer").setEnabled(table.SysAllowRead());
    m_controls.menuItem(u"mnuEliminar").setEnabled(mayDelete);
    m_controls.menuItem(u"mnuGrabar").setEnabled(mayWrite);
    const bool assigning = m_controls.button(u"cliente").isEnabled();
    m_controls.menuItem(u"mnuModif").setEnabled(assigning);
    m_controls.menuItem(u"mnuAsignar").setEnabled(assigning);
    m_controls.CheckP->setChecked(accumulates());
}

bool RecordCommands::accumulates() const {
    return isYes(m_context.Table->Acumulable);
}

} // namespace dalvora
