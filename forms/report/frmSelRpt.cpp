#include "forms/report/frmSelRpt.h"
#include "common/Blanks.h"
#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "forms/FormServices.h"
#include "forms/Named.h"
#include "reports/processing/MousePointer.h"
#include "reports/processing/ReportFolder.h"
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::RunTimeError;
using quorvane::XDate;

namespace {

/// The day number is compared with 1900, not the year: 14 March 1905 is the first accepted day.
constexpr double firstDayNumber = 1900;

bool isAccepted(quorvane::Date date) {
    return date.isEmpty() || date.serial() >= firstDayNumber;
}

} // namespace

frmSelRpt::frmSelRpt(DBTable& table, FormServices& services, QString programFolder, QWidget* parent)
    : QDialog(parent), m_table(table), m_services(services), m_programFolder(std::move(programFolder)) {
    setObjectName(u"frmSelRpt"_s);
    setWindowTitle(u"Selección de Reporte"_s);
    makeControls();
    layOut();
    connect(cboReporte, &QComboBox::currentIndexChanged, this, &frmSelRpt::cboReporte_Click);
    connect(coCodigo, &QPushButton::clicked, this, &frmSelRpt::coCodigo_Click);
    connect(coAceptar, &QPushButton::clicked, this, &frmSelRpt::coAceptar_Click);
    connect(coCancelar, &QPushButton::clicked, this, &frmSelRpt::coCancelar_Click);
}

frmSelRpt::~frmSelRpt() = default;

void frmSelRpt::makeControls() {
    fraSel = named(new QGroupBox(u"Reportes"_s, this), "fraSel");
    cboReporte = named(new QComboBox(fraSel), "cboReporte", u"Reportes"_s);
    Frame1 = named(new QGroupBox(u"Rango de fechas"_s, this), "Frame1");
    Label5 = named(new QLabel(u"Fecha Inicio"_s, Frame1), "Label5");
    FecIni = named(new XDate(Frame1), "FecIni", u"Fecha Inicio"_s);
    Label6 = named(new QLabel(u"Fecha Final"_s, Frame1), "Label6");
    FecFin = named(new XDate(Frame1), "FecFin", u"Fecha Final"_s);
    LbComision = named(new QLabel(u"Codigo Comision"_s, this), "LbComision");
    TxtCodComision = named(new QLineEdit(this), "TxtCodComision", u"Codigo Comision"_s);
    TxtCodComision->setToolTip(u"Código de la comisión; vacío, todas"_s);
    coCodigo = named(new QPushButton(u"..."_s, this), "coCodigo", u"Buscar código"_s);
    coCodigo->setToolTip(u"Buscar una comisión"_s);
    coCodigo->setAutoDefault(false);
    coAceptar = named(new QPushButton(u"&Aceptar"_s, this), "coAceptar");
    coAceptar->setDefault(true);
    coCancelar = named(new QPushButton(u"&Cancelar"_s, this), "coCancelar");
    Label5->setBuddy(FecIni);
    Label6->setBuddy(FecFin);
    LbComision->setBuddy(TxtCodComision);
    for (XDate* date : {FecIni, FecFin}) {
        date->setMask(u"short date"_s);
        date->setRegional(m_table.regional());
        date->setFixedWidth(date->sizeHint().width());
    }
}

void frmSelRpt::layOut() {
    constexpr int shownCharacters = 36;
    constexpr int lookupWidth = 28;
    constexpr int labelGap = 8;
    constexpr int groupGap = 24;
    constexpr int edge = 16;
    // A long name shall not widen the form: what does not fit shows in the tip.
    cboReporte->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboReporte->setMinimumContentsLength(shownCharacters);
    coCodigo->setFixedWidth(lookupWidth);
    auto* list = new QHBoxLayout(fraSel);
    list->setContentsMargins(edge, edge, edge, edge);
    list->addWidget(cboReporte);

    auto* period = new QHBoxLayout(Frame1);
    period->setContentsMargins(edge, edge, edge, edge);
    period->setSpacing(labelGap);
    period->addWidget(Label5);
    period->addWidget(FecIni);
    period->addSpacing(groupGap);
    period->addWidget(Label6);
    period->addWidget(FecFin);
    period->addStretch();

    auto* code = new QHBoxLayout;
    // In one column with what stands in the frames.
    const QMargins frame = Frame1->contentsMargins();
    code->setContentsMargins(edge + frame.left(), 0, edge + frame.right(), 0);
    code->setSpacing(labelGap);
    code->addWidget(LbComision);
    code->addWidget(TxtCodComision);
    code->addWidget(coCodigo);
    // The form keeps its shape when a report takes no code.
    for (QWidget* control : std::initializer_list<QWidget*>{LbComision, TxtCodComision, coCodigo}) {
        QSizePolicy policy = control->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        control->setSizePolicy(policy);
    }

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(coAceptar);
    buttons->addWidget(coCancelar);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(edge, edge, edge, edge);
    all->setSpacing(edge);
    all->addWidget(fraSel);
    all->addWidget(Frame1);
    all->addLayout(code);
    all->addLayout(buttons);
    all->setSizeConstraint(QLayout::SetFixedSize);
}

