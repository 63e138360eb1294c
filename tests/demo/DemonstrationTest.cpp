#include "demo/Demonstration.h"

#include "demo/Csv.h"
#include "demo/Database.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/Passwords.h"
#include "platform/quorvane32/session/Profile.h"
#include "tests/demo/Completeness.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace {

using namespace dalvora::demo;

const quorvane::RegionalSettings plain{u'.', u',', u'/'};

CsvTable csv(const char* name) {
    QFile file(QStringLiteral(DALVORA_SOURCE "/demo/northwind/%1.csv").arg(QLatin1String(name)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return CsvTable::parse(file.readAll());
}

/// One demonstration database for all tests that only read it.
class DemonstrationTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        s_folder = std::make_unique<QTemporaryDir>();
        createDemonstration(s_folder->path());
    }
    static void TearDownTestSuite() { s_folder.reset(); }

    void SetUp() override {
        const QString folder = s_folder->path();
        m_connection.open(quorvane::Profile::load(folder).resolvedConnectString(folder));
    }

    QString text(const QString& sql) {
        const quorvane::Recordset row = m_connection.openRecordset(sql);
        return row.eof() || row.value(0).isNull() ? QString() : row.value(0).toText(plain);
    }
    double number(const QString& sql) {
        const quorvane::Recordset row = m_connection.openRecordset(sql);
        return row.value(0).isNull() ? 0 : row.value(0).toNumber(plain);
    }

    static std::unique_ptr<QTemporaryDir> s_folder;
    quorvane::Connection m_connection;
};

std::unique_ptr<QTemporaryDir> DemonstrationTest::s_folder;

TEST_F(DemonstrationTest, HoldsARowForEveryRowOfTheTradingData) {
    const auto rows = [](const char* name) { return static_cast<double>(csv(name).rowCount()); };
    EXPECT_EQ(number(u"select count(*) from producto where empresa = '001'"_qs), rows("products"));
    EXPECT_EQ(number(u"select count(*) from relctacteprod where empresa = '001'"_qs), rows("products"));
    EXPECT_EQ(number(u"select count(*) from ctacte where empresa = '001' and tipoctacte = 'CLIENTE'"_qs),
              rows("customers"));
    EXPECT_EQ(number(u"select count(*) from ctacte where empresa = '001' and tipoctacte = 'PROVEEDOR'"_qs),
              rows("suppliers"));
    EXPECT_EQ(number(u"select count(*) from gen_tabcod where empresa = '001' and tipo = 'gen_vendedor'"_qs),
              rows("employees"));
    EXPECT_EQ(number(u"select count(*) from documento where empresa = '001' and tipodocto like 'FAC%' and "
                     "emitido = 'S' and vigencia <> 'a'"_qs),
              rows("orders"));
    EXPECT_EQ(number(u"select count(distinct familia) from producto where empresa = '001'"_qs),
              rows("categories"));
    EXPECT_EQ(number(u"select count(distinct subfamilia) from producto where empresa = '001'"_qs),
              rows("suppliers"));
}

TEST_F(DemonstrationTest, NetAmountsAreThoseOfTheOrderLines) {
    const CsvTable lines = csv("order_details");
    const auto column = [&](const char* name) { return lines.column(QLatin1String(name)); };
    std::map<QString, double> netOf;
    for (std::size_t row = 0; row < lines.rowCount(); ++row) {
        const double exact = lines.text(row, column("UnitPrice")).toDouble() *
                             lines.text(row, column("Quantity")).toDouble() *
                             (1 - lines.text(row, column("Discount")).toDouble());
        netOf[lines.text(row, column("OrderID"))] += std::floor(exact * 100 + 0.5 + 1e-6) / 100;
    }
    double total = 0;
    quorvane::Recordset rows = m_connection.openRecordset(
        u"select Numero, Neto, Impuesto, Flete, Total, TipoDocto from documento where Empresa = '001' and "
        "TipoDocto like 'FAC%'"_qs);
    for (; !rows.eof(); rows.moveNext()) {
        const double net = rows.value(u"Neto").toNumber(plain);
        const double tax = rows.value(u"Impuesto").toNumber(plain);
        const double lineCount = 25; // the most lines an order has: each rounds its tax by itself
        ASSERT_NEAR(net, netOf[rows.value(u"Numero").toText(plain)], 0.001);
        ASSERT_NEAR(tax, rows.value(u"TipoDocto").toText(plain) == u"FACTURA" ? net * 0.19 : 0,
                    0.005 * lineCount);
        ASSERT_NEAR(rows.value(u"Total").toNumber(plain), net + tax + rows.value(u"Flete").toNumber(plain),
                    0.001);
        total += net;
    }
    EXPECT_NEAR(total, 1265793.29, 0.001); // summed once with another program
}

