#include "demo/lorbadeno/DocumentReader.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include "platform/quorvane32/session/Profile.h"
#include "tests/lorbadeno/DemonstrationHome.h"
#include <QDir>
#include <QFile>

using namespace dalvora::lorbadeno;
using namespace dalvora::test;

namespace {

class Reader : public DemonstrationHome {
protected:
    DocumentReader reader{s_home->path()};
};

} // namespace

TEST_F(Reader, ADocumentComesWithTheNamesBehindItsCodes) {
    const StoredDocument document = reader.read({u"001"_s, u"factura"_s, u"HANAR"_s, u"10250"_s});
    EXPECT_EQ(document.company.label, u"Comercial Viento Norte S.A."_s);
    EXPECT_EQ(document.type.code, u"FACTURA"_s);
    EXPECT_EQ(document.type.label, u"Factura de venta"_s);
    EXPECT_EQ(document.number, u"10250"_s);
    EXPECT_EQ(document.customer.label, u"Hanari Carnes"_s);
    EXPECT_EQ(document.customerPlace, u"Rio de Janeiro, Brasil"_s);
    EXPECT_EQ(document.priceList.code, u"L1996"_s);
    EXPECT_FALSE(document.salesperson.label.isEmpty());
    EXPECT_EQ(document.currency.code, u"USD"_s);
    EXPECT_EQ(document.decimals, 2);
    EXPECT_TRUE(document.issued);
    EXPECT_FALSE(document.voided);
    EXPECT_EQ(document.date, quorvane::Date::fromYmd(1996, 7, 8));
}

TEST_F(Reader, ItsLinesAddUpToItsNetAmount) {
    const StoredDocument document = reader.read({u"001"_s, u"FACTURA"_s, u"HANAR"_s, u"10250"_s});
    ASSERT_TRUE(document.linesKept);
    ASSERT_EQ(document.lines.size(), 3U);
    double net = 0;
    for (const StoredLine& line : document.lines) {
        EXPECT_FALSE(line.product.label.isEmpty());
        net += line.net;
    }
    EXPECT_NEAR(net, document.net, 0.001);
    EXPECT_NEAR(document.total, document.net + document.tax + document.freight, 0.001);
}

TEST_F(Reader, TheStateIsThatOfTheDocument) {
    quorvane::Connection connection;
    connection.open(quorvane::Profile::load(s_home->path()).resolvedConnectString(s_home->path()));
    const auto read = [&](const QString& condition) {
        const quorvane::Recordset row =
            connection.openRecordset(u"select * from documento where Empresa = '002' and "_s + condition);
        const auto text = [&](QStringView name) { return row.value(name).toText({}); };
        return reader.read({u"002"_s, text(u"TipoDocto"), text(u"IdCtaCte"), text(u"Numero")});
    };
    EXPECT_FALSE(read(u"Emitido = 'N'"_s).issued);
    EXPECT_TRUE(read(u"Vigencia = 'A'"_s).voided);
}

TEST_F(Reader, WhatDoesNotExistIsRefusedByName) {
    EXPECT_EQ(refusal([&] {
                  reader.read({u"001"_s, u"FACTURA"_s, u"NADIE"_s, u"10250"_s});
              }),
              u"No existe el documento FACTURA 10250 de la cuenta corriente «NADIE»"_s);
    EXPECT_EQ(refusal([&] {
                  reader.read({u"001"_s, u"' or '1'='1"_s, u"' or '1'='1"_s, u"1"_s});
              }),
              u"No existe el documento ' or '1'='1 1 de la cuenta corriente «' or '1'='1»"_s);
    EXPECT_EQ(refusal([&] {
                  reader.read({u"009"_s, u"FACTURA"_s, u"HANAR"_s, u"10250"_s});
              }),
              u"No existe la empresa 009"_s);
}

TEST_F(Reader, AProfileThatIsNotThereIsToldWithItsFile) {
    const QTemporaryDir empty;
    DocumentReader nowhere(empty.path());
    EXPECT_EQ(refusal([&] {
                  nowhere.read({u"001"_s, u"F"_s, u"A"_s, u"1"_s});
              }),
              u"No se encontró el perfil "_s + QDir::toNativeSeparators(empty.filePath(u"quorvane.ini"_s)));
}

TEST_F(Reader, ADatabaseWithoutLinesShowsTheRest) {
    const QTemporaryDir old;
    for (const QString& name : {u"quorvane.db"_s, u"quorvane.ini"_s})
        ASSERT_TRUE(QFile::copy(s_home->filePath(name), old.filePath(name)));
    quorvane::sqlite::run(
        quorvane::sqlite::open(old.filePath(u"quorvane.db"_s), quorvane::sqlite::Access::ReadWrite, 0).get(),
        "DROP TABLE documentod");
    DocumentReader oldReader(old.path());
    const StoredDocument document = oldReader.read({u"001"_s, u"FACTURA"_s, u"HANAR"_s, u"10250"_s});
    EXPECT_FALSE(document.linesKept);
    EXPECT_EQ(document.customer.label, u"Hanari Carnes"_s);
}

TEST_F(Reader, ItsConnectionCannotWrite) {
    quorvane::Connection connection;
    connection.open(quorvane::Profile::load(s_home->path()).resolvedConnectString(s_home->path()) +
                    u"ReadOnly=S"_s);
    EXPECT_THROW(connection.execute(u"delete from documento"_s), quorvane::RunTimeError);
    EXPECT_FALSE(connection.openRecordset(u"select * from documento"_s).eof());
}
