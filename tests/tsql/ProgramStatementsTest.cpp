// Lets the program do everything that it sends statements for, on a demonstration company, while the recorder
// writes them down. What was written is parsed as the ERP server's SQL afterwards (parse/), where it is also
// held against the statements that stand in the sources: a new one that nothing here sends is missed there.
#include "data/DBTable.h"
#include "data/Salespeople.h"
#include "data/SessionContext.h"
#include "demo/Database.h"
#include "demo/Demonstration.h"
#include "demo/lorbadeno/DocumentReader.h"
#include "platform/quorvane32/lookup/QueryFile.h"
#include "platform/quorvane32/session/Accounts.h"
#include "platform/quorvane32/session/ErpSession.h"
#include "reports/processing/ReportProcessing.h"
#include "tests/support/MessageRecorder.h"
#include "tests/tsql/StatementRecorder.h"
#include "tools/quorvane-admin/AdminProgram.h"
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <gtest/gtest.h>

using namespace dalvora;
using namespace dalvora::test;
using namespace Qt::StringLiterals;
using quorvane::Date;

namespace {

/// A person who first mistypes the password.
class HastyPerson final : public quorvane::LoginPrompt {
public:
    bool ask(const quorvane::LoginQuestion&, const quorvane::LoginAttempt& attempt) override {
        refusal = attempt({u"001"_s, u"demo"_s, u"equivocada"_s});
        return attempt({u"001"_s, u"demo"_s, u"Demo-1996"_s}).isEmpty();
    }
    QString refusal;
};

class NoRows final : public quorvane::Cursor {
public:
    bool next() override { return false; }
    int columnCount() const override { return 0; }
    QString columnName(int) const override { return {}; }
    quorvane::Value value(int) override { return {}; }
};

/// Takes every command and has no rows.
class AcceptingEngine final : public quorvane::Engine {
public:
    std::unique_ptr<quorvane::Cursor> select(const QString&) override { return std::make_unique<NoRows>(); }
    qint64 execute(const QString&) override { return 0; }
    void begin() override {}
    void commit() override {}
    void rollback() override {}
};

/// The program signed in to a demonstration company of its own.
class ProgramStatements : public testing::Test {
protected:
    static void SetUpTestSuite() {
        startRecording();
        demonstration = std::make_unique<QTemporaryDir>();
        demo::createDemonstration(demonstration->path());
    }
    static void TearDownTestSuite() { demonstration.reset(); }

    void SetUp() override {
        for (const QString& name : {u"quorvane.db"_s, u"quorvane.ini"_s})
            ASSERT_TRUE(QFile::copy(demonstration->filePath(name), home.filePath(name)));
        context.Connection = std::make_unique<quorvane::Connection>();
        context.Session = std::make_unique<quorvane::ErpSession>(home.path(), nullptr);
        bool cancelled = true;
        context.Session->Initialize(*context.Connection, u"Veltrano"_s, u"VELTRANO"_s, u"1.0"_s, u"001"_s,
                                    cancelled);
        ASSERT_FALSE(cancelled);
        context.Table = std::make_unique<DBTable>(*context.Connection, *context.Session, context.Regional);
        table().ProgramName = u"VELTRANO"_s;
        table().setReport(std::make_unique<ReportProcessing>(
            table(), *context.Session, ReportProcessing::Parts{QStringLiteral(PROGRAM_FOLDER)}));
        ASSERT_TRUE(table().DBInitialize());
    }

    DBTable& table() { return *context.Table; }
    bool read(const QString& code, const QString& start = {}, const QString& end = {}) {
        table().DBClear();
        table().carga_inicio();
        table().ClearDates();
        table().setTextValue(2, code);
        table().setTextValue(5, start);
        table().setTextValue(6, end);
        const bool done = table().DBRead();
        table().SaveDates();
        if (!table().SysRecordFound)
            table().carga_inicio();
        return done;
    }
    /// A new scheme with a line of each kind, quotes and letters of every sort in its texts.
    void fill(const QString& code) {
        ASSERT_TRUE(read(code, u"01/01/2006"_s, u"31/12/2006"_s));
        ASSERT_FALSE(table().SysRecordFound);
        table().setTextValue(3, u"D'Artagnan «ñandú» [50%] -- no"_s);
        table().setTextValue(4, u"12,5"_s);
        table().Acumulable = u"S"_s;
        for (const QString& kind : {u"Producto"_s, u"Todos"_s})
            addDetail(kind, u"1"_s);
        static_cast<MontoValues&>(table().MontosAdd()) = {u"TODOS"_s, 0.5, 1000000, 0.25, u"Total"_s};
        static_cast<PrecioValues&>(table().PreciosAdd()) = {u"Todas"_s, u"O'Higgins"_s, 99.99, u"Neto"_s};
    }
    void addDetail(const QString& kind, const QString& code) {
        DBDetail& line = table().DetailsAdd();
        static_cast<DetailValues&>(line) = {kind, code, u"Línea de "_s + kind, 0, 10.125, 5, u"Neto"_s};
    }
    int administer(const QStringList& order) {
        QTextStream out(&told);
        QTextStream errors(&told);
        quorvane::admin::AdminProgram program(out, errors, [] { return u"Una-larga-1"_s; });
        return program.run(QStringList{u"--perfil"_s, home.path()} + order);
    }

