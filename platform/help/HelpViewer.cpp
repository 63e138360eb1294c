#include "platform/help/HelpViewer.h"

#include "platform/help/ContentsPanel.h"
#include "platform/help/FindBar.h"
#include "platform/help/HelpFile.h"
#include "platform/help/IndexPanel.h"
#include "platform/help/LineIcons.h"
#include "platform/help/PageView.h"
#include "platform/help/SearchPanel.h"

#include <QAction>
#include <QApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWindow>
#include <array>

namespace help {

namespace {

constexpr int ZoomStep = 10;
constexpr int NormalZoom = 100;
constexpr int MessageTime = 5000; // milliseconds
constexpr QSize StartSize(1060, 720);
constexpr QSize SmallestSize(560, 380);
constexpr int PanelWidth = 300;
constexpr QSize IconSize(22, 22);

enum class Place { ToolBar, NewGroup, KeyOnly };

struct Command {
    const char* name;
    const char16_t* text;
    const char16_t* tip;
    const char* keys;
    Place place = Place::KeyOnly;
    Glyph glyph = Glyph::Page;
};

constexpr std::array<Command, 12> Commands{{
    {"panel", u"Ocultar", u"Ocultar o mostrar el panel izquierdo", "", Place::ToolBar, Glyph::Panel},
    {"back", u"Atrás", u"Página anterior", "Alt+Left; Back", Place::NewGroup, Glyph::Back},
    {"forward", u"Adelante", u"Página siguiente", "Alt+Right; Forward", Place::ToolBar, Glyph::Forward},
    {"home", u"Inicio", u"Primera página del manual", "Alt+Home", Place::ToolBar, Glyph::Home},
    {"print", u"Imprimir", u"Imprimir esta página", "Ctrl+P", Place::NewGroup, Glyph::Print},
    {"find", u"Buscar", u"Buscar en esta página", "Ctrl+F", Place::ToolBar, Glyph::Find},
    {"zoomOut", u"Reducir", u"Letra más pequeña", "Ctrl+-", Place::NewGroup, Glyph::ZoomOut},
    {"zoomIn", u"Agrandar", u"Letra más grande", "Ctrl++; Ctrl+=", Place::ToolBar, Glyph::ZoomIn},
    {"zoomNormal", u"Tamaño normal", u"Letra de tamaño normal", "Ctrl+0"},
    {"findNext", u"Siguiente", u"Coincidencia siguiente", "F3"},
    {"findPrevious", u"Anterior", u"Coincidencia anterior", "Shift+F3"},
    {"closeHelp", u"Cerrar", u"Cerrar la ayuda", "Ctrl+F4; Ctrl+W"},
}};

} // namespace

HelpViewer::HelpViewer(QWidget* parent) : QMainWindow(parent) {
    // The help is a guest of the program: closing the program's last own window ends it, help open or not.
    setAttribute(Qt::WA_QuitOnClose, false);
    setObjectName(QStringLiteral("helpViewer"));
    setWindowTitle(tr("Ayuda"));
    setWindowIcon(lineIcon(Glyph::Book));
    setMinimumSize(SmallestSize);
    resize(StartSize);
    buildLayout();
    buildToolBar();
    connectCommands();
    connectPanels();
}

void HelpViewer::buildLayout() {
    m_contents = new ContentsPanel;
    m_index = new IndexPanel;
    m_search = new SearchPanel;
    m_panels = new QTabWidget;
    m_panels->setObjectName(QStringLiteral("panels"));
    m_panels->setDocumentMode(true);
    m_panels->addTab(m_contents, tr("&Contenido"));
    m_panels->addTab(m_index, tr("Í&ndice"));
    m_panels->addTab(m_search, tr("Bú&squeda"));
    auto* reading = new QWidget;
    m_page = new PageView;
    m_page->setObjectName(QStringLiteral("page"));
    m_find = new FindBar(m_page, reading);
    auto* column = new QVBoxLayout(reading);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_page, 1);
    column->addWidget(m_find);
    m_splitter = new QSplitter;
    m_splitter->addWidget(m_panels);
    m_splitter->addWidget(reading);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setSizes({PanelWidth, StartSize.width() - PanelWidth});
    setCentralWidget(m_splitter);
    statusBar()->setSizeGripEnabled(true);
}

