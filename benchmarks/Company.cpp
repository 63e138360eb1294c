#include "benchmarks/Company.h"
#include "data/DBTable.h"
#include "demo/Demonstration.h"
#include "demo/ScaleData.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/ErpSession.h"
#include "platform/quorvane32/session/Profile.h"
#include "reports/processing/ReportStatements.h"
#include <stdexcept>

namespace bench {

Company::Company() {
    dalvora::demo::createDemonstration(m_folder.path());
    signIn();
}

Company::Company(const QString& connectString) {
    quorvane::Profile profile;
    profile.connectString = connectString;
    profile.companies = {QStringLiteral("001")};
    profile.defaultCompany = QStringLiteral("001");
    profile.user = QStringLiteral("demo");
    profile.automatic = true;
    profile.save(m_folder.path());
    signIn();
}

void Company::signIn() {
    m_context.Connection = std::make_unique<quorvane::Connection>();
    m_context.Session = std::make_unique<quorvane::ErpSession>(m_folder.path(), nullptr);
    bool cancel = false;
    m_context.Session->Initialize(*m_context.Connection, "DALVORA", "VELTRANO", "1.0.00", "001", cancel);
    m_context.Table =
        std::make_unique<dalvora::DBTable>(*m_context.Connection, *m_context.Session, m_context.Regional);
    if (!m_context.Table->DBInitialize())
        throw std::runtime_error("the demonstration company cannot be used");
}

Company::~Company() = default;

QString Company::databaseFile() const {
    return m_folder.filePath(QStringLiteral("quorvane.db"));
}

void Company::addScheme(const QString& code, int lines) {
    const dalvora::demo::ScaleData scale(databaseFile(), QStringLiteral("001"));
    scale.addScheme({code, QDate(2000, 1, 1), QDate(2000, 12, 31), lines, 0, 0});
}

void Company::addSchemes(int count) {
    dalvora::demo::ScaleData(databaseFile(), QStringLiteral("001")).addSchemes(count, 10);
}

void Company::addDocuments(int count) {
    dalvora::demo::ScaleData(databaseFile(), QStringLiteral("001")).addDocuments(count);
}

QString Company::reportStatement(const QString& name) {
    table().reportName = name;
    return dalvora::rowsStatement(table(), QStringLiteral("001"));
}

void Company::read(const QString& code) {
    table().DBClear();
    table().ClearDates();
    table().setTextValue(2, code);
    if (!table().DBRead() || !table().SysRecordFound)
        throw std::runtime_error("the scheme cannot be read");
    table().SaveDates();
}

void Company::enterScheme(const QString& code, int lines) {
    dalvora::DBTable& record = table();
    record.DBClear();
    record.ClearDates();
    record.carga_inicio();
    record.setTextValue(2, code);
    record.setTextValue(5, "01/01/2001");
    record.setTextValue(6, "31/12/2001");
    if (!record.DBRead())
        throw std::runtime_error("no new scheme");
    record.SaveDates();
    record.carga_inicio();
    record.Acumulable = "N";
    for (int i = 0; i < lines; ++i) {
        dalvora::DBDetail& line = i == 0 ? record.Details(1) : record.DetailsAdd();
        line.setTextValue(1, "Todos");
        line.setTextValue(5, QString::number(i + 1) + ",5");
        line.setTextValue(4, QString::number(i) + ",5");
        line.setTextValue(6, "2,75");
        line.setTextValue(7, "Neto");
    }
}

void Company::save() {
    if (!table().DBWrite(true))
        throw std::runtime_error("the scheme cannot be saved");
}

} // namespace bench
