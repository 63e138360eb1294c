#pragma once

#include "reports/drilldown/ClickedField.h"
#include "reports/drilldown/PrintTopic.h"
#include <vector>

namespace dalvora {

class DBTable;

/// Opens the sales document behind a line of a salesperson report in the ERP's document-emission program. Its
/// viewer makes one and tells it about clicks; messages tell what went wrong.
class DrillDown {
public:
    /// The record gives company and database; `txtDDE` is the viewer's link. Both outlive this object, and so
    /// does what `surroundings` names.
    DrillDown(DBTable& table, quorvane::RequestLink& txtDDE, TopicSurroundings surroundings)
        : m_table(table), m_txtDDE(txtDDE), m_surroundings(std::move(surroundings)) {}

    /// Whether the lines of the report of this name can be followed: its name contains "Vendedor".
    static bool follows(const QString& reportName);

    /// A click in the report of this name: `myFields` are the fields of the clicked detail line, in the
    /// report's order, and none for a click elsewhere. A click that comes while a document is being opened is
    /// dropped.
    void documentClicked(const QString& reportName, const std::vector<ClickedField>& myFields);

    /// Whether a document is being opened. The message loop runs meanwhile, so a viewer that is asked to
    /// close stays until this is over.
    bool isBusy() const { return m_busy; }

    /// Asks the document program to show a document; starts it when it is not running.
    void OpenDocument(const QString& Numero, const QString& TipoDocto, const QString& CtaCte,
                      const QString& Emitido);

private:
    void follow(const std::vector<ClickedField>& myFields);

    DBTable& m_table;
    quorvane::RequestLink& m_txtDDE;
    TopicSurroundings m_surroundings;
    QString m_topic; ///< reached last
    bool m_busy = false;
};

} // namespace dalvora
