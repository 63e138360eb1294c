#include "forms/main/frmMain.h"
#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "forms/FormServices.h"
#include "forms/Twips.h"
#include "forms/main/StatusPanels.h"
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScopeGuard>

namespace dalvora {

namespace {

constexpr QSize startSize{900, 640};
/// Free space of the form around header and tabs, in twips.
constexpr int sideSpace = 500;
constexpr int verticalSpace = 2000;
/// Free space of a tab page around its grid: beside it, and above and below with the tabs themselves.
constexpr int gridSideSpace = 500;
constexpr int gridVerticalSpace = 810;
constexpr int frameHeight = 96;
constexpr quint32 startColour = 0xFFCECE;
constexpr quint32 startCellColour = 0xFFE0E0;
constexpr int applyToAllWindows = 4;

void resizeIfPositive(QWidget& control, int width, int height) {
    control.resize(width > 0 ? width : control.width(), height > 0 ? height : control.height());
}

} // namespace

frmMain::frmMain(SessionContext& context, FormServices& services, const QString& styleFile)
    : SkinFramework1(styleFile)
    , m_controls(*this)
    , m_context(context)
    , m_products(*m_controls.XGrid, LineKind::Producto,
                 {context, services, *m_controls.XGrid, [this] { m_record.showRecord(); }})
    , m_amounts(*m_controls.XGrid2, LineKind::Monto,
                {context, services, *m_controls.XGrid, [this] { m_record.showRecord(); }})
    , m_priceLists(*m_controls.XGrid3, LineKind::Precio,
                   {context, services, *m_controls.XGrid, [this] { m_record.showRecord(); }})
    , m_record(m_controls, context, {&m_products, &m_amounts, &m_priceLists})
    , m_dispatch(m_controls, context, services, m_record)
    , m_header(m_controls, context, services, m_record, *this) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Veltrano"));
    for (quorvane::XDate* date : {m_controls.FecIni, m_controls.FecFin})
        date->setRegional(context.Regional);
    wireCommands();
    connect(&m_controls.menuItem(u"mnuAsignar"), &QAction::triggered, this,
            [&services] { services.showSalespeople(); });
    connect(&m_controls.menuItem(u"mnuModif"), &QAction::triggered, this,
            [this] { m_header.mnuModif_Click(); });
    resize(startSize);
    placeControls();
}

frmMain::~frmMain() {
    takeClientsAway();
}

void frmMain::wireCommands() {
    for (QAction* action : m_controls.Toolbar->actions())
        connect(action, &QAction::triggered, this,
                [this, action] { m_dispatch.dispatch(action->objectName(), false); });
    for (QAction* action : menuBar()->findChildren<QAction*>()) {
        const QString key = action->property("Key").toString();
        if (!key.isEmpty())
            connect(action, &QAction::triggered, this, [this, key] { m_dispatch.dispatch(key, false); });
    }
    connect(m_controls.timFocus, &QTimer::timeout, this, [this] { m_dispatch.timFocus_Timer(); });
}

frmMain::LoadedSkin::LoadedSkin(const QString& styleFile) {
    if (styleFile.isEmpty())
        return;
    try {
        loadSkin(styleFile, QStringLiteral("LightBlue.ini"));
        setApplyOptions(applyToAllWindows);
    } catch (const quorvane::RunTimeError& failure) {
        error = failure.description();
    }
}

void frmMain::Form_Load() {
    if (!SkinFramework1.error.isEmpty())
        ShowMessage(SkinFramework1.error, MessageWarning);
    SkinFramework1.applyWindow(*this);
}

void frmMain::tintGrids() {
    for (quorvane::XGrid* grid : m_controls.grids()) {
        grid->setFourthColor(startColour);
        if (grid->rows() < 1 || grid->cols() < 1)
            continue;
        grid->setCol(0);
        for (int row = 0; row < grid->rows(); ++row) {
            grid->setRow(row);
            grid->setInner(QStringLiteral("CellBackColor"), startCellColour);
        }
    }
}

void frmMain::rememberSize() {
    m_leastSize = size();
}

void frmMain::closeEvent(QCloseEvent* event) {
    bool cancel = false;
    Form_QueryUnload(cancel, m_unloading ? FromCode : ControlBox);
    event->setAccepted(!cancel);
    if (!cancel && !m_unloading) {
        m_unloading = true;
        Q_EMIT unloaded();
    }
}

