#pragma once

#include "platform/quorvane32/grid/XDate.h"
#include "platform/reportengine/engine/Report.h"
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <memory>

namespace dalvora {

class DBTable;
class FormServices;

/// The form that chooses a report and what it is about: a period, and for a report of commission codes one
/// code. It writes the filters into the record and runs nothing itself.
class frmSelRpt : public QDialog {
    Q_OBJECT
public:
    /// Everything given must outlive the form; `programFolder` is without a trailing separator.
    frmSelRpt(DBTable& table, FormServices& services, QString programFolder, QWidget* parent = nullptr);
    ~frmSelRpt() override;

    /// Shows the form until it is closed; `NameReport` is then the chosen report, "" for none.
    void FormShow(QString& NameReport);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void cboReporte_Click();
    void coCodigo_Click();
    void coAceptar_Click();
    void coCancelar_Click();

    void makeControls();
    void layOut();
    void fillList();
    void showCodeControls(bool shown);
    /// The date that the control holds, 0 when it is empty; error 13 when it holds anything else.
    quorvane::Date entered(quorvane::XDate& control) const;
    /// Writes period and code into the record. False when a date cannot be read: told, and the filters from
    /// there on are as they were.
    bool takeFilters();
    bool takeDate(quorvane::XDate& control, quorvane::Date& filter);
    void refuse(quorvane::XDate& control);

    DBTable& m_table;
    FormServices& m_services;
    QString m_programFolder;
    QString m_chosen;
    quorvane::report::Application m_application;
    std::unique_ptr<quorvane::report::Report> m_report; ///< of the entry selected last

    QGroupBox* fraSel;
    QComboBox* cboReporte;
    QGroupBox* Frame1;
    QLabel* Label5;
    quorvane::XDate* FecIni;
    QLabel* Label6;
    quorvane::XDate* FecFin;
    QLabel* LbComision;
    QLineEdit* TxtCodComision;
    QPushButton* coCodigo;
    QPushButton* coAceptar;
    QPushButton* coCancelar;
};

} // namespace dalvora