    static inline std::unique_ptr<QTemporaryDir> demonstration;
    QTemporaryDir home;
    QString told;
    MessageRecorder recorder;
    SessionContext context;
};

TEST_F(ProgramStatements, OfARecordFromItsFirstSaveToItsEnd) {
    fill(u"O'Hara"_s);
    ASSERT_TRUE(table().DBWrite());
    ASSERT_TRUE(read(u"O'Hara"_s));
    ASSERT_TRUE(table().SysRecordFound);
    table().Details(1).setTextValue(6, u"7,5"_s);
    table().montos(1).setTextValue(4, u"3"_s);
    table().Precios(1).setTextValue(3, u"1"_s);
    ASSERT_TRUE(table().DBWrite());
    table().setTextValue(6, u"30/11/2006"_s);
    ASSERT_TRUE(table().DBWrite());
    ASSERT_TRUE(read(u"O'Hara"_s, u"01/06/2006"_s, u"30/06/2006"_s));
    ASSERT_TRUE(table().SysRecordFound);
    table().DetailsRemove(1);
    table().MontosRemove(1);
    table().PreciosRemove(1);
    ASSERT_TRUE(table().DBWrite());
    ASSERT_TRUE(read(u"O'Hara"_s));
    ASSERT_TRUE(table().DBDelete());
    table().DBTerminate();
}

TEST_F(ProgramStatements, OfARecordWithoutDates) {
    ASSERT_TRUE(read(u"SINFECHA"_s));
    table().setTextValue(3, u"Sin período"_s);
    ASSERT_TRUE(table().DBWrite());
    ASSERT_TRUE(read(u"SINFECHA"_s));
    ASSERT_TRUE(table().SysRecordFound);
    ASSERT_TRUE(table().DBDelete());
}

TEST_F(ProgramStatements, OfEnteredCodes) {
    ASSERT_TRUE(read(u"CODIGOS"_s, u"01/01/2006"_s, u"31/12/2006"_s));
    DBDetail& line = table().DetailsAdd();
    for (const QString& kind : {u"Producto"_s, u"Familia"_s, u"SubFamilia"_s, u"TipoProducto"_s}) {
        line.setTextValue(1, kind);
        EXPECT_FALSE(line.setTextValue(2, u"D'Or"_s));
    }
    EXPECT_FALSE(table().MontosAdd().setTextValue(1, u"D'Or"_s));
    EXPECT_FALSE(table().PreciosAdd().setTextValue(1, u"D'Or"_s));
    EXPECT_EQ(recorder.take().size(), 6U);
}

TEST_F(ProgramStatements, OfDocuments) {
    EXPECT_EQ(table().GetFORMATOTIPODOCUMENTO(u"FACT"_s), u"FACTURA"_s);
    EXPECT_EQ(table().GetCTACTE(u"FACTURA"_s, u"10250"_s), u"HANAR"_s);
    EXPECT_EQ(table().GetDocEmitido(u"FACTURA"_s, u"HANAR"_s, u"10250"_s), u"S"_s);
    lorbadeno::DocumentReader documents(home.path());
    EXPECT_EQ(documents.read({u"001"_s, u"FACTURA"_s, u"HANAR"_s, u"10250"_s}).lines.size(), 3U);
}

TEST_F(ProgramStatements, OfSalespeople) {
    const Salespeople salespeople(context);
    std::vector<Salesperson> people;
    salespeople.read({}, people);
    salespeople.read(u"0"_s, people);
    ASSERT_FALSE(people.empty());
    salespeople.assign(u"GENERAL"_s, people.front().Codigo);
}

TEST_F(ProgramStatements, OfReports) {
    ASSERT_EQ(table().CR_Connect(context.Connection->connectString()), 0);
    const Date day = Date::fromYmd(1997, 7, 14);
    ASSERT_GT(table().ReportsCount(), 0);
    for (qint16 report = 0; report < table().ReportsCount(); ++report) {
        table().reportName = table().ReportsFile(report);
        for (const Date start : {Date(), day})
            for (const Date end : {Date(), day})
                for (const QString& code : {QString(), u"O'Hara"_s}) {
                    table().FechaIniFiltro = start;
                    table().FechaFinFiltro = end;
                    table().FiltroCodComisiones = code;
                    EXPECT_LE(table().CR_ProcessReport(), 0);
                }
    }
}

TEST_F(ProgramStatements, OfLookups) {
    const auto file = quorvane::QueryFile::load(QStringLiteral(QUERY_FILE));
    ASSERT_FALSE(file.queries().empty());
    for (const auto& query : file.queries()) {
        QStringList values;
        for (const auto& parameter : query.parameters)
            values += parameter.kind == quorvane::ParameterKind::Date     ? u"14/07/1997"_s
                      : parameter.kind == quorvane::ParameterKind::Number ? u"1,5"_s
                                                                          : u"D'Or"_s;
        context.Connection->openRecordset(query.statement(values, context.Regional));
    }
}

TEST_F(ProgramStatements, OfSigningIn) {
    HastyPerson person;
    quorvane::Connection connection;
    quorvane::Profile profile = quorvane::Profile::load(home.path());
    profile.user.clear();
    profile.automatic = false;
    profile.save(home.path());
    quorvane::ErpSession session(home.path(), &person);
    bool cancelled = true;
    session.Initialize(connection, u"Veltrano"_s, u"VELTRANO"_s, u"1.0"_s, {}, cancelled);
    EXPECT_FALSE(cancelled);
    EXPECT_FALSE(person.refusal.isEmpty());
    EXPECT_EQ(session.AccessRights(), u"RWXD"_s);
}

TEST_F(ProgramStatements, OfTheAdministrator) {
    using quorvane::admin::ExitSuccess;
    for (const QStringList& order :
         {QStringList{u"alta"_s, u"d'arc"_s, u"Jeanne d'Arc"_s},
          {u"clave"_s, u"d'arc"_s},
          {u"derechos"_s, u"d'arc"_s, u"VELTRANO"_s, u"RW--"_s},
          {u"derechos"_s, u"d'arc"_s, u"VELTRANO"_s, u"R---"_s},
          {u"bloquear"_s, u"d'arc"_s},
          {u"desbloquear"_s, u"d'arc"_s},
          {u"usuarios"_s},
          {u"auditoria"_s, u"3"_s},
          {u"auditoria"_s, u"--csv"_s, u"--usuario"_s, u"d'arc"_s, u"--empresa"_s, u"001"_s, u"--programa"_s,
           u"VELTRANO"_s, u"--desde"_s, u"1/1/2026"_s, u"--hasta"_s, u"31/12/2026"_s},
          {u"empresas"_s},
          {u"empresa"_s, u"003"_s, u"O'Higgins"_s},
          {u"baja"_s, u"d'arc"_s}})
        EXPECT_EQ(administer(order), ExitSuccess) << order.join(u' ').toStdString() << told.toStdString();
}

TEST_F(ProgramStatements, OfMovingACompanyAndCheckingItsRows) {
    const QTemporaryDir other;
    demo::createEmptyDatabase(other.filePath(u"quorvane.db"_s));
    ASSERT_TRUE(QFile::copy(home.filePath(u"quorvane.ini"_s), other.filePath(u"quorvane.ini"_s)));
    const QStringList move{u"trasladar"_s, u"002"_s,        u"--a"_s,
                           other.path(),   u"--usuarios"_s, u"--auditoria"_s};
    EXPECT_EQ(administer(move), quorvane::admin::ExitSuccess) << told.toStdString();
    EXPECT_EQ(administer({u"tablas"_s}), quorvane::admin::ExitSuccess) << told.toStdString();
    EXPECT_EQ(administer({u"revisar"_s}), quorvane::admin::ExitSuccess) << told.toStdString();
}

TEST_F(ProgramStatements, OfCreatingTheTablesOfSqlServer) {
    quorvane::Connection connection(
        [](const QString&) { return recorded(std::make_unique<AcceptingEngine>()); });
    connection.open(u"Driver=sqlserver"_s);
    demo::createTables(connection);
}

TEST_F(ProgramStatements, OfLoadingTheDemonstration) {
    const QString path = home.filePath(u"otra.db"_s);
    demo::createEmptyDatabase(path);
    quorvane::Connection connection;
    connection.open(u"Driver=sqlite;Database="_s + path);
    demo::loadDemonstration(connection);
}

} // namespace