void frmMain::Form_QueryUnload(bool& Cancel, int mode) {
    if (mode != ControlBox || !m_context.Table)
        return;
    // An entry that is still being typed counts, too.
    commitEdits();
    if (wouldLoseEntry() &&
        ShowMessage(QStringLiteral("¿ Seguro de salir perdiendo las modificaciones ingresadas ?"),
                    MessageQuestion) != ButtonYes)
        Cancel = true;
}

bool frmMain::wouldLoseEntry() const {
    const DBTable& table = *m_context.Table;
    if (table.SysRecordModified || table.hasUnsavedChanges())
        return true;
    if (table.SysRecordFound)
        return m_controls.CheckP->isChecked() != m_record.accumulates();
    const QLineEdit* const header[] = {m_controls.TxtCodigo, m_controls.TxtGlosa, m_controls.FecIni,
                                       m_controls.FecFin};
    return std::any_of(std::begin(header), std::end(header),
                       [](const QLineEdit* entry) { return !entry->text().isEmpty(); });
}

void frmMain::unload() {
    m_unloading = true;
    close();
    takeClientsAway();
}

void frmMain::commitEdits() {
    for (quorvane::XGrid* grid : m_controls.grids())
        grid->commitEdit();
}

/// Nothing may ask for a cell any more once the record goes.
void frmMain::takeClientsAway() {
    for (quorvane::XGrid* grid : m_controls.grids())
        grid->setClient(nullptr);
}

void frmMain::comeToFront() {
    setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    show();
    raise();
    activateWindow();
    if (QWidget* question = QApplication::activeModalWidget()) {
        question->raise();
        question->activateWindow();
    }
}

bool frmMain::isBusy() const {
    return m_asking || !isEnabled() || m_dispatch.isBusy() || m_record.isReading();
}

QWidget* frmMain::endEntry() {
    commitEdits();
    QWidget* const entry = focusWidget();
    m_controls.txt_Focus->setFocus();
    return entry;
}

void frmMain::bringUp() {
    if (!isVisible())
        show();
    if (isMinimized())
        showNormal();
    commitEdits();
}

void frmMain::System_RecordAdd() {
    bringUp();
    m_record.newRecord();
}

void frmMain::System_RecordOpen(const QString& StrKeys) {
    bringUp();
    DBTable& table = *m_context.Table;
    table.DBClear();
    bool ok = table.SetKeyByString(StrKeys);
    if (ok)
        ok = m_record.readRecord(0);
    if (ok && !table.SysRecordFound)
        ShowMessage(QStringLiteral("Registro no existe"), MessageInformation);
    if (!ok)
        m_record.newRecord();
}

void frmMain::addRecordQuietly() {
    try {
        System_RecordAdd();
    } catch (const quorvane::RunTimeError&) {
        // The host asks again when it needs to; it takes no error from here.
        return;
    }
}

void frmMain::openRecord(const QString& StrKeys, bool enabled) {
    if (enabled) {
        System_RecordOpen(StrKeys);
        return;
    }
    {
        const auto enable = qScopeGuard([this] { setEnabled(true); });
        setEnabled(false);
        System_RecordOpen(StrKeys);
    }
    // A form that is disabled has lost the focus, and could not take it where the read put it.
    m_record.focusEntry();
}

void frmMain::setInitializing(bool initializing) {
    m_initializing = initializing;
    Form_Resize();
}

void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // The menu bar has its height now.
    placeControls();
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    Form_Resize();
}

void frmMain::keepLeastSize() {
    if (m_leastSize.isValid() && (width() < m_leastSize.width() || height() < m_leastSize.height()))
        resize(size().expandedTo(m_leastSize));
}

void frmMain::Form_Resize() {
    if (isMinimized() || m_initializing)
        return;
    keepLeastSize();
    placeControls();
}

void frmMain::placeControls() {
    constexpr int left = twipsToPixels(sideSpace) / 2;
    const int innerWidth = width();
    const int innerHeight = height() - menuBar()->height();
    QWidget& frame = *m_controls.Frame1;
    QWidget& tabs = *m_controls.SSTab1;
    frame.move(left, left);
    resizeIfPositive(frame, innerWidth - twipsToPixels(sideSpace), frameHeight);
    tabs.move(left, frame.geometry().bottom() + 1 + left);
    resizeIfPositive(tabs, innerWidth - twipsToPixels(sideSpace),
                     innerHeight - frame.height() - twipsToPixels(verticalSpace));
    for (quorvane::XGrid* grid : m_controls.grids()) {
        grid->move(left, left - 2);
        resizeIfPositive(*grid, tabs.width() - twipsToPixels(gridSideSpace),
                         tabs.height() - twipsToPixels(gridVerticalSpace));
    }
}

} // namespace dalvora