TEST_F(DemonstrationTest, EveryDocumentHasItsLines) {
    const auto rows = static_cast<double>(csv("order_details").rowCount());
    EXPECT_EQ(number(u"select count(*) from documentod where empresa = '001' and tipodocto like 'FAC%'"_qs),
              rows);
    EXPECT_EQ(
        number(u"select count(*) from documento d left join (select empresa, tipodocto, numero, idctacte, "
               "sum(neto) neto, sum(impuesto) impuesto, count(*) lineas, max(linea) ultima from documentod "
               "group by empresa, tipodocto, numero, idctacte) l on l.empresa = d.empresa and l.tipodocto = "
               "d.tipodocto and l.numero = d.numero and l.idctacte = d.idctacte where l.neto is null or "
               "abs(l.neto - d.neto) > 0.001 or abs(l.impuesto - d.impuesto) > 0.001 or l.lineas <> "
               "l.ultima"_qs),
        0);
    EXPECT_EQ(
        number(u"select count(*) from documentod where abs(cantidad * precio * (100 - descuento) / 100.0 "
               u"- neto) > "
               "0.0051"_qs),
        0);
}

TEST_F(DemonstrationTest, DatesFreightAndCustomersAreThoseOfTheOrders) {
    const CsvTable orders = csv("orders");
    const auto column = [&](const char* name) { return orders.column(QLatin1String(name)); };
    for (std::size_t row = 0; row < orders.rowCount(); row += 7) {
        const quorvane::Recordset document = m_connection.openRecordset(
            u"select Fecha, Flete, IdCtaCte, Vendedor, Correlativo from documento where Empresa = '001' and "
            "TipoDocto like 'FAC%' and Numero = '"_qs +
            orders.text(row, column("OrderID")) + u'\'');
        ASSERT_FALSE(document.eof());
        const QDate date = QDate::fromString(orders.text(row, column("OrderDate")).left(10), Qt::ISODate);
        ASSERT_NE(document.value(u"Fecha").get<quorvane::Date>(), nullptr);
        EXPECT_EQ(document.value(u"Fecha").get<quorvane::Date>()->toQDate(), date);
        EXPECT_NEAR(document.value(u"Flete").toNumber(plain), orders.text(row, column("Freight")).toDouble(),
                    0.001);
        EXPECT_EQ(document.value(u"IdCtaCte").toText(plain), orders.text(row, column("CustomerID")));
        EXPECT_EQ(document.value(u"Vendedor").toText(plain), u'0' + orders.text(row, column("EmployeeID")));
        EXPECT_EQ(document.value(u"Correlativo").toText(plain), orders.text(row, column("OrderID")));
    }
}