void frmSelRpt::FormShow(QString& NameReport) {
    fillList();
    exec();
    NameReport = m_chosen;
}

void frmSelRpt::fillList() {
    QStringList names;
    for (qint16 i = 0; i < m_table.ReportsCount(); ++i)
        names << m_table.ReportsFile(i);
    {
        const QSignalBlocker quiet(cboReporte);
        cboReporte->clear();
        cboReporte->addItems(names);
        for (int i = 0; i < names.size(); ++i)
            cboReporte->setItemData(i, names[i], Qt::ToolTipRole);
        cboReporte->setCurrentIndex(-1);
    }
    if (!names.isEmpty())
        cboReporte->setCurrentIndex(0);
}

void frmSelRpt::cboReporte_Click() {
    const QString name = cboReporte->currentText();
    cboReporte->setToolTip(name);
    if (name.isEmpty())
        return;
    try {
        m_report =
            m_application.openReport(ReportFolder(m_programFolder, m_table.ProgramName).definition(name));
    } catch (const RunTimeError& error) {
        // Another report can be chosen all the same.
        ShowRunTimeError(u"Error al leer la definición del reporte "_s + name, error);
        return;
    }
    // One test after the other: a title with both words ends with the controls shown, one with neither leaves
    // them as they are.
    if (m_report->title().contains(u"VENDEDOR", Qt::CaseInsensitive))
        showCodeControls(false);
    if (m_report->title().contains(u"CODIGOS", Qt::CaseInsensitive))
        showCodeControls(true);
}

void frmSelRpt::showCodeControls(bool shown) {
    LbComision->setVisible(shown);
    TxtCodComision->setVisible(shown);
    coCodigo->setVisible(shown);
}

void frmSelRpt::coCodigo_Click() {
    QStringList values;
    if (!m_services.QueryLookup(u"CodigosComision"_s, u"DALVORA.qry"_s, m_table.SysEmpresa, values))
        return;
    TxtCodComision->setText(values.value(0));
    TxtCodComision->setFocus();
}

quorvane::Date frmSelRpt::entered(XDate& control) const {
    control.commit();
    return control.text().isEmpty() ? quorvane::Date() : m_table.regional().parseDate(control.text());
}

bool frmSelRpt::takeDate(XDate& control, quorvane::Date& filter) {
    try {
        filter = entered(control);
        return true;
    } catch (const RunTimeError&) {
        refuse(control);
        return false;
    }
}

bool frmSelRpt::takeFilters() {
    if (!takeDate(*FecIni, m_table.FechaIniFiltro) || !takeDate(*FecFin, m_table.FechaFinFiltro))
        return false;
    const QString code = TxtCodComision->text();
    m_table.FiltroCodComisiones = withoutOuterBlanks(code).isEmpty() ? QString() : code;
    return true;
}

void frmSelRpt::coAceptar_Click() {
    if (!takeFilters())
        return;
    // Filters and name are taken before the dates are looked at. So a refused date stays in the record, and
    // closing the form by its close box then still chooses the report, with that date.
    m_chosen = cboReporte->currentText();
    if (!isAccepted(m_table.FechaIniFiltro))
        refuse(*FecIni);
    else if (!isAccepted(m_table.FechaFinFiltro))
        refuse(*FecFin);
    else
        accept();
}

void frmSelRpt::refuse(XDate& control) {
    ShowMessage(u"Fecha no válida"_s, MessageInformation);
    setMousePointer(MousePointer::Default);
    control.setFocus();
    control.selectAll();
}

void frmSelRpt::coCancelar_Click() {
    m_chosen.clear();
    reject();
}

void frmSelRpt::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Cancel))
        coCancelar_Click();
    else
        QDialog::keyPressEvent(event);
}

} // namespace dalvora
