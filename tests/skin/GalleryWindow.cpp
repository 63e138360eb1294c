#include "tests/skin/GalleryWindow.h"

#include "platform/skin/ImageList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

GalleryWindow::GalleryWindow() {
    setWindowTitle(u"Opciones"_s);
    new QGridLayout(this);
    addFields();
    addButtons();
    addLists();
}

void GalleryWindow::addFields() {
    auto* box = new QGroupBox(u"Datos"_s);
    box->setCheckable(true);
    auto* grid = new QGridLayout(box);
    list = new QComboBox;
    list->addItems({u"Todos"_s, u"Familia"_s, u"SubFamilia"_s, u"Producto"_s, u"TipoProducto"_s});
    auto* editable = new QComboBox;
    editable->setEditable(true);
    editable->addItem(u"Escrito a mano"_s);
    auto* off = new QComboBox;
    off->addItem(u"No disponible"_s);
    off->setEnabled(false);
    auto* number = new QSpinBox;
    number->setMaximum(100);
    number->setValue(100);
    date = new QDateEdit(QDate(2006, 1, 31));
    date->setCalendarPopup(true);
    auto* readOnly = new QLineEdit(u"Solo lectura"_s);
    readOnly->setReadOnly(true);
    auto* selected = new QLineEdit(u"Texto marcado"_s);
    selected->setObjectName(u"selected"_s);
    selected->selectAll();
    const QList<QWidget*> fields{list, editable, off, number, date, readOnly, selected};
    for (int i = 0; i < fields.size(); ++i)
        grid->addWidget(fields[i], i, 0);
    static_cast<QGridLayout*>(layout())->addWidget(box, 0, 0);
}

void GalleryWindow::addButtons() {
    auto* box = new QGroupBox(u"Acciones"_s);
    auto* grid = new QGridLayout(box);
    auto* plain = new QPushButton(u"&Normal"_s);
    auto* pressed = new QPushButton(u"&Pulsado"_s);
    pressed->setDown(true);
    auto* withIcon = new QPushButton(skin::ImageList().icon(u"aceptar"_s), u"&Con imagen"_s);
    auto* off = new QPushButton(skin::ImageList().icon(u"cerrar"_s), u"&Apagado"_s);
    off->setEnabled(false);
    auto* tool = new QToolButton;
    tool->setText(u"?"_s);
    auto* partial = new QCheckBox(u"&Parcial"_s);
    partial->setTristate(true);
    partial->setCheckState(Qt::PartiallyChecked);
    auto* tickedOff = new QCheckBox(u"Marcado y apagado"_s);
    tickedOff->setChecked(true);
    tickedOff->setEnabled(false);
    auto* radioOff = new QRadioButton(u"Opción apagada"_s);
    radioOff->setChecked(true);
    radioOff->setEnabled(false);
    auto* slider = new QSlider(Qt::Horizontal);
    auto* progress = new QProgressBar;
    progress->setValue(40);
    const QList<QWidget*> buttons{plain,   pressed,   withIcon, off,    tool,
                                  partial, tickedOff, radioOff, slider, progress};
    for (int i = 0; i < buttons.size(); ++i)
        grid->addWidget(buttons[i], i, 0);
    static_cast<QGridLayout*>(layout())->addWidget(box, 0, 1);
}

void GalleryWindow::addLists() {
    auto* tree = new QTreeWidget;
    tree->setHeaderLabel(u"Contenido"_s);
    auto* top = new QTreeWidgetItem(tree, {u"Comisiones"_s});
    top->addChild(new QTreeWidgetItem({u"Productos"_s}));
    top->addChild(new QTreeWidgetItem({u"Montos"_s}));
    tree->expandAll();
    tree->setCurrentItem(top->child(0));
    auto* ticks = new QListWidget;
    for (const QString& name :
         {u"Primera línea"_s, u"Segunda línea"_s, u"Tercera línea, mucho más larga"_s}) {
        auto* item = new QListWidgetItem(name, ticks);
        item->setCheckState(name.size() % 2 ? Qt::Checked : Qt::Unchecked);
    }
    auto* text = new QPlainTextEdit(u"Texto de varias líneas\nque se puede leer"_s);
    auto* tabs = new QTabWidget;
    tabs->addTab(tree, u"Contenido"_s);
    tabs->addTab(ticks, u"Índice"_s);
    tabs->addTab(new QLabel, u"Buscar"_s);
    tabs->setTabEnabled(2, false);
    auto* grid = static_cast<QGridLayout*>(layout());
    grid->addWidget(tabs, 0, 2);
    grid->addWidget(text, 1, 0, 1, 2);
    auto* second = new QListWidget;
    second->addItems(
        {u"Ana Gómez"_s, u"Luis Pérez"_s, u"Una persona con un nombre que no cabe en la lista"_s});
    second->setFixedHeight(90);
    second->setCurrentRow(1);
    text->setFixedHeight(90);
    grid->addWidget(second, 1, 2);
}

QMenu* GalleryWindow::contextMenu() {
    auto* menu = new QMenu(this);
    menu->addAction(skin::ImageList().icon(u"grabar"_s), u"&Grabar"_s);
    auto* off = menu->addAction(skin::ImageList().icon(u"eliminar"_s), u"&Eliminar"_s);
    off->setEnabled(false);
    auto* ticked = menu->addAction(u"&Ver totales"_s);
    ticked->setCheckable(true);
    ticked->setChecked(true);
    menu->addSeparator();
    menu->addMenu(u"&Exportar"_s)->addAction(u"Texto"_s);
    menu->setActiveAction(ticked);
    return menu;
}
