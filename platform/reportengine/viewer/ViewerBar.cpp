#include "platform/reportengine/viewer/ViewerBar.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/viewer/ZoomSteps.h"
#include "platform/skin/ImageList.h"
#include <QAction>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <cmath>

namespace quorvane::report {

using namespace Qt::StringLiterals;

namespace {

enum class Icons { None, Program, Report };
/// Where a command stands in the bar: what comes before it, or nowhere.
enum class Place { Next, Group, PageEntry, ZoomEntry, ExportMenu, KeyOnly };

struct Command {
    QStringView name;
    QStringView text;
    QStringView tip;
    const char* keys;
    Icons icons;
    QStringView icon;
    Place place;
};

constexpr std::array commands{
    Command{u"panel", u"Grupos", u"Mostrar u ocultar los grupos", "F4", Icons::Report, u"panel", Place::Next},
    Command{u"print", u"Imprimir", u"Imprimir el informe", "Ctrl+P", Icons::Program, u"imprimir",
            Place::Group},
    Command{u"exportPdf", u"Documento &PDF...", u"Exportar a un documento PDF", "Ctrl+E", Icons::None, u"",
            Place::ExportMenu},
    Command{u"exportXlsx", u"Planilla de &cálculo...", u"Exportar a una planilla de cálculo (.xlsx)",
            "Ctrl+Shift+X", Icons::None, u"", Place::ExportMenu},
    Command{u"exportCsv", u"&Texto separado...", u"Exportar a texto separado (CSV)", "Ctrl+Shift+T",
            Icons::None, u"", Place::ExportMenu},
    Command{u"copy", u"Copiar", u"Copiar lo marcado", "Ctrl+C", Icons::Report, u"copiar", Place::Next},
    Command{u"first", u"Primera", u"Primera página", "Ctrl+Home", Icons::Program, u"inicio", Place::Group},
    Command{u"previous", u"Anterior", u"Página anterior", "Ctrl+PgUp", Icons::Program, u"retrocede",
            Place::Next},
    Command{u"next", u"Siguiente", u"Página siguiente", "Ctrl+PgDown", Icons::Program, u"avanza",
            Place::PageEntry},
    Command{u"last", u"Última", u"Última página", "Ctrl+End", Icons::Program, u"final", Place::Next},
    Command{u"zoomOut", u"Reducir", u"Ver más pequeño", "Ctrl+-", Icons::Report, u"alejar", Place::Group},
    Command{u"zoomIn", u"Ampliar", u"Ver más grande", "Ctrl++; Ctrl+=", Icons::Report, u"acercar",
            Place::ZoomEntry},
    Command{u"fitWidth", u"Ancho de página", u"Ajustar al ancho de la página", "Ctrl+2", Icons::Report,
            u"ancho", Place::Next},
    Command{u"fitPage", u"Página entera", u"Ajustar a la página entera", "Ctrl+1", Icons::Report, u"pagina",
            Place::Next},
    Command{u"find", u"Buscar", u"Buscar un texto en el informe", "Ctrl+F", Icons::Report, u"buscar",
            Place::Group},
    Command{u"findNext", u"Siguiente", u"", "F3", Icons::None, u"", Place::KeyOnly},
    Command{u"findPrevious", u"Anterior", u"", "Shift+F3", Icons::None, u"", Place::KeyOnly},
    Command{u"fullSize", u"100 %", u"", "Ctrl+0", Icons::None, u"", Place::KeyOnly},
    Command{u"goTo", u"Ir a la página", u"", "Ctrl+G", Icons::None, u"", Place::KeyOnly},
    Command{u"selectPage", u"Marcar la página", u"", "Ctrl+A", Icons::None, u"", Place::KeyOnly},
};

constexpr int iconSide = 24;
constexpr int pageDigits = 7;
constexpr int fieldPadding = 18;
constexpr int comboPadding = 44;
constexpr double hundred = 100;

QIcon iconOf(const Command& command) {
    const QString key = command.icon.toString();
    if (command.icons == Icons::None)
        return {};
    if (command.icons == Icons::Report)
        return skin::reportIcon(key);
    return skin::toolIcon(skin::ImageList(), skin::ImageList(skin::ImageTone::Hot), key);
}

QAction* makeAction(const Command& command, QWidget& owner) {
    auto* action = new QAction(command.text.toString(), &owner);
    action->setObjectName(command.name.toString());
    action->setIcon(iconOf(command));
    action->setShortcuts(QKeySequence::listFromString(QLatin1StringView(command.keys)));
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    const QString key = action->shortcut().toString(QKeySequence::NativeText);
    action->setToolTip(command.tip.toString() + (key.isEmpty() ? key : u" (%1)"_s.arg(key)));
    return action;
}

QString percent(double zoom) {
    return u"%1 %"_s.arg(std::lround(zoom * hundred));
}

QString grouped(int number) {
    return RegionalSettings().groupedText(number, 0);
}

} // namespace

ViewerBar::ViewerBar(QWidget* parent)
    : QToolBar(parent), m_page(new QLineEdit(this)), m_count(new QLabel(this)), m_zoom(new QComboBox(this)) {
    setObjectName(u"viewerBar"_s);
    setWindowTitle(u"Comandos del informe"_s);
    setAccessibleName(u"Comandos del informe"_s);
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setIconSize({iconSide, iconSide});
    addPageControls();
    addZoomControls();
    addCommands();
}

QAction& ViewerBar::action(QStringView name) const {
    auto* found = parentWidget()->findChild<QAction*>(name.toString(), Qt::FindDirectChildrenOnly);
    if (!found)
        quorvane::raise(ErrorSubscript);
    return *found;
}

void ViewerBar::addCommands() {
    auto* exports = new QToolButton(this);
    exports->setObjectName(u"export"_s);
    exports->setIcon(skin::reportIcon(u"exportar"_s));
    exports->setText(u"Exportar"_s);
    exports->setToolTip(u"Exportar a PDF, planilla de cálculo o texto separado"_s);
    exports->setAccessibleName(u"Exportar"_s);
    exports->setPopupMode(QToolButton::InstantPopup);
    exports->setAutoRaise(true);
    exports->setMenu(new QMenu(exports));
    exports->menu()->setObjectName(u"exportMenu"_s);
    for (const Command& command : commands) {
        QAction* action = makeAction(command, *parentWidget());
        // The keys work wherever in the viewer the keyboard is.
        parentWidget()->addAction(action);
        if (command.place == Place::KeyOnly)
            continue;
        if (command.place == Place::ExportMenu) {
            if (exports->menu()->isEmpty())
                addWidget(exports);
            exports->menu()->addAction(action);
            continue;
        }
        if (command.place == Place::Group)
            addSeparator();
        if (command.place == Place::PageEntry) {
            addWidget(m_page);
            addWidget(m_count);
        }
        if (command.place == Place::ZoomEntry)
            addWidget(m_zoom);
        addAction(action);
        widgetForAction(action)->setObjectName(u"button_"_s + command.name.toString());
        widgetForAction(action)->setAccessibleName(command.text.toString());
    }
    action(u"panel").setCheckable(true);
    action(u"fitWidth").setCheckable(true);
    action(u"fitPage").setCheckable(true);
}

void ViewerBar::addPageControls() {
    m_page->setObjectName(u"pageNumber"_s);
    m_page->setAccessibleName(u"Página"_s);
    m_page->setToolTip(u"Página que se ve; un número y Entrar llevan a otra (Ctrl+G)"_s);
    m_page->setAlignment(Qt::AlignRight);
    m_page->setMaxLength(pageDigits);
    m_page->setFixedWidth(m_page->fontMetrics().horizontalAdvance(QString(pageDigits, u'0')) + fieldPadding);
    m_page->installEventFilter(this);
    m_count->setObjectName(u"pageCount"_s);
    m_count->setContentsMargins(6, 0, 6, 0);
    m_count->setMinimumWidth(m_count->fontMetrics().horizontalAdvance(u"de 0.000…"_s) + fieldPadding);
    connect(m_page, &QLineEdit::returnPressed, this, &ViewerBar::takePage);
}

void ViewerBar::addZoomControls() {
    m_zoom->setObjectName(u"zoom"_s);
    m_zoom->setAccessibleName(u"Tamaño"_s);
    m_zoom->setToolTip(u"Tamaño en que se ve la página, de 25 a 400 %"_s);
    m_zoom->setEditable(true);
    m_zoom->setInsertPolicy(QComboBox::NoInsert);
    m_zoom->setCompleter(nullptr);
    for (const double step : zoomSteps)
        m_zoom->addItem(percent(step));
    m_zoom->setMaxVisibleItems(static_cast<int>(zoomSteps.size()));
    m_zoom->setFixedWidth(m_zoom->fontMetrics().horizontalAdvance(percent(4)) + comboPadding);
    m_zoom->lineEdit()->installEventFilter(this);
    connect(m_zoom, &QComboBox::textActivated, this, &ViewerBar::takeZoom);
    connect(m_zoom->lineEdit(), &QLineEdit::returnPressed, this, [this] { takeZoom(m_zoom->currentText()); });
}

bool ViewerBar::eventFilter(QObject* watched, QEvent* event) {
    const bool escape =
        event->type() == QEvent::KeyPress && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape;
    // What was typed and not entered is forgotten.
    if (escape || event->type() == QEvent::FocusOut) {
        m_page->setText(pageText());
        m_zoom->setEditText(m_shownZoom);
    }
    if (escape)
        Q_EMIT left();
    return escape || QToolBar::eventFilter(watched, event);
}

QString ViewerBar::pageText() const {
    return m_shownPage == 0 ? QString() : QString::number(m_shownPage);
}

void ViewerBar::takePage() {
    QString digits = m_page->text();
    bool isNumber = false;
    const int page = digits.remove(u'.').trimmed().toInt(&isNumber);
    if (!isNumber || page < 1) {
        m_page->setText(pageText());
        m_page->selectAll();
        return;
    }
    Q_EMIT pageEntered(page - 1);
    Q_EMIT left();
}

void ViewerBar::takeZoom(const QString& text) {
    QString digits = text;
    bool isNumber = false;
    const double entered = digits.remove(u'%').trimmed().replace(u',', u'.').toDouble(&isNumber);
    if (isNumber && entered > 0)
        Q_EMIT zoomEntered(entered / hundred);
    m_zoom->setEditText(m_shownZoom);
    Q_EMIT left();
}

void ViewerBar::showPage(int page, int count, bool complete) {
    m_shownPage = count == 0 ? 0 : page + 1;
    if (!m_page->hasFocus())
        m_page->setText(pageText());
    // While pages are still being counted, the number is one so far.
    m_count->setText(u"de "_s + (count == 0 ? QString() : grouped(count)) + (complete ? QString() : u"…"_s));
    m_count->setToolTip(complete ? QString() : u"Todavía se preparan páginas"_s);
    action(u"first").setEnabled(page > 0);
    action(u"previous").setEnabled(page > 0);
    action(u"next").setEnabled(page + 1 < count);
    action(u"last").setEnabled(page + 1 < count || (!complete && count > 0));
}

void ViewerBar::showZoom(double zoom, PageView::Fit fit) {
    m_shownZoom = percent(zoom);
    m_zoom->setEditText(m_shownZoom);
    action(u"fitWidth").setChecked(fit == PageView::Fit::Width);
    action(u"fitPage").setChecked(fit == PageView::Fit::Page);
    action(u"zoomOut").setEnabled(zoom > PageView::smallestZoom);
    action(u"zoomIn").setEnabled(zoom < PageView::largestZoom);
}

void ViewerBar::editPage() {
    m_page->setFocus(Qt::ShortcutFocusReason);
    m_page->selectAll();
}

} // namespace quorvane::report
