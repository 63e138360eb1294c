#pragma once

#include <QObject>

namespace dalvora {

class FormServices;
class RecordCommands;
class frmPeriodo;
struct MainControls;
struct SessionContext;

/// Binds the header controls to the record's columns: what is entered goes into the record, and the record's
/// own form of it comes back into the control.
class HeaderBinding : public QObject {
    Q_OBJECT
public:
    HeaderBinding(MainControls& controls, SessionContext& context, FormServices& services,
                  RecordCommands& record, QWidget& form);

    void bind(int column, QWidget& control);
    /// Reads the record when code and both dates are there, but not while a lookup or a read is under way nor
    /// while a record is loaded: its key is locked then.
    void tryRead();

    void coCodigo_Click();
    void mnuModif_Click();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void TxtCodigo_LostFocus();
    void TxtGlosa_LostFocus();
    void FecIni_Change();
    void FecFin_Change();
    void Opt_Monto_Click();
    bool mayLoseEntries();
    bool readyForAnother();
    bool TxtCodigo_Event(QEvent& event);

    MainControls& m_controls;
    SessionContext& m_context;
    FormServices& m_services;
    RecordCommands& m_record;
    QWidget& m_form;
    frmPeriodo* m_periodo = nullptr;
    int m_guard = 0;
};

} // namespace dalvora
