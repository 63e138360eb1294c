#include "reports/drilldown/DrillDown.h"
#include "common/ShowMessage.h"
#include "common/SqlText.h"
#include "data/DBTable.h"
#include <QScopedValueRollback>

namespace dalvora {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t fewestFields = 3;

/// What a clicked line says about its document.
struct ClickedDocument {
    QString TipoDocto;
    QString Numero;
};

/// The line's fields stand in the order of the report's objects and bear their names, so an object and the
/// field at its position are found in one walk. Of two objects with the same name the later one counts.
ClickedDocument colectacampos(const std::vector<ClickedField>& myFields) {
    ClickedDocument document;
    for (const ClickedField& field : myFields) {
        const QString name = field.name.toUpper();
        if (name == u"FIELD10")
            document.TipoDocto = field.text;
        if (name == u"FIELD6")
            document.Numero = field.text;
    }
    return document;
}

/// Replaces without regard to case, as plain text.
void put(QString& command, QStringView placeholder, const QString& text) {
    command.replace(placeholder.toString(), text, Qt::CaseInsensitive);
}

} // namespace

bool DrillDown::follows(const QString& reportName) {
    return reportName.contains(u"Vendedor", Qt::CaseInsensitive);
}

void DrillDown::documentClicked(const QString& reportName, const std::vector<ClickedField>& myFields) {
    if (m_busy || !follows(reportName) || myFields.size() < fewestFields)
        return;
    // The request yields to the message loop, where the next click may come.
    const QScopedValueRollback<bool> busy(m_busy, true);
    try {
        follow(myFields);
    } catch (const quorvane::RunTimeError& error) {
        ShowRunTimeError(u"Error al buscar documento"_s, error);
    }
}

void DrillDown::follow(const std::vector<ClickedField>& myFields) {
    ClickedDocument document = colectacampos(myFields);
    // Quotes are doubled here and once more in the lookup's statement: a type with a quote is never found.
    document.TipoDocto = SqlText(document.TipoDocto, quorvane::Kind::String, m_table.regional());
    document.TipoDocto = m_table.GetFORMATOTIPODOCUMENTO(document.TipoDocto);
    const QString CtaCte = m_table.GetCTACTE(document.TipoDocto, document.Numero);
    const QString Emitido = m_table.GetDocEmitido(document.TipoDocto, CtaCte, document.Numero);
    OpenDocument(document.Numero, document.TipoDocto, CtaCte, Emitido);
}

void DrillDown::OpenDocument(const QString& Numero, const QString& TipoDocto, const QString& CtaCte,
                             const QString& Emitido) {
    // $TIPOCTACTE$ is filled by nobody: the document program receives the placeholder itself.
    QString command = u"EMPRESA=$EMPRESA$"
                      u";TIPODOCTO=$Tipo$"
                      u";CTACTE=$CtaCte$"
                      u";DOCTOINI=$Numero$"
                      u";DOCTOFIN=$Numero$"
                      u";EMISION="
                      u";ACCION=V"
                      u";FORMATO="
                      u";EMITIDO=$EMITIDO$"
                      u";TIPOCTACTE=$TIPOCTACTE$"_s;
    put(command, u"$EMPRESA$", m_table.SysEmpresa);
    put(command, u"$Tipo$", TipoDocto);
    put(command, u"$Numero$", Numero);
    put(command, u"$CTACTE$", CtaCte);
    put(command, u"$EMITIDO$", Emitido);

    m_table.NavegaReportTag = u"Lorbadeno"_s;
    m_table.NavegaReportCap = u"Emisión de Documentos"_s;
    constexpr bool exclusive = true;
    constexpr qint16 fiveSeconds = 50;
    constexpr qint16 normalWindow = 1;
    Print_Topic(m_surroundings, m_txtDDE, m_table.NavegaReportTag + u".Exe"_s,
                m_table.NavegaReportCap + u'|' + m_table.NavegaReportTag, command, exclusive, fiveSeconds,
                m_topic, normalWindow);
}

} // namespace dalvora
