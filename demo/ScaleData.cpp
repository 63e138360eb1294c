#include "demo/ScaleData.h"

#include "demo/RowInserter.h"
#include "demo/SalesDocuments.h"
#include "demo/SqliteTarget.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include <QStringList>
#include <functional>
#include <sqlite3.h>

namespace dalvora::demo {

namespace {

constexpr char headerColumns[] = "Empresa, Codigo, Descripcion, FechaInicio, FechaFinal, Acumulable";
constexpr char lineColumns[] = "Empresa, Codigo, Tipo, Concepto, Descripcion, CantidadInicio, CantidadFinal, "
                               "Porcentaje, FechaInicio, FechaFinal, SubTipo, Calculo";
constexpr const char* subTypes[] = {"Producto", "Familia", "SubFamilia", "TipoProducto"};
constexpr Hundredths bracketSize = 1000; // ten units

QString numbered(char16_t letter, int number) {
    return QChar(letter) + QString::number(number).rightJustified(6, u'0');
}

/// 0.01 % to 100 %, never the same for neighbours.
Amount percentOf(int number) {
    return {static_cast<Hundredths>(number) * 37 % 10000 + 1};
}

void inTransaction(const QString& path, const std::function<void(SqliteTarget&)>& work) {
    const auto database = quorvane::sqlite::open(path, quorvane::sqlite::Access::ReadWrite, 5000);
    quorvane::sqlite::run(database.get(), "BEGIN IMMEDIATE");
    SqliteTarget target(database.get());
    work(target); // an error closes the database, which undoes everything
    quorvane::sqlite::run(database.get(), "COMMIT");
}

void addProductLines(RowInserter& lines, const QString& company, const ScaleData::SchemeSize& size) {
    for (int i = 0; i < size.productLines; ++i)
        lines.add(company, size.code, "Producto", numbered(u'X', i + 1),
                  QStringLiteral("Producto %1").arg(i + 1), Amount{i % 7 * bracketSize},
                  Amount{(i % 7 + 1) * bracketSize - 1}, percentOf(i), size.start, size.end, subTypes[i % 4],
                  i % 2 == 0 ? "Neto" : "Total");
}

/// The company's customers; a stranger when it has none.
QStringList customersOf(sqlite3* database, const QString& company) {
    const auto rows = quorvane::sqlite::prepare(
        database, "SELECT CtaCte FROM ctacte WHERE Empresa = ? AND TipoCtaCte = 'CLIENTE' ORDER BY CtaCte");
    const QByteArray code = company.toUtf8();
    sqlite3_bind_text(rows.get(), 1, code.constData(), static_cast<int>(code.size()), SQLITE_STATIC);
    QStringList customers;
    while (sqlite3_step(rows.get()) == SQLITE_ROW)
        customers.append(
            QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), 0))));
    return customers.isEmpty() ? QStringList{QStringLiteral("ALFKI")} : customers;
}

} // namespace

void ScaleData::addScheme(const SchemeSize& size) const {
    inTransaction(m_path, [&](SqliteTarget& target) {
        RowInserter(target, "Comisiones", headerColumns)
            .add(m_company, size.code, "Comisión de gran tamaño", size.start, size.end, "N");
        RowInserter lines(target, "ComisionesD", lineColumns);
        addProductLines(lines, m_company, size);
        for (int i = 0; i < size.amountLines; ++i)
            lines.add(m_company, size.code, "Monto", "TODOS", " ", Amount{i * bracketSize},
                      Amount{(i + 1) * bracketSize - 1}, percentOf(i), size.start, size.end, "", "Neto");
        for (int i = 0; i < size.priceLines; ++i)
            lines.add(m_company, size.code, "Precio", numbered(u'L', i + 1), "Lista de precios", 0, 0,
                      percentOf(i), size.start, size.end, "", "Neto");
    });
}

void ScaleData::addSchemes(int count, int linesEach) const {
    inTransaction(m_path, [&](SqliteTarget& target) {
        RowInserter headers(target, "Comisiones", headerColumns);
        RowInserter lines(target, "ComisionesD", lineColumns);
        for (int i = 0; i < count; ++i) {
            const SchemeSize size{numbered(u'S', i + 1),
                                  QDate(1996 + i % 3, 1, 1),
                                  QDate(1996 + i % 3, 12, 31),
                                  linesEach,
                                  0,
                                  0};
            headers.add(m_company, size.code, QStringLiteral("Comisión %1").arg(i + 1), size.start, size.end,
                        "N");
            addProductLines(lines, m_company, size);
        }
    });
}

void ScaleData::addProducts(int count) const {
    inTransaction(m_path, [&](SqliteTarget& target) {
        RowInserter products(
            target, "producto",
            "Empresa, Producto, Glosa, Familia, SubFamilia, TipoProducto, Unidad, PrecioVenta");
        for (int i = 0; i < count; ++i)
            products.add(m_company, numbered(u'X', i + 1), QStringLiteral("Artículo número %1").arg(i + 1),
                         numbered(u'F', i % 100 + 1), numbered(u'G', i % 1000 + 1),
                         numbered(u'T', i % 10 + 1), "UNIDAD", Amount{i % 10000 + 1});
    });
}

void ScaleData::addSalespeople(int count) const {
    inTransaction(m_path, [&](SqliteTarget& target) {
        RowInserter codes(target, "gen_tabcod", "Empresa, Tipo, Codigo, Descripcion");
        for (int i = 0; i < count; ++i)
            codes.add(m_company, "GEN_VENDEDOR", numbered(u'S', i + 1),
                      QStringLiteral("Vendedor %1").arg(i + 1));
    });
}

void ScaleData::addDocuments(int count) const {
    constexpr int firstNumber = 1000001;
    constexpr int days = 1096;
    constexpr int invoicesForANote = 20;
    inTransaction(m_path, [&](SqliteTarget& target) {
        const QStringList customers = customersOf(target.database(), m_company);
        RowInserter documents(
            target, "documento",
            "Empresa, TipoDocto, Numero, IdCtaCte, TipoCtaCte, Correlativo, Fecha, Vendedor, "
            "Moneda, Neto, Total, Emitido, ComisionMonto, ComisionCantidad, ComisionlPrecio");
        const QDate start(1996, 1, 1);
        for (int i = 0; i < count; ++i) {
            const Hundredths net = 1000 + i * 7919LL % 1000000;
            const bool isNote = i % invoicesForANote == invoicesForANote - 1;
            documents.add(m_company, QString::fromUtf16(isNote ? creditNoteType : invoiceType),
                          QString::number(firstNumber + i), customers[i * 31LL % customers.size()], "CLIENTE",
                          firstNumber + i, start.addDays(qint64(i) * days / count),
                          u'0' + QString::number(i % 9 + 1), "USD", Amount{net}, Amount{net}, "S",
                          Amount{net / 100}, Amount{net / 50}, Amount{net / 200});
        }
    });
}

} // namespace dalvora::demo
