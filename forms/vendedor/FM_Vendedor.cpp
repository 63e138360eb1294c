#include "forms/vendedor/FM_Vendedor.h"
#include "common/ShowMessage.h"
#include "data/SessionContext.h"
#include "forms/HourGlass.h"
#include "forms/Twips.h"
#include "forms/main/StatusPanels.h"
#include <QEvent>
#include <QMenuBar>

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::RunTimeError;

namespace {

constexpr QSize startSize{760, 520};

// Sizes of the resize rule, in twips.
constexpr int leastWidth = 9000;
constexpr int leastHeight = 6000;
constexpr int besideFrame = 300;
constexpr int aroundGrid = 2400;
constexpr int besideColumns = 500;
constexpr int besideButtons = 150;

// Where the controls stand, in pixels.
constexpr int edge = 5;
constexpr int frameTop = 8;
constexpr int frameHeight = 64;
constexpr int gap = 10;
constexpr QSize buttonSize{104, 30};

} // namespace

FM_Vendedor::FM_Vendedor(SessionContext& context)
    : m_controls(*this)
    , m_context(context)
    , m_salespeople(context)
    , m_list(*m_controls.XGrid, [this] { LeerCtactes(); }) {
    setObjectName(u"FM_Vendedor"_s);
    setWindowTitle(u"Asignación de Comisiones a Vendedores"_s);
    wireCommands();
    resize(startSize);
}

FM_Vendedor::~FM_Vendedor() = default;

void FM_Vendedor::wireCommands() {
    const auto onMenu = [this](QStringView item, void (FM_Vendedor::*command)()) {
        connect(&m_controls.menuItem(item), &QAction::triggered, this, command);
    };
    onMenu(u"mnuRefrescar", &FM_Vendedor::LeerCtactes);
    onMenu(u"It_Integra", &FM_Vendedor::assignScheme);
    connect(&m_controls.menuItem(u"It_Sel"), &QAction::triggered, this, [this] { m_list.toggleSelection(); });
    connect(&m_controls.menuItem(u"sale"), &QAction::triggered, this, &QWidget::close);
    connect(m_controls.TxtCodigo, &QLineEdit::returnPressed, this, &FM_Vendedor::LeerCtactes);
    connect(m_controls.XGrid, &quorvane::XGrid::cellClicked, this, [this] { m_list.toggleMark(); });
    connect(m_controls.cmdSeleccinar, &QPushButton::clicked, this, [this] { m_list.toggleSelection(); });
    connect(m_controls.CmdAsignar, &QPushButton::clicked, this, &FM_Vendedor::assignScheme);
}

void FM_Vendedor::open() {
    const bool loads = !isVisible();
    if (isMinimized())
        showNormal();
    else
        show();
    raise();
    activateWindow();
    if (loads)
        Form_Load();
}

void FM_Vendedor::Form_Load() {
    m_controls.SB->setText(panelMensaje, {});
    // This form leaves the company's panel blank, unlike the main form.
    m_controls.SB->setText(panelEmpresa, {});
    m_controls.TxtCodigo->clear();
    m_controls.TxtCodigo->setFocus();
    m_list.clear();
    m_list.setUpGrid();
    fillGridWidth();
    LeerCtactes();
    showScheme();
}

void FM_Vendedor::closeEvent(QCloseEvent* event) {
    QMainWindow::closeEvent(event);
    m_list.clear();
    m_list.resetMarkedCount();
}

void FM_Vendedor::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // The main form may hold another scheme since this window was last in front.
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        showScheme();
}

void FM_Vendedor::showScheme() {
    m_controls.SB->setText(panelMensaje, u"Comisión: "_s + m_salespeople.schemeCode());
}

void FM_Vendedor::LeerCtactes() {
    // Marks that stay on screen because nothing may be read do not count any more: assigning then asks for
    // marks, and taking such a mark away brings the count below 0.
    m_list.resetMarkedCount();
    try {
        if (!m_salespeople.mayRead()) {
            ShowMessage(u"Usuario No Tiene Permiso de Lectura"_s, MessageError);
            return;
        }
        readList();
    } catch (const RunTimeError& error) {
        showScheme();
        ShowMessage(error.description(), MessageError);
    }
}

void FM_Vendedor::readList() {
    const HourGlass working;
    m_controls.SB->setText(panelMensaje, u"Leyendo..."_s);
    m_list.clear();
    std::vector<Salesperson> people;
    try {
        m_salespeople.read(m_controls.TxtCodigo->text(), people);
    } catch (const RunTimeError&) {
        m_list.show(std::move(people));
        throw;
    }
    m_list.show(std::move(people));
    if (m_controls.XGrid->rows() > 1)
        m_controls.XGrid->setRow(1);
    showScheme();
}

void FM_Vendedor::assignScheme() {
    if (m_list.markedCount() == 0) {
        ShowMessage(u"Debe seleccionar vendedores para asignarles la comisión"_s, MessageInformation);
        return;
    }
    try {
        const HourGlass working;
        const QString scheme = m_salespeople.schemeCode();
        for (const QString& code : m_list.markedCodes())
            m_salespeople.assign(scheme, code);
    } catch (const RunTimeError& error) {
        ShowMessage(error.description(), MessageError);
    }
    LeerCtactes();
}

void FM_Vendedor::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // The menu bar has its height now.
    placeControls();
}

void FM_Vendedor::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    Form_Resize();
}

void FM_Vendedor::Form_Resize() {
    if (isMinimized())
        return;
    keepLeastSize();
    placeControls();
}

void FM_Vendedor::keepLeastSize() {
    constexpr QSize least{twipsToPixels(leastWidth), twipsToPixels(leastHeight)};
    if (width() < least.width() || height() < least.height())
        resize(size().expandedTo(least));
}

void FM_Vendedor::placeControls() {
    QWidget& frame = *m_controls.frmFiltro;
    QWidget& grid = *m_controls.XGrid;
    const int frameWidth = width() - m_controls.cmdSeleccinar->width() - twipsToPixels(besideFrame);
    frame.setGeometry(edge, frameTop, frameWidth > 0 ? frameWidth : frame.width(), frameHeight);
    const int gridHeight = height() - twipsToPixels(aroundGrid);
    const int gridTop = frameTop + frameHeight + gap;
    grid.setGeometry(edge, gridTop, frame.width(), gridHeight > 0 ? gridHeight : grid.height());
    int top = gridTop;
    for (QPushButton* button : {m_controls.cmdSeleccinar, m_controls.CmdAsignar}) {
        button->resize(buttonSize);
        const int left = width() - button->width() - twipsToPixels(besideButtons);
        button->move(left > 0 ? left : button->x(), top);
        top += button->height() + gap;
    }
    fillGridWidth();
}

void FM_Vendedor::fillGridWidth() {
    quorvane::XGrid& grid = *m_controls.XGrid;
    if (grid.cols() < SalespeopleList::ColumnCount)
        return;
    int room = pixelsToTwips(m_controls.frmFiltro->width(), logicalDpiX()) - besideColumns;
    for (int column = 0; column < grid.cols(); ++column)
        if (column != SalespeopleList::Descripcion)
            room -= grid.column(column).width();
    if (room > 0)
        grid.column(SalespeopleList::Descripcion).setWidth(room);
}

} // namespace dalvora
