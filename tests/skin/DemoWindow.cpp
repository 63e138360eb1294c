#include "tests/skin/DemoWindow.h"

#include "platform/skin/ImageList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

DemoWindow::DemoWindow() {
    setWindowTitle(u"Veltrano"_s);
    resize(860, 580);
    setWindowIcon(skin::windowIcon());
    buildMenus();
    buildToolBar();
    auto* page = new QWidget(this);
    setCentralWidget(page);
    buildHeader(page);
    buildGrid(page);
    buildStatusBar();
}

void DemoWindow::buildMenus() {
    editMenu = menuBar()->addMenu(u"&Editar"_s);
    editMenu->addAction(u"Limpiar"_s, QKeySequence(u"Ctrl+N"_s), this, [] {});
    editMenu->addAction(u"&Leer"_s, QKeySequence(u"F5"_s), this, [] {});
    editMenu->addAction(u"&Eliminar"_s, this, [] {})->setEnabled(false);
    editMenu->addAction(u"&Grabar"_s, QKeySequence(u"Ctrl+G"_s), this, [] {});
    editMenu->addSeparator();
    editMenu->addAction(u"&Cerrar"_s, this, [] {});
    editMenu->addAction(u"&Salir"_s, QKeySequence(u"Alt+F4"_s), this, [] {});
    menuBar()->addMenu(u"&Ver"_s)->addAction(u"&Primer Registro"_s);
    menuBar()->addMenu(u"&Opciones"_s)->addAction(u"&Asignar Comision"_s);
    menuBar()->addMenu(u"&Ayuda"_s)->addAction(u"&Tópico"_s);
}

void DemoWindow::buildToolBar() {
    toolBar = addToolBar(u"Herramientas"_s);
    toolBar->setMovable(false);
    const skin::ImageList normal;
    const skin::ImageList hot(skin::ImageTone::Hot);
    const std::array keys{u"limpiar"_s, u"leer"_s,     u"eliminar"_s,   u"grabar"_s, QString(),
                          u"vprevia"_s, u"imprimir"_s, u"Vendedores"_s, QString(),   u"ayuda"_s};
    for (const QString& key : keys) {
        if (key.isEmpty())
            toolBar->addSeparator();
        else
            toolBar->addAction(skin::toolIcon(normal, hot, key), key)->setObjectName(key);
    }
    findChild<QAction*>(u"eliminar"_s)->setEnabled(false);
}

void DemoWindow::buildHeader(QWidget* page) {
    auto* frame = new QGroupBox(page);
    frame->setGeometry(16, 10, 828, 112);
    const auto field = [frame](const QString& caption, const QString& text, int x, int y, int width) {
        auto* label = new QLabel(caption, frame);
        label->setGeometry(x, y, 84, 23);
        auto* edit = new QLineEdit(text, frame);
        edit->setGeometry(x + 88, y, width, 23);
        return edit;
    };
    field(u"Código"_s, u"VEN-2006"_s, 16, 18, 120);
    auto* lookup = new QPushButton(u"..."_s, frame);
    lookup->setGeometry(228, 17, 28, 26);
    locked = field(u"Descripción"_s, u"Comisión vendedores zona norte"_s, 16, 48, 300);
    locked->setEnabled(false);
    field(u"Observación"_s, u""_s, 16, 78, 300)->setPlaceholderText(u"sin observación"_s);
    const auto date = [frame](const QString& caption, int y) {
        auto* label = new QLabel(caption, frame);
        label->setGeometry(450, y, 84, 23);
        auto* edit = new QDateEdit(QDate(2006, 1, 31), frame);
        edit->setDisplayFormat(u"dd/MM/yyyy"_s);
        edit->setCalendarPopup(true);
        edit->setGeometry(538, y, 110, 23);
    };
    date(u"Fecha Inicio"_s, 18);
    date(u"Fecha Final"_s, 48);
    auto* list = new QComboBox(frame);
    list->addItems({u"Neto"_s, u"Total"_s});
    list->setGeometry(538, 78, 110, 23);
    auto* check = new QCheckBox(u"Porcentajes Acumulables"_s, frame);
    check->setChecked(true);
    check->setGeometry(664, 18, 170, 23);
    auto* one = new QRadioButton(u"Con todos los datos"_s, frame);
    one->setChecked(true);
    one->setGeometry(664, 48, 160, 23);
    auto* two = new QRadioButton(u"Sin totales"_s, frame);
    two->setGeometry(664, 78, 160, 23);
}

void DemoWindow::buildGrid(QWidget* page) {
    auto* tabs = new QTabWidget(page);
    tabs->setGeometry(16, 134, 828, 300);
    grid = new QTableView;
    auto* model = new QStandardItemModel(40, 6, grid);
    model->setHorizontalHeaderLabels(
        {u"Tipo"_s, u"Producto"_s, u"Descripción"_s, u"Inicio Tramo"_s, u"Fin Tramo"_s, u"Porcentaje"_s});
    for (int row = 0; row < 12; ++row) {
        model->setItem(row, 0, new QStandardItem(u"Producto"_s));
        model->setItem(row, 1, new QStandardItem(u"P-%1"_s.arg(100 + row)));
        model->setItem(row, 2, new QStandardItem(u"Queso de cabra añejo"_s));
        for (int column = 3; column < 6; ++column) {
            auto* item = new QStandardItem(u"%1,00"_s.arg(row * column));
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            model->setItem(row, column, item);
        }
    }
    grid->setModel(model);
    grid->verticalHeader()->hide();
    grid->verticalHeader()->setDefaultSectionSize(22);
    grid->setColumnWidth(2, 200);
    grid->setCurrentIndex(model->index(2, 1));
    auto* first = new QWidget;
    auto* layout = new QVBoxLayout(first);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(grid);
    tabs->addTab(first, u"Productos"_s);
    auto* second = new QGroupBox(u"Período de Vigencia"_s);
    second->setCheckable(true);
    tabs->addTab(second, u"Montos"_s);
    tabs->addTab(new QWidget, u"Precios"_s);
    auto* accept = new QPushButton(u"&Aceptar"_s, page);
    accept->setDefault(true);
    accept->move(570, 440);
    accept->resize(accept->sizeHint());
    auto* cancel = new QPushButton(u"&Cancelar"_s, page);
    cancel->move(662, 440);
    cancel->resize(cancel->sizeHint());
    auto* grey = new QPushButton(u"&Imprimir"_s, page);
    grey->setEnabled(false);
    grey->move(754, 440);
    grey->resize(grey->sizeHint());
    auto* period = new QGroupBox(u"Período de Vigencia"_s, page);
    period->setGeometry(16, 434, 300, 46);
}

void DemoWindow::buildStatusBar() {
    const auto panel = [this](const QString& text, int stretch) {
        auto* label = new QLabel(text);
        label->setMinimumWidth(150);
        statusBar()->addWidget(label, stretch);
    };
    panel(u"Leyendo registro ..."_s, 1);
    panel(u"01/01/2006 - 31/01/2006"_s, 0);
    panel(u"Comercial Los Andes"_s, 0);
}

std::unique_ptr<QMessageBox> DemoWindow::question() {
    auto box = std::make_unique<QMessageBox>(QMessageBox::Question, u"Quorvane ERP - Dalvora"_s,
                                             u"¿ Seguro de eliminar registro ?"_s,
                                             QMessageBox::Yes | QMessageBox::No, this);
    box->button(QMessageBox::Yes)->setText(u"&Sí"_s);
    return box;
}
