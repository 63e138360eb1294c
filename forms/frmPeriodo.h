#pragma once

#include "platform/quorvane32/grid/XDate.h"
#include <QDialog>
#include <QLabel>

class QGroupBox;
class QPushButton;

namespace dalvora {

class DBTable;

/// The small form that changes the validity dates of the loaded scheme. The new dates reach the database with
/// the next save.
class frmPeriodo : public QDialog {
    Q_OBJECT
public:
    explicit frmPeriodo(DBTable& table, QWidget* parent = nullptr);

    /// Fills the dates from the record; called each time the form is shown.
    void Form_Load();

private:
    void coAceptar_Click();
    void coCancelar_Click();
    void layOut();

    DBTable& m_table;
    QGroupBox* Frame1;
    QLabel* Label1;
    QLabel* Label2;
    quorvane::XDate* txt_FechaIni;
    quorvane::XDate* txt_FechaFin;
    QPushButton* coAceptar;
    QPushButton* coCancelar;
};

} // namespace dalvora