TEST_F(DemonstrationTest, CreditNotesTakeBackLinesOfLateOrders) {
    const CsvTable orders = csv("orders");
    const auto dateOf = [&](std::size_t row, const char* name) {
        return QDate::fromString(orders.text(row, orders.column(QLatin1String(name))).left(10), Qt::ISODate);
    };
    int late = 0;
    for (std::size_t row = 0; row < orders.rowCount(); ++row)
        late += dateOf(row, "ShippedDate").isValid() &&
                dateOf(row, "OrderDate").daysTo(dateOf(row, "ShippedDate")) >= 30;
    ASSERT_GT(late, 0);
    EXPECT_EQ(
        number(
            u"select count(*) from documento d, tipodocumento td where d.empresa = '001' and td.empresa = "
            "d.empresa and d.tipodocto = td.tipodocto and td.clase like 'ncr%' and td.factormonto <> 0 and "
            "d.neto > 0 and d.emitido = 'S'"_qs),
        late);
    // Order 10380 was placed on 12/12/1996 and shipped on 16/01/1997; its first line sold 18 at 24.90 less 10
    // %.
    const quorvane::Recordset note = m_connection.openRecordset(
        u"select Fecha, Neto from documento where Empresa = '001' and TipoDocto = 'NCREDITO' and IdCtaCte = "
        "'HUNGO' and Fecha = '23/01/1997'"_qs);
    ASSERT_FALSE(note.eof());
    EXPECT_NEAR(note.value(u"Neto").toNumber(plain), 335.34, 0.001);
}

TEST_F(DemonstrationTest, CommissionAmountsFollowTheAssignedScheme) {
    const auto amounts = [&](const char* number) {
        const quorvane::Recordset row = m_connection.openRecordset(
            u"select coalesce(ComisionMonto, -1), coalesce(ComisionCantidad, -1), coalesce(ComisionlPrecio, "
            u"-1) "
            "from documento where Empresa = '001' and TipoDocto like 'FAC%' and Numero = '"_qs +
            QLatin1String(number) + u'\'');
        return QStringLiteral("%1 %2 %3")
            .arg(row.value(0).toText(plain), row.value(1).toText(plain), row.value(2).toText(plain));
    };
    EXPECT_EQ(amounts("10248"), u"8.8 0 0"_qs);
    EXPECT_EQ(amounts("10251"), u"0 15.56 0"_qs);
    EXPECT_EQ(amounts("10258"), u"12.11 24.22 4.04"_qs);
    EXPECT_EQ(amounts("10255"), u"-1 -1 -1"_qs) << "salesperson 09 has no scheme";
}

TEST_F(DemonstrationTest, HasTheConfigurationThatTheProgramAsksFor) {
    for (const char* company : {"001", "002"}) {
        const QString of = QStringLiteral(" where empresa = '%1' ").arg(QLatin1String(company));
        EXPECT_EQ(
            number(u"select count(*) from gen_tabcod a, gen_tabcod b where a.empresa = '%1' and a.tipo = "
                   "'CONFIG.EMPRESA' and a.codigo = 'MONEDA' and a.empresa = b.empresa and b.tipo = "
                   "'GEN_MONEDA' and b.codigo = a.texto"_qs.arg(QLatin1String(company))),
            1);
        EXPECT_EQ(number(u"select count(*) from gen_tabcod"_qs + of +
                         u"and tipo = 'config.dalvora' and codigo = 'DECIMALES.CANTIDAD'"_qs),
                  1);
        for (const char* setting : {"RAZON", "DIRECCION", "COMUNA", "CIUDAD", "FONO", "CODLEGAL", "GIRO",
                                    "CODLEGALREP", "REPLEGAL"})
            EXPECT_NE(text(u"select texto from gen_tabcod"_qs + of +
                           u"and tipo = 'CONFIG.EMPRESA' and codigo = '%1'"_qs.arg(QLatin1String(setting))),
                      QString())
                << setting;
    }
    EXPECT_EQ(
        text(u"Select valor1 from gen_tabcod where  empresa = '001' and tipo = 'config.dalvora' and codigo "
             "='DECIMALES.CANTIDAD'"_qs),
        u"2"_qs);
    EXPECT_EQ(
        text(u"select texto from gen_tabcod where tipo = 'gen_vendedor'  and empresa = '001' and codigo = "
             "'03'"_qs),
        u"FAMILIAS"_qs);
}

