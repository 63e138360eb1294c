#include "forms/report/FO_ViewReport.h"
#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "forms/Named.h"
#include "forms/main/StatusPanels.h"
#include "platform/quorvane32/core/Session.h"
#include "platform/reportengine/viewer/ReportViewer.h"
#include <QCloseEvent>
#include <QEventLoop>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::report::LineField;
using quorvane::report::ReportViewer;

namespace {

constexpr QSize startSize{1400, 880};
constexpr int actualSize = 100; // percent

} // namespace

FO_ViewReport::FO_ViewReport(SessionContext& context, quorvane::RequestLink& link,
                             const TopicSurroundings& surroundings, QWidget* parent)
    : QMainWindow(parent)
    , m_context(context)
    , m_client(new QWidget(this))
    , CRViewer1(named(new ReportViewer(m_client), "CRViewer1", u"Informe"_s))
    , txtDDE(named(new QLineEdit(m_client), "txtDDE"))
    , StatusBar(new StatusPanels(this, {panelMensaje, panelEmpresa}))
    , m_drillDown(*context.Table, link, surroundings) {
    setObjectName(u"FO_ViewReport"_s);
    setWindowTitle(u"Visualiza Reportes"_s);
    setCentralWidget(m_client);
    setStatusBar(StatusBar);
    txtDDE->hide();
    makeMenu();
    wire();
    StatusBar->setText(panelEmpresa, m_context.Session->CompanyName());
    resize(startSize.boundedTo(screen()->availableSize()));
}

FO_ViewReport::~FO_ViewReport() = default;

void FO_ViewReport::makeMenu() {
    QMenu* menu = named(menuBar()->addMenu(u"&Archivo"_s), "mnuArchivo");
    const auto item = [this, menu](const QString& name, const QString& caption,
                                   void (FO_ViewReport::*run)()) {
        menu->addAction(caption, this, run)->setObjectName(name);
    };
    item(u"arcImpresora"_s, u"&Configurar Impresora ..."_s, &FO_ViewReport::arcImpresora_Click);
    menu->addSeparator()->setObjectName(u"arcRaya0"_s);
    item(u"arcSalir"_s, u"&Salir"_s, &FO_ViewReport::arcSalir_Click);
}

void FO_ViewReport::wire() {
    connect(CRViewer1, &ReportViewer::lineClicked, this, &FO_ViewReport::CRViewer1_Clicked);
    connect(CRViewer1, &ReportViewer::statusChanged, this,
            [this](const QString& text) { StatusBar->setText(panelMensaje, text); });
}

void FO_ViewReport::ShowReport() {
    CRViewer1->setLinesClickable(DrillDown::follows(m_context.Table->reportName), u"Ver el documento"_s);
    CRViewer1->viewReport();
    CRViewer1->zoom(actualSize);
}

void FO_ViewReport::showModal() {
    setWindowModality(Qt::ApplicationModal);
    show();
    CRViewer1->setFocus();
    QEventLoop untilClosed;
    connect(this, &FO_ViewReport::closed, &untilClosed, &QEventLoop::quit);
    untilClosed.exec();
}

void FO_ViewReport::closeEvent(QCloseEvent* event) {
    // While a document is being opened the message loop runs inside of it: the form must be there afterwards.
    if (m_drillDown.isBusy()) {
        event->ignore();
        return;
    }
    CRViewer1->stop();
    QMainWindow::closeEvent(event);
}

void FO_ViewReport::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    if (!event->spontaneous())
        Q_EMIT closed();
}

void FO_ViewReport::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    Form_Resize();
}

void FO_ViewReport::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    Form_Resize();
}

void FO_ViewReport::Form_Resize() {
    // The client area ends where the status bar begins.
    CRViewer1->setGeometry(m_client->rect());
}

void FO_ViewReport::arcImpresora_Click() {
    CRViewer1->printerSetup(this);
}

void FO_ViewReport::arcSalir_Click() {
    close();
}

void FO_ViewReport::CRViewer1_Clicked(const std::vector<LineField>& fields) {
    m_myFields.clear();
    for (const LineField& field : fields)
        m_myFields.push_back({field.name, field.text});
    m_drillDown.documentClicked(m_context.Table->reportName, m_myFields);
}

} // namespace dalvora