void HelpViewer::buildToolBar() {
    auto* bar = addToolBar(tr("Comandos de la ayuda"));
    bar->setObjectName(QStringLiteral("helpBar"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setIconSize(IconSize);
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    for (const Command& command : Commands) {
        auto* action = new QAction(QString::fromUtf16(command.text), this);
        action->setObjectName(QLatin1StringView(command.name));
        action->setShortcuts(QKeySequence::listFromString(QLatin1StringView(command.keys)));
        const QString key = action->shortcut().toString(QKeySequence::NativeText);
        action->setToolTip(QString::fromUtf16(command.tip) +
                           (key.isEmpty() ? key : QStringLiteral(" (%1)").arg(key)));
        addAction(action);
        if (command.place == Place::KeyOnly)
            continue;
        if (command.place == Place::NewGroup)
            bar->addSeparator();
        action->setIcon(lineIcon(command.glyph));
        bar->addAction(action);
    }
}

QAction* HelpViewer::action(const char* name) const {
    return findChild<QAction*>(QLatin1StringView(name));
}

void HelpViewer::connectCommands() {
    action("back")->setEnabled(false);
    action("forward")->setEnabled(false);
    connect(m_page, &QTextBrowser::backwardAvailable, action("back"), &QAction::setEnabled);
    connect(m_page, &QTextBrowser::forwardAvailable, action("forward"), &QAction::setEnabled);
    const auto on = [this](const char* name, auto run) {
        connect(action(name), &QAction::triggered, this, [run](bool) { run(); });
    };
    on("panel", [this] { showPanel(m_panels->isHidden()); });
    on("back", [this] { m_page->backward(); });
    on("forward", [this] { m_page->forward(); });
    on("home", [this] { showPage(m_file ? m_file->homePage() : QString()); });
    on("print", [this] { printPage(); });
    on("find", [this] { m_find->open(); });
    on("findNext", [this] { m_find->findNext(true); });
    on("findPrevious", [this] { m_find->findNext(false); });
    on("zoomOut", [this] { m_page->setZoom(m_page->zoom() - ZoomStep); });
    on("zoomIn", [this] { m_page->setZoom(m_page->zoom() + ZoomStep); });
    on("zoomNormal", [this] { m_page->setZoom(NormalZoom); });
    on("closeHelp", [this] { close(); });
}

void HelpViewer::connectPanels() {
    connect(m_contents, &ContentsPanel::pageChosen, this, &HelpViewer::showPage);
    connect(m_index, &IndexPanel::pageChosen, this, &HelpViewer::showPage);
    connect(m_search, &SearchPanel::pageChosen, this, [this](const QString& page, const QStringList& words) {
        showPage(page);
        m_page->mark(words);
    });
    connect(m_page, &QTextBrowser::sourceChanged, this, &HelpViewer::pageShown);
    connect(m_page, &QTextBrowser::historyChanged, this, &HelpViewer::pageShown);
    connect(m_page, &PageView::linkRefused, this, [this](const QString& address) {
        statusBar()->showMessage(tr("El enlace lleva fuera de la ayuda y no se abre: %1").arg(address),
                                 MessageTime);
    });
    connect(m_panels, &QTabWidget::currentChanged, this, [this](int) {
        if (m_panels->currentWidget() == m_search)
            m_search->focusText();
        else if (m_panels->currentWidget() == m_index)
            m_index->lookFor({});
    });
}

void HelpViewer::setFile(const std::shared_ptr<const HelpFile>& file) {
    if (file == m_file)
        return;
    m_file = file;
    setWindowTitle(file->title());
    m_page->setFile(file);
    m_contents->setFile(*file);
    m_index->setFile(*file);
    m_search->setFile(file);
    showPage(file->homePage());
    m_page->clearHistory();
}

void HelpViewer::pageShown() {
    m_contents->selectPage(m_page->page());
    statusBar()->showMessage(m_page->documentTitle());
}

void HelpViewer::showPanel(bool shown) {
    m_panels->setVisible(shown);
    action("panel")->setText(shown ? tr("Ocultar") : tr("Mostrar"));
}

void HelpViewer::showContents() {
    showPanel(true);
    m_panels->setCurrentWidget(m_contents);
    m_contents->setFocus();
}

void HelpViewer::showIndex(const QString& word) {
    showPanel(true);
    m_panels->setCurrentWidget(m_index);
    m_index->lookFor(word);
}

void HelpViewer::showPage(const QString& page) {
    m_page->showPage(page);
}

void HelpViewer::openPage(const QString& page) {
    showPage(page);
    m_page->setFocus(Qt::OtherFocusReason);
}

void HelpViewer::bringToFront() {
    if (isMinimized())
        setWindowState(windowState() & ~Qt::WindowMinimized);
    // Help asked for from a modal form must be usable: a window that belongs to the form is not blocked by
    // it.
    winId();
    const QWidget* modal = QApplication::activeModalWidget();
    windowHandle()->setTransientParent(modal != nullptr ? modal->window()->windowHandle() : nullptr);
    show();
    raise();
    activateWindow();
}

void HelpViewer::printPage() {
    QPrinter printer;
    printer.setDocName(m_page->documentTitle());
    QPrintDialog dialog(&printer, this);
    dialog.setWindowTitle(tr("Imprimir la página"));
    if (dialog.exec() == QDialog::Accepted)
        m_page->print(&printer);
}

} // namespace help