TEST_F(DemonstrationTest, HasSchemesOfEveryKindOfLineOverSeveralPeriods) {
    EXPECT_GE(number(u"select count(distinct codigo) from comisiones where empresa = '001'"_qs), 6);
    for (const char* kind : {"Producto", "Monto", "Precio"})
        EXPECT_GT(number(u"select count(*) from comisionesd where empresa = '001' and tipo = '%1'"_qs.arg(
                      QLatin1String(kind))),
                  0);
    EXPECT_EQ(number(u"select count(*) from comisiones where empresa = '001' and codigo = 'general'"_qs), 3);
    EXPECT_EQ(
        number(u"select count(*) from comisionesd cd left join comisiones c on c.empresa = cd.empresa and "
               "c.codigo = cd.codigo and c.fechainicio = cd.fechainicio and c.fechafinal = cd.fechafinal "
               "where c.codigo is null"_qs),
        0)
        << "a line without its header";
    EXPECT_EQ(
        number(
            u"select count(*) from comisiones a, comisiones b where a.empresa = '001' and b.empresa = '002' "
            "and a.codigo = b.codigo and a.fechainicio = b.fechainicio and a.fechafinal = b.fechafinal"_qs),
        3)
        << "the second company shares code and period with the first";
}

TEST_F(DemonstrationTest, TheSecondCompanyHasDocumentsNotIssuedAndVoided) {
    EXPECT_EQ(number(u"select count(*) from documento where empresa = '002' and emitido = 'N'"_qs), 1);
    EXPECT_EQ(number(u"select count(*) from documento where empresa = '002' and vigencia = 'A'"_qs), 1);
    EXPECT_GT(
        number(u"select count(*) from documento where empresa = '002' and emitido = 'S' and vigencia <> "
               "'a'"_qs),
        0);
    EXPECT_EQ(number(u"select count(distinct familia) from producto where empresa = '002'"_qs), 1);
}

TEST_F(DemonstrationTest, UsersHaveTheDocumentedPasswordsAndRights) {
    for (const DemonstrationUser& user : demonstrationUsers) {
        const QString name = QLatin1String(user.code);
        EXPECT_TRUE(quorvane::verifyPassword(
            text(u"select clave from ses_usuario where usuario = '"_qs + name + u'\''),
            QLatin1String(user.password)));
        EXPECT_EQ(text(u"select derechos from ses_derecho where programa = 'veltrano' and usuario = '"_qs +
                       name + u'\''),
                  QLatin1String(user.rights));
    }
}

TEST_F(DemonstrationTest, TextsHoldNoForeignGroupNames) {
    EXPECT_EQ(
        text(u"select descripcion from gen_tabcod where empresa = '001' and tipo = 'familia' and codigo = "
             "'lacteos'"_qs),
        u"Productos lácteos"_qs);
    EXPECT_EQ(text(u"select pais from ctacte where empresa = '001' and ctacte = 'ALFKI'"_qs), u"Alemania"_qs);
}

TEST(FirstStart, KeepsADatabaseAndAProfileThatAreThere) {
    const QTemporaryDir folder;
    createEmptyDatabase(folder.filePath(u"quorvane.db"_qs));
    QFile profile(folder.filePath(u"quorvane.ini"_qs));
    ASSERT_TRUE(profile.open(QIODevice::WriteOnly));
    profile.write("mine");
    profile.close();
    createDemonstration(folder.path());
    ASSERT_TRUE(profile.open(QIODevice::ReadOnly));
    EXPECT_EQ(profile.readAll(), QByteArray("mine"));
    EXPECT_FALSE(isComplete(folder.filePath(u"quorvane.db"_qs)));
}

TEST(FirstStart, InAFolderThatCannotBeMadeIsAPathError) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"taken"_qs));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    try {
        createDemonstration(folder.filePath(u"taken/below"_qs));
        FAIL();
    } catch (const quorvane::RunTimeError& error) {
        EXPECT_EQ(error.number(), quorvane::ErrorPathAccess);
    }
}

} // namespace
