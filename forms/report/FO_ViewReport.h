#pragma once

#include "platform/reportengine/viewer/LineField.h"
#include "reports/drilldown/DrillDown.h"
#include <QMainWindow>
#include <vector>

class QLineEdit;

namespace quorvane {
class RequestLink;
} // namespace quorvane
namespace quorvane::report {
class Report;
class ReportViewer;
} // namespace quorvane::report

namespace dalvora {

class StatusPanels;
struct SessionContext;

/// The form that shows a report. In a salesperson report a click on a line opens the document behind it in
/// the ERP's document program.
class FO_ViewReport : public QMainWindow {
    Q_OBJECT
public:
    /// Everything given must outlive the form; `link` is what txtDDE talks over.
    FO_ViewReport(SessionContext& context, quorvane::RequestLink& link, const TopicSurroundings& surroundings,
                  QWidget* parent = nullptr);
    ~FO_ViewReport() override;

    /// The viewer control. Its report source is set by who loads the form; it outlives the form.
    quorvane::report::ReportViewer& viewer() { return *CRViewer1; }
    /// Begins to view the report that the control has as its source, in its size on paper.
    void ShowReport();
    /// Shows the form until it is closed; the program's other windows rest meanwhile.
    void showModal();

Q_SIGNALS:
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void makeMenu();
    void wire();
    void Form_Resize();
    void arcImpresora_Click();
    void arcSalir_Click();
    void CRViewer1_Clicked(const std::vector<quorvane::report::LineField>& fields);

    SessionContext& m_context;
    QWidget* m_client; ///< the area between menu and status bar
    quorvane::report::ReportViewer* CRViewer1;
    QLineEdit* txtDDE; ///< present for programs that look for it; never shown
    StatusPanels* StatusBar;
    DrillDown m_drillDown;
    std::vector<ClickedField> m_myFields; ///< of the viewer's last event
};

} // namespace dalvora
