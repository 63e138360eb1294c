#include "ui/toolbar/demo/DemoWindow.h"
#include "platform/skin/ImageList.h"
#include "ui/toolbar/demo/StateBoard.h"
#include <QActionGroup>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace dalvora::toolbar {

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSide = 24;
constexpr int margin = 16;

QIcon iconOf(const QString& key) {
    return skin::toolIcon(skin::ImageList(), skin::ImageList(skin::ImageTone::Hot), key);
}

QAction* addButton(QToolBar& toolbar, const QString& key, const QString& caption) {
    return toolbar.addAction(iconOf(key), caption);
}

QAction* addChecked(QToolBar& toolbar, const QString& key, const QString& caption, bool checked) {
    QAction* action = addButton(toolbar, key, caption);
    action->setCheckable(true);
    action->setChecked(checked);
    return action;
}

void addDropDown(QToolBar& toolbar, const QString& key, const QString& caption) {
    auto* menu = new QMenu(&toolbar);
    menu->addAction(u"Vista previa"_s);
    menu->addAction(u"Imprimir todo"_s);
    QAction* action = addButton(toolbar, key, caption);
    action->setMenu(menu);
    qobject_cast<QToolButton*>(toolbar.widgetForAction(action))->setPopupMode(QToolButton::MenuButtonPopup);
}

/// A toolbar is taken by the window that contains it.
QWidget* makeContainer(QWidget* parent) {
    auto* container = new QWidget(parent);
    auto* layout = new QVBoxLayout(container);
    layout->setContentsMargins({});
    return container;
}

QLabel* boldLabel(const QString& text) {
    auto* label = new QLabel(text);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

} // namespace

QImage shippedSkin() {
    return QImage(QCoreApplication::applicationDirPath() + u"/../Styles/LightBlueToolbar.bmp"_s);
}

DemoWindow::DemoWindow(const QImage& skinPicture) : m_skinPicture(skinPicture) {
    setWindowTitle(u"Barras de herramientas con piel"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(margin);
    grid->setVerticalSpacing(margin / 2);
    grid->addWidget(boldLabel(u"Con piel"_s), 0, 0);
    grid->addWidget(boldLabel(u"Sin piel"_s), 0, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    addToolbars(*grid, 1, u"Texto debajo de la imagen"_s, Qt::ToolButtonTextUnderIcon, false);
    addToolbars(*grid, 2, u"Texto a la derecha"_s, Qt::ToolButtonTextUnderIcon, true);
    addToolbars(*grid, 3, u"Solo imágenes"_s, Qt::ToolButtonIconOnly, false);
    layout->addLayout(grid);
    layout->addWidget(new StateBoard(ToolbarPainter(ToolbarSkin(m_skinPicture)), iconOf(u"grabar"_s), this));
}

void DemoWindow::addToolbars(QGridLayout& grid, int row, const QString& title, Qt::ToolButtonStyle style,
                             bool forceTextRight) {
    QWidget* skinned = makeContainer(this);
    QToolBar* toolbar = makeToolbar(*skinned, style);
    toolbar->setAccessibleName(title);
    if (!m_firstSkinned)
        m_firstSkinned = toolbar;
    auto& skin = m_skins.emplace_back(std::make_unique<cSubclassToolBar>(m_reporter));
    skin->SetSkinPicture(m_skinPicture);
    skin->SubClassToolBar(skinned, forceTextRight);
    grid.addWidget(skinned, row, 0);

    QWidget* plain = makeContainer(this);
    makeToolbar(*plain, forceTextRight ? Qt::ToolButtonTextBesideIcon : style)->setAccessibleName(title);
    grid.addWidget(plain, row, 1);
}

QToolBar* DemoWindow::makeToolbar(QWidget& container, Qt::ToolButtonStyle style) const {
    auto* toolbar = new QToolBar(&container);
    container.layout()->addWidget(toolbar);
    toolbar->setIconSize({iconSide, iconSide});
    toolbar->setToolButtonStyle(style);
    addButton(*toolbar, u"limpiar"_s, u"Limpiar"_s);
    addButton(*toolbar, u"leer"_s, u"Leer"_s);
    addButton(*toolbar, u"eliminar"_s, u"Eliminar"_s)->setEnabled(false);
    toolbar->addSeparator();
    addChecked(*toolbar, u"grid"_s, u"Filtro"_s, true);
    toolbar->addSeparator();
    auto* group = new QActionGroup(toolbar);
    group->addAction(addChecked(*toolbar, u"texto"_s, u"Mes"_s, true));
    group->addAction(addChecked(*toolbar, u"excel"_s, u"Año"_s, false));
    toolbar->addSeparator();
    addDropDown(*toolbar, u"imprimir"_s, u"Imprimir"_s);
    return toolbar;
}

void DemoWindow::pointAtButton() {
    const QWidget* button = m_firstSkinned->widgetForAction(m_firstSkinned->actions().at(1));
    QCursor::setPos(button->mapToGlobal(button->rect().center()));
}

} // namespace dalvora::toolbar
