#pragma once

#include "platform/quorvane32/grid/XGrid.h"
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <array>

class QMainWindow;

namespace dalvora {

class StatusPanels;

/// An item of the menu "&Administración": object name, caption ("-" is a separator) and key combination.
struct VendedorMenuItem {
    QStringView name;
    QStringView caption;
    const char* shortcut;
};

inline constexpr std::array vendedorMenu{
    VendedorMenuItem{u"mnuRefrescar", u"&Refrescar", "F5"},
    VendedorMenuItem{u"It_Sel", u"Se&leccionar", "Ctrl+L"},
    VendedorMenuItem{u"mnuRaya5", u"-", ""},
    VendedorMenuItem{u"It_Integra", u"A&signar", "Ctrl+G"},
    VendedorMenuItem{u"sale", u"&Salir", "Ctrl+F4"},
};

/// The controls of the salespeople form under the names that the ERP's people know them by, made and named;
/// the form places them and wires what they do. They belong to the form.
struct VendedorControls {
    explicit VendedorControls(QMainWindow& form);

    /// Menu item by name; error 9 for an unknown one.
    QAction& menuItem(QStringView name) const;

    QWidget* client = nullptr; ///< the area between menu and status bar
    QGroupBox* frmFiltro = nullptr;
    QLabel* Label3 = nullptr;
    QLineEdit* TxtCodigo = nullptr;
    quorvane::XGrid* XGrid = nullptr;
    QLabel* picYes = nullptr; ///< holds the mark's picture; not shown
    QPushButton* CmdAsignar = nullptr;
    QPushButton* cmdSeleccinar = nullptr;
    StatusPanels* SB = nullptr;

    // Present for programs that look for them; the form itself has no use for them and never shows them.
    QLineEdit* txtDDE = nullptr;
    QLabel* L_Sec = nullptr;
    QListWidget* List1 = nullptr;
    QListWidget* List2 = nullptr;
    QListWidget* List3 = nullptr;
    QListWidget* Ls_CodOri = nullptr;
    QListWidget* Ls_Origen = nullptr;
    QListWidget* Ls_tipcom = nullptr;
    QListWidget* Ls_Codtip = nullptr;

private:
    void makeMenu(QMainWindow& form);
    void makeFilter();
    void makeButtons();
    void makeUnused();

    QMainWindow& m_form;
};

} // namespace dalvora
