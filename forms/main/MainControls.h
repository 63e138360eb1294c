#pragma once

#include "platform/quorvane32/grid/XDate.h"
#include "platform/quorvane32/grid/XGrid.h"
#include "platform/skin/ImageList.h"
#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <array>

class QMainWindow;

namespace dalvora {

class StatusPanels;

/// The controls of the main form under the names that the ERP's people know them by, made and placed; what
/// they do is wired elsewhere. They belong to the form.
struct MainControls {
    explicit MainControls(QMainWindow& form);

    /// Toolbar button by key; error 9 for an unknown one.
    QAction& button(QStringView key) const;
    /// Menu item by name; error 9 for an unknown one.
    QAction& menuItem(QStringView name) const;
    /// The three grids in the order of their tabs.
    std::array<quorvane::XGrid*, 3> grids() const { return {XGrid, XGrid2, XGrid3}; }

    skin::ImageList imgIngresoCo{skin::ImageTone::Normal};
    skin::ImageList imgIngresoSH{skin::ImageTone::Hot};
    QToolBar* Toolbar = nullptr;
    StatusPanels* StatusBar = nullptr;

    QWidget* client = nullptr; ///< the area between toolbar and status bar
    QGroupBox* Frame1 = nullptr;
    QLabel* Label1 = nullptr;
    QLineEdit* TxtCodigo = nullptr;
    QPushButton* coCodigo = nullptr;
    QLabel* Label2 = nullptr;
    QLineEdit* TxtGlosa = nullptr;
    QLabel* Label5 = nullptr;
    quorvane::XDate* FecIni = nullptr;
    QLabel* Label6 = nullptr;
    quorvane::XDate* FecFin = nullptr;
    QCheckBox* CheckP = nullptr;
    /// The choice of CheckP as two options; hidden, since CheckP says the same in one control.
    QGroupBox* Frame2 = nullptr;
    QRadioButton* Opt_Producto = nullptr;
    QRadioButton* Opt_Monto = nullptr;

    QTabWidget* SSTab1 = nullptr;
    quorvane::XGrid* XGrid = nullptr;
    quorvane::XGrid* XGrid2 = nullptr;
    quorvane::XGrid* XGrid3 = nullptr;

    /// Takes the focus before a command, so that the entry in progress is stored first. One pixel, no border.
    QLineEdit* txt_Focus = nullptr;
    /// Runs the command whose key stands in its property "Tag".
    QTimer* timFocus = nullptr;

private:
    void makeToolbar(QMainWindow& form);
    void makeMenus(QMainWindow& form);
    void makeHeader();
    void layOutHeader();
    void makeOptions();
    void makeTabs();
    void makeFocusTaker(QMainWindow& form);

    QMainWindow& m_form;
};

} // namespace dalvora
