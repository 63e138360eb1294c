#pragma once

#include "forms/vendedor/SalespeopleList.h"
#include "forms/vendedor/VendedorControls.h"
#include <QMainWindow>

namespace dalvora {

/// The form that gives the scheme of the main form to salespeople: a list of them, marks on some, one
/// command. It is not modal; the scheme is the one that the record holds at the moment of assigning.
class FM_Vendedor : public QMainWindow {
    Q_OBJECT
public:
    /// The context must outlive the form.
    explicit FM_Vendedor(SessionContext& context);
    ~FM_Vendedor() override;

    VendedorControls& controls() { return m_controls; }
    SalespeopleList& list() { return m_list; }

    /// Brings the form to the front; one that was closed is loaded first.
    void open();
    /// Reads the list again, for the ERP that hosts the form.
    void Refresh() { LeerCtactes(); }

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void wireCommands();
    void Form_Load();
    void Form_Resize();
    void keepLeastSize();
    void placeControls();
    void fillGridWidth();
    /// Reads the list. A run-time error is told and ends the reading; the rows read so far are shown.
    void LeerCtactes();
    void readList();
    /// Gives the scheme to the marked salespeople one by one, with no transaction. An error is told, what was
    /// written before it stays; in any case the list is read again.
    void assignScheme();
    void showScheme();

    VendedorControls m_controls;
    SessionContext& m_context;
    Salespeople m_salespeople;
    SalespeopleList m_list;
};

} // namespace dalvora
