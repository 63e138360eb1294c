#include "demo/ScaleData.h"

#include "demo/Database.h"
#include "platform/quorvane32/core/Connection.h"
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using namespace dalvora::demo;

class ScaleDataTest : public testing::Test {
protected:
    void SetUp() override {
        createEmptyDatabase(m_path);
        m_connection.open(QStringLiteral("Driver=sqlite;Database=") + m_path);
    }
    double count(const QString& from) {
        return m_connection.openRecordset(QStringLiteral("select count(*) from ") + from)
            .value(0)
            .toNumber(quorvane::RegionalSettings());
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("scale.db"));
    ScaleData m_scale{m_path, QStringLiteral("001")};
    quorvane::Connection m_connection;
};

TEST_F(ScaleDataTest, AddsASchemeOfAsManyLinesAsAsked) {
    m_scale.addScheme({QStringLiteral("GRANDE"), QDate(1997, 1, 1), QDate(1997, 12, 31), 5000, 40, 30});
    EXPECT_EQ(count(QStringLiteral("Comisiones")), 1);
    EXPECT_EQ(count(QStringLiteral("ComisionesD where Tipo = 'Producto'")), 5000);
    EXPECT_EQ(count(QStringLiteral("ComisionesD where Tipo = 'Monto'")), 40);
    EXPECT_EQ(count(QStringLiteral("ComisionesD where Tipo = 'Precio'")), 30);
    EXPECT_EQ(count(QStringLiteral("ComisionesD where Porcentaje <= 0 or Porcentaje > 100")), 0);
}

TEST_F(ScaleDataTest, AddsManyOfEverythingElse) {
    m_scale.addSchemes(50, 3);
    m_scale.addProducts(2000);
    m_scale.addSalespeople(5001);
    m_scale.addDocuments(3000);
    EXPECT_EQ(count(QStringLiteral("Comisiones")), 50);
    EXPECT_EQ(count(QStringLiteral("ComisionesD")), 150);
    EXPECT_EQ(count(QStringLiteral("producto")), 2000);
    EXPECT_EQ(count(QStringLiteral("gen_tabcod where tipo = 'gen_vendedor'")), 5001);
    EXPECT_EQ(count(QStringLiteral("documento where emitido = 'S' and Vendedor <> ''")), 3000);
    EXPECT_EQ(count(QStringLiteral("documento where TipoDocto = 'NCREDITO'")), 150);
}

} // namespace
