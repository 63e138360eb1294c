#include "forms/frmPeriodo.h"
#include "common/ShowMessage.h"
#include "common/SqlText.h"
#include "data/DBTable.h"
#include "forms/Named.h"
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>

namespace dalvora {

frmPeriodo::frmPeriodo(DBTable& table, QWidget* parent)
    : QDialog(parent)
    , m_table(table)
    , Frame1(named(new QGroupBox(QStringLiteral("Período de Vigencia"), this), "Frame1"))
    , Label1(named(new QLabel(QStringLiteral("Fecha Inicial"), Frame1), "Label1"))
    , Label2(named(new QLabel(QStringLiteral("Fecha Final"), Frame1), "Label2"))
    , txt_FechaIni(named(new quorvane::XDate(Frame1), "txt_FechaIni"))
    , txt_FechaFin(named(new quorvane::XDate(Frame1), "txt_FechaFin"))
    , coAceptar(named(new QPushButton(QStringLiteral("&Aceptar"), this), "coAceptar"))
    , coCancelar(named(new QPushButton(QStringLiteral("&Cancelar"), this), "coCancelar")) {
    setObjectName(QStringLiteral("frmPeriodo"));
    setWindowTitle(QStringLiteral("Modificación de Fechas"));
    layOut();
    coAceptar->setDefault(true);
    connect(coAceptar, &QPushButton::clicked, this, &frmPeriodo::coAceptar_Click);
    connect(coCancelar, &QPushButton::clicked, this, &frmPeriodo::coCancelar_Click);
}

void frmPeriodo::layOut() {
    const std::pair<QLabel*, quorvane::XDate*> rows[] = {{Label1, txt_FechaIni}, {Label2, txt_FechaFin}};
    auto* grid = new QGridLayout(Frame1);
    grid->setContentsMargins(20, 18, 20, 18);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(12);
    int row = 0;
    for (const auto& [label, date] : rows) {
        label->setBuddy(date);
        date->setAccessibleName(label->text());
        date->setMask(QStringLiteral("short date"));
        date->setRegional(m_table.regional());
        grid->addWidget(label, row, 0);
        grid->addWidget(date, row++, 1);
    }
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(coAceptar);
    buttons->addWidget(coCancelar);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(16, 16, 16, 16);
    all->setSpacing(16);
    all->addWidget(Frame1);
    all->addLayout(buttons);
    all->setSizeConstraint(QLayout::SetFixedSize);
}

void frmPeriodo::Form_Load() {
    txt_FechaIni->setText(m_table.regional().dateText(m_table.FECHAINICIO()));
    txt_FechaFin->setText(m_table.regional().dateText(m_table.FechaFinal()));
    txt_FechaIni->setFocus();
    txt_FechaIni->selectAll();
}

void frmPeriodo::coAceptar_Click() {
    quorvane::Date dates[2];
    int i = 0;
    for (quorvane::XDate* control : {txt_FechaIni, txt_FechaFin}) {
        control->commit();
        quorvane::Value value;
        if (!TextToValue(control->text(), quorvane::Kind::Date, value, 0, m_table.regional())) {
            ShowMessage(QStringLiteral("Fecha Final inválido(a)"), MessageWarning);
            control->setFocus();
            control->selectAll();
            return;
        }
        dates[i++] = *value.get<quorvane::Date>();
    }
    // Both dates move together: checked one by one, a period moved as a whole would be refused half way.
    if (!dates[0].isEmpty() && !dates[1].isEmpty() && dates[0] > dates[1]) {
        ShowMessage(QStringLiteral("Fecha Inicial no pude ser superior a Fecha Final"), MessageWarning);
        txt_FechaIni->setFocus();
        return;
    }
    if (dates[0] != m_table.FECHAINICIO() || dates[1] != m_table.FechaFinal())
        m_table.setPeriod(dates[0], dates[1]);
    accept();
}

void frmPeriodo::coCancelar_Click() {
    reject();
}

} // namespace dalvora
