#include "sql/Schema.h"

#include <QString>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

int compareBytes(void*, int lengthA, const void* a, int lengthB, const void* b) {
    return QByteArrayView(static_cast<const char*>(a), lengthA)
        .compare(QByteArrayView(static_cast<const char*>(b), lengthB), Qt::CaseInsensitive);
}

class SchemaTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(sqlite3_open(":memory:", &m_database), SQLITE_OK);
        sqlite3_create_collation(m_database, "ERP_ES", SQLITE_UTF8, nullptr, compareBytes);
        ASSERT_EQ(execute(dalvora::erpTables()), SQLITE_OK) << sqlite3_errmsg(m_database);
        ASSERT_EQ(execute(dalvora::sessionTables()), SQLITE_OK) << sqlite3_errmsg(m_database);
    }
    void TearDown() override { sqlite3_close(m_database); }

    int execute(const QByteArray& sql) {
        const int result = sqlite3_exec(m_database, sql.constData(), nullptr, nullptr, nullptr);
        return result == SQLITE_OK ? result : sqlite3_extended_errcode(m_database);
    }

    sqlite3* m_database = nullptr;
};

TEST_F(SchemaTest, ASchemeIsIdentifiedByCompanyCodeAndPeriod) {
    const QByteArray insert = "insert into Comisiones (Empresa, Codigo, FechaInicio, FechaFinal) values ";
    EXPECT_EQ(execute(insert + "('001', 'A', '1997-01-01', '1997-12-31')"), SQLITE_OK);
    EXPECT_EQ(execute(insert + "('001', 'A', '1998-01-01', '1998-12-31')"), SQLITE_OK);
    EXPECT_EQ(execute(insert + "('002', 'A', '1997-01-01', '1997-12-31')"), SQLITE_OK);
    EXPECT_EQ(execute(insert + "('001', 'a', '1997-01-01', '1997-12-31')"), SQLITE_CONSTRAINT_PRIMARYKEY);
}

TEST_F(SchemaTest, ALineIsIdentifiedByEverythingButItsDescription) {
    const QString insert = QStringLiteral(
        "insert into ComisionesD (Empresa, Codigo, FechaInicio, FechaFinal, Tipo, Concepto, CantidadInicio, "
        "CantidadFinal, Porcentaje, SubTipo, Calculo, Descripcion) values ('001', 'A', '1997-01-01', "
        "'1997-12-31', %1)");
    const auto add = [&](const char* rest) { return execute(insert.arg(QLatin1String(rest)).toUtf8()); };
    EXPECT_EQ(add("'Producto', 'X', 0, 10, 5, 'Familia', 'Neto', 'one'"), SQLITE_OK);
    EXPECT_EQ(add("'Monto', 'X', 0, 10, 5, 'Familia', 'Neto', 'one'"), SQLITE_OK);
    EXPECT_EQ(add("'Producto', 'Y', 0, 10, 5, 'Familia', 'Neto', 'one'"), SQLITE_OK);
    EXPECT_EQ(add("'Producto', 'X', 1, 10, 5, 'Familia', 'Neto', 'one'"), SQLITE_OK);
    EXPECT_EQ(add("'Producto', 'X', 0, 11, 5, 'Familia', 'Neto', 'one'"), SQLITE_OK);
    EXPECT_EQ(add("'Producto', 'X', 0, 10, 6, 'Familia', 'Neto', 'one'"), SQLITE_OK);
    EXPECT_EQ(add("'Producto', 'X', 0, 10, 5, 'SubFamilia', 'Neto', 'one'"), SQLITE_OK);
    EXPECT_EQ(add("'Producto', 'X', 0, 10, 5, 'Familia', 'Total', 'one'"), SQLITE_OK);
    EXPECT_EQ(add("'Producto', 'X', 0, 10, 5, 'Familia', 'Neto', 'another'"), SQLITE_CONSTRAINT_PRIMARYKEY);
}

TEST_F(SchemaTest, AmountLinesAreStoredWithoutASubtype) {
    EXPECT_EQ(
        execute("INSERT INTO ComisionesD ( Empresa, Codigo, tipo, Concepto,Descripcion,  "
                "CantidadInicio, CantidadFinal, Porcentaje, FechaInicio, FechaFinal, Calculo  ) VALUES "
                "( '001', 'A', 'Monto', 'TODOS', ' ', 0, 0, 2.5 , '1997-01-01','1997-12-31', 'Neto'  ) "),
        SQLITE_OK)
        << sqlite3_errmsg(m_database);
}

} // namespace
