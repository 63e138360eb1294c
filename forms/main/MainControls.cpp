#include "forms/main/MainControls.h"
#include "forms/Named.h"
#include "forms/Twips.h"
#include "forms/main/MainCommands.h"
#include "forms/main/StatusPanels.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QGridLayout>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

namespace dalvora {

namespace {

constexpr int toolIconSize = 32;
constexpr int toolbarHeight = 54;
constexpr int commandDelay = 100;

QKeySequence shortcutOf(const char* text) {
    return QKeySequence::fromString(QLatin1String(text), QKeySequence::PortableText);
}

QAction& found(QAction* action) {
    if (!action)
        quorvane::raise(quorvane::ErrorSubscript);
    return *action;
}

} // namespace

MainControls::MainControls(QMainWindow& form) : m_form(form) {
    client = new QWidget(&form);
    form.setCentralWidget(client);
    makeMenus(form);
    makeToolbar(form);
    StatusBar = new StatusPanels(&form);
    form.setStatusBar(StatusBar);
    makeHeader();
    layOutHeader();
    makeOptions();
    makeTabs();
    makeFocusTaker(form);
}

QAction& MainControls::button(QStringView key) const {
    return found(Toolbar->findChild<QAction*>(key.toString(), Qt::FindDirectChildrenOnly));
}

QAction& MainControls::menuItem(QStringView name) const {
    return found(m_form.menuBar()->findChild<QAction*>(name.toString()));
}

void MainControls::makeToolbar(QMainWindow& form) {
    Toolbar = named(new QToolBar(&form), "Toolbar", QStringLiteral("Barra de comandos"));
    Toolbar->setWindowTitle(QStringLiteral("Barra de comandos"));
    Toolbar->setMovable(false);
    Toolbar->setContextMenuPolicy(Qt::PreventContextMenu);
    Toolbar->setFixedHeight(toolbarHeight);
    Toolbar->setIconSize({toolIconSize, toolIconSize});
    for (const ToolbarCommand& command : toolbarCommands) {
        auto* action = new QAction(Toolbar);
        action->setObjectName(command.key.toString());
        action->setText(command.toolTip.toString().trimmed());
        action->setToolTip(command.toolTip.toString());
        action->setIcon(skin::toolIcon(imgIngresoCo, imgIngresoSH, command.image.toString()));
        action->setShortcut(shortcutOf(command.shortcut));
        Toolbar->addAction(action);
        Toolbar->widgetForAction(action)->setObjectName(QStringLiteral("button_") + command.key.toString());
    }
    form.addToolBar(Toolbar);
}

void MainControls::makeMenus(QMainWindow& form) {
    for (const MenuTitle& title : menuTitles) {
        QMenu* menu = form.menuBar()->addMenu(title.caption.toString());
        menu->setObjectName(title.name.toString());
        for (const MenuCommand& command : menuCommands) {
            if (command.menu != title.name)
                continue;
            auto* action = new QAction(menu);
            action->setObjectName(command.name.toString());
            if (command.caption == u"-") {
                action->setSeparator(true);
            } else {
                action->setText(command.caption.toString());
                action->setShortcut(shortcutOf(command.shortcut));
            }
            action->setProperty("Key", command.key.toString());
            menu->addAction(action);
        }
    }
}

void MainControls::makeHeader() {
    Frame1 = named(new QGroupBox(client), "Frame1", QStringLiteral("Encabezado"));
    const auto label = [this](const char* name, const QString& text, QWidget* buddy) {
        auto* made = named(new QLabel(text, Frame1), name, text);
        made->setBuddy(buddy);
        return made;
    };
    TxtCodigo = named(new QLineEdit(Frame1), "TxtCodigo", QStringLiteral("Código"));
    TxtCodigo->setToolTip(QStringLiteral("Código de la comisión (F8 muestra la lista)"));
    coCodigo =
        named(new QPushButton(QStringLiteral("..."), Frame1), "coCodigo", QStringLiteral("Buscar código"));
    coCodigo->setToolTip(QStringLiteral("Buscar una comisión (F8)"));
    coCodigo->setAutoDefault(false);
    // F8 in the code does the same: Tab goes from entry to entry.
    coCodigo->setFocusPolicy(Qt::ClickFocus);
    TxtGlosa = named(new QLineEdit(Frame1), "TxtGlosa", QStringLiteral("Descripción"));
    FecIni = named(new quorvane::XDate(Frame1), "FecIni", QStringLiteral("Fecha Inicio"));
    FecFin = named(new quorvane::XDate(Frame1), "FecFin", QStringLiteral("Fecha Final"));
    for (quorvane::XDate* date : {FecIni, FecFin})
        date->setMask(QStringLiteral("short date"));
    CheckP = named(new QCheckBox(QStringLiteral("Porcentajes Acumulables"), Frame1), "CheckP",
                   QStringLiteral("Porcentajes Acumulables"));
    Label1 = label("Label1", QStringLiteral("Código"), TxtCodigo);
    Label2 = label("Label2", QStringLiteral("Descripción"), TxtGlosa);
    Label5 = label("Label5", QStringLiteral("Fecha Inicio"), FecIni);
    Label6 = label("Label6", QStringLiteral("Fecha Final"), FecFin);
}

void MainControls::layOutHeader() {
    constexpr int lookupWidth = 28;
    constexpr int groupGap = 28;
    coCodigo->setFixedWidth(lookupWidth);
    auto* grid = new QGridLayout(Frame1);
    grid->setContentsMargins(16, 14, 16, 14);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(10);
    grid->addWidget(Label1, 0, 0);
    grid->addWidget(TxtCodigo, 0, 1);
    grid->addWidget(coCodigo, 0, 2);
    grid->setColumnMinimumWidth(3, groupGap);
    grid->addWidget(Label2, 0, 4);
    grid->addWidget(TxtGlosa, 0, 5, 1, 4);
    grid->addWidget(Label5, 1, 0);
    grid->addWidget(FecIni, 1, 1, Qt::AlignLeft);
    grid->addWidget(Label6, 1, 4);
    grid->addWidget(FecFin, 1, 5, Qt::AlignLeft);
    grid->setColumnMinimumWidth(7, groupGap);
    grid->addWidget(CheckP, 1, 8, Qt::AlignRight);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(6, 3);
    for (quorvane::XDate* date : {FecIni, FecFin})
        date->setFixedWidth(date->sizeHint().width());
    // The end date completes the key and reads, so the description comes before it.
    QWidget* const order[] = {TxtCodigo, TxtGlosa, FecIni, FecFin, CheckP};
    for (std::size_t i = 1; i < std::size(order); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}

void MainControls::makeOptions() {
    Frame2 = named(new QGroupBox(client), "Frame2", QStringLiteral("Porcentajes"));
    Opt_Producto = named(new QRadioButton(QStringLiteral("Porcentajes Acumulables"), Frame2), "Opt_Producto",
                         QStringLiteral("Porcentajes Acumulables"));
    Opt_Monto = named(new QRadioButton(QStringLiteral("Porcentajes No Acumulables"), Frame2), "Opt_Monto",
                      QStringLiteral("Porcentajes No Acumulables"));
    Frame2->hide();
}

void MainControls::makeTabs() {
    SSTab1 = named(new QTabWidget(client), "SSTab1", QStringLiteral("Líneas de la comisión"));
    const auto page = [this](const char* name, const QString& caption) {
        auto* holder = new QWidget(SSTab1);
        auto* grid = named(new quorvane::XGrid(holder), name, caption);
        SSTab1->addTab(holder, caption);
        return grid;
    };
    XGrid = page("XGrid", QStringLiteral("Productos"));
    XGrid2 = page("XGrid2", QStringLiteral("Montos"));
    XGrid3 = page("XGrid3", QStringLiteral("Precios"));
}

void MainControls::makeFocusTaker(QMainWindow& form) {
    txt_Focus = named(new QLineEdit(client), "txt_Focus", QStringLiteral("Orden"));
    txt_Focus->setFocusPolicy(Qt::NoFocus);
    txt_Focus->setReadOnly(true);
    txt_Focus->setFrame(false);
    txt_Focus->setStyleSheet(QStringLiteral("background: transparent"));
    txt_Focus->setGeometry(0, 0, 1, 1);
    timFocus = new QTimer(&form);
    timFocus->setObjectName(QStringLiteral("timFocus"));
    timFocus->setSingleShot(true);
    timFocus->setInterval(commandDelay);
}

} // namespace dalvora
