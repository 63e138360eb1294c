#include "forms/vendedor/VendedorControls.h"
#include "forms/Named.h"
#include "forms/main/StatusPanels.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/skin/ImageList.h"
#include <QHBoxLayout>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace dalvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int filterWidth = 160;
constexpr int markSize = 16;

} // namespace

VendedorControls::VendedorControls(QMainWindow& form) : m_form(form) {
    client = new QWidget(&form);
    form.setCentralWidget(client);
    makeMenu(form);
    SB = new StatusPanels(&form);
    SB->setObjectName(u"SB"_s);
    SB->setText(panelPeriodo, u"Periodo"_s);
    form.setStatusBar(SB);
    makeFilter();
    XGrid = named(new quorvane::XGrid(client), "XGrid", u"Vendedores"_s);
    makeButtons();
    makeUnused();
    QWidget::setTabOrder(TxtCodigo, XGrid);
    QWidget::setTabOrder(XGrid, cmdSeleccinar);
    QWidget::setTabOrder(cmdSeleccinar, CmdAsignar);
}

QAction& VendedorControls::menuItem(QStringView name) const {
    auto* item = m_form.menuBar()->findChild<QAction*>(name.toString());
    if (!item)
        quorvane::raise(quorvane::ErrorSubscript);
    return *item;
}

void VendedorControls::makeMenu(QMainWindow& form) {
    QMenu* menu = form.menuBar()->addMenu(u"&Administración"_s);
    menu->setObjectName(u"mnuAdministracion"_s);
    for (const VendedorMenuItem& item : vendedorMenu) {
        auto* action = new QAction(menu);
        action->setObjectName(item.name.toString());
        if (item.caption == u"-") {
            action->setSeparator(true);
        } else {
            action->setText(item.caption.toString());
            action->setShortcut(
                QKeySequence::fromString(QLatin1String(item.shortcut), QKeySequence::PortableText));
        }
        menu->addAction(action);
    }
}

void VendedorControls::makeFilter() {
    frmFiltro = named(new QGroupBox(u"Filtros"_s, client), "frmFiltro", u"Filtros"_s);
    TxtCodigo = named(new QLineEdit(frmFiltro), "TxtCodigo", u"Vendedor"_s);
    TxtCodigo->setToolTip(u"Comienzo del código; Entrar lee la lista"_s);
    TxtCodigo->setFixedWidth(filterWidth);
    Label3 = named(new QLabel(u"Vendedor"_s, frmFiltro), "Label3", u"Vendedor"_s);
    Label3->setBuddy(TxtCodigo);
    auto* row = new QHBoxLayout(frmFiltro);
    row->setContentsMargins(12, 4, 12, 8);
    row->setSpacing(8);
    row->addWidget(Label3);
    row->addWidget(TxtCodigo);
    row->addStretch();
}

void VendedorControls::makeButtons() {
    cmdSeleccinar = named(new QPushButton(u"&Seleccionar"_s, client), "cmdSeleccinar", u"Seleccionar"_s);
    cmdSeleccinar->setToolTip(u"Marca o desmarca las filas seleccionadas (Ctrl+L)"_s);
    CmdAsignar = named(new QPushButton(u"A&signar"_s, client), "CmdAsignar", u"Asignar"_s);
    CmdAsignar->setToolTip(u"Asigna la comisión leída a los vendedores marcados (Ctrl+G)"_s);
}

void VendedorControls::makeUnused() {
    picYes = named(new QLabel(client), "picYes", u"Marcado"_s);
    picYes->setPixmap(skin::ImageList().icon(u"aceptar"_s).pixmap(markSize));
    txtDDE = named(new QLineEdit(client), "txtDDE", {});
    L_Sec = named(new QLabel(client), "L_Sec", {});
    const auto list = [this](const char* name) { return named(new QListWidget(client), name, {}); };
    List1 = list("List1");
    List2 = list("List2");
    List3 = list("List3");
    Ls_CodOri = list("Ls_CodOri");
    Ls_Origen = list("Ls_Origen");
    Ls_tipcom = list("Ls_tipcom");
    Ls_Codtip = list("Ls_Codtip");
    for (QWidget* unused : std::initializer_list<QWidget*>{picYes, txtDDE, L_Sec, List1, List2, List3,
                                                           Ls_CodOri, Ls_Origen, Ls_tipcom, Ls_Codtip})
        unused->hide();
}

} // namespace dalvora
