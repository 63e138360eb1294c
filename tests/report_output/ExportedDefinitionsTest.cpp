#include "platform/reportengine/definition/DefinitionReader.h"
#include "platform/reportengine/output/CsvOutput.h"
#include "tests/report_output/ExportFixture.h"
#include "tests/report_output/SheetReader.h"
#include "tests/support/ListRows.h"
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using quorvane::test::ListRows;
using quorvane::test::RowValues;

namespace quorvane::report::test {

namespace {

Date day(int month, int number) {
    return Date::fromYmd(1997, month, number);
}

/// Values for any column, with something special in each: texts that need quotes, figures below zero,
/// missing values, names in groups.
Value madeUp(const Column& column, qint64 row) {
    const bool isMissing = (row + column.name.size()) % 17 == 0;
    switch (column.type) {
    case ColumnType::Number:
        return isMissing ? Value(Value::Null{}) : Value(static_cast<double>(row * 37 % 1000 - 200) * 1.25);
    case ColumnType::Date:
        return isMissing ? Value(Date()) : Value(day(7 + static_cast<int>(row / 40 % 3), 1));
    default:
        if (column.name == u"acumulable")
            return row / 40 % 2 == 0 ? u"S"_s : u"N"_s;
        if (column.name == u"tipo" && row % 80 > 60)
            return QString();
        return isMissing ? u"=%1;%2"_s.arg(column.name).arg(row)
                         : u"%1 %2"_s.arg(column.name).arg(row / 20 % 7, 2, 10, QChar(u'0'));
    }
}

std::unique_ptr<RowSource> madeUpRows(const Definition& definition, qint64 count) {
    QStringList names;
    std::vector<Column> columns;
    for (const Column& column : definition.columns)
        if (column.origin == Column::Origin::Rows) {
            names << column.name;
            columns.push_back(column);
        }
    return std::make_unique<ListRows>(names, count, [columns](qint64 row) {
        RowValues values;
        for (const Column& column : columns)
            values.push_back(madeUp(column, row));
        return values;
    });
}

/// What a cell should hold for an object: a number as its digits, a text as it is.
QString expectedCell(const PageContext& context, const Page& page, const Band& band, int object) {
    const ReportObject& shown = context.definition->sections[band.section].objects[object];
    QString text = fieldText(context, page, band, object);
    if (text.isEmpty() || shown.kind != ObjectKind::Field || band.values.empty())
        return text;
    const Value& value = band.values[object];
    if (isNumber(value))
        return QString::number(value.toNumber(context.regional), 'g', 15);
    if (const Date* date = value.get<Date>()) {
        const QDate shownDay = date->toQDate();
        return QString::number(shown.dateForm == DateForm::Month
                                   ? Date::fromYmd(shownDay.year(), shownDay.month(), 1).serial()
                                   : date->serial());
    }
    return text;
}

} // namespace

/// The reports that the program comes with, in the folder where a company changes them.
class ExportedDefinitionsTest : public ExportFixture, public testing::WithParamInterface<const char*> {
protected:
    void openDefinition(const QString& name) {
        definition = readDefinition(QStringLiteral(REPORT_DEFINITIONS) + u'/' + name + u".rpt"_s);
        for (Formula& formula : definition.formulas)
            formula.text = u"\"Texto de %1\""_s.arg(formula.name.mid(2).chopped(1));
    }
    void fill(std::unique_ptr<RowSource> rows) {
        layout = std::make_unique<Layout>(definition, std::move(rows));
        layout->finish();
        source.layout = layout.get();
        source.context.definition = &definition;
    }
    QStringList csv(const QString& name, const QStringList& columns, std::vector<RowValues> rows) {
        openDefinition(name);
        fill(std::make_unique<ListRows>(columns, std::move(rows)));
        EXPECT_TRUE(writeCsv(source, path(u"a.csv"_s), {}));
        return QString::fromUtf8(contentOf(path(u"a.csv"_s)).mid(3)).split(u"\r\n"_s, Qt::SkipEmptyParts);
    }
    /// Everything that the pages show, once, in any order; page footers have no place in a sheet.
    QStringList shownOnPages() {
        QStringList shown;
        for (int number = 0; number < layout->pageCount(); ++number) {
            const Page page = layout->page(number);
            for (const Band& band : page.bands) {
                const Section& section = definition.sections[band.section];
                const bool again = band.repeated || (section.kind == SectionKind::PageHeader && number > 0);
                if (again || section.kind == SectionKind::PageFooter)
                    continue;
                for (int object = 0; object < static_cast<int>(section.objects.size()); ++object)
                    shown << expectedCell(source.context, page, band, object);
            }
        }
        return words(shown);
    }
    /// Sorted words: texts may be joined in a cell.
    static QStringList words(const QStringList& texts) {
        QStringList words = texts.join(u' ').split(QRegularExpression(u"\\s+"_s), Qt::SkipEmptyParts);
        words.sort();
        return words;
    }
    static QStringList shownInSheet(const SheetReader& sheet) {
        QStringList shown;
        for (int row = 0; row < sheet.rowCount(); ++row)
            shown << sheet.row(row);
        return words(shown);
    }

    std::unique_ptr<Layout> layout;
};

TEST_P(ExportedDefinitionsTest, SheetHoldsAllThatThePagesShow) {
    openDefinition(QString::fromLatin1(GetParam()));
    fill(madeUpRows(definition, 700));
    ASSERT_TRUE(writeSpreadsheet(source, path(u"a.xlsx"_s), {}));
    const SheetReader sheet(path(u"a.xlsx"_s));
    EXPECT_EQ(shownInSheet(sheet), shownOnPages());
    EXPECT_GT(layout->pageCount(), 1);
    for (int row = 0; row < sheet.rowCount(); ++row)
        EXPECT_LE(sheet.row(row).size(), sheet.row(3).size()) << "nothing stands outside the columns";
    EXPECT_EQ(sheet.frozenRows(), 4) << "three lines of the company, then the headings";
}

INSTANTIATE_TEST_SUITE_P(Reports, ExportedDefinitionsTest,
                         testing::Values("ComisionesVendedor", "ResumenMensualVendedor", "DetalleCodigos",
                                         "ListaCodigos"));

TEST_F(ExportedDefinitionsTest, DocumentsOfSalespeopleAsLines) {
    const QStringList lines =
        csv(u"ComisionesVendedor"_s,
            {u"vendedor"_s, u"TipoDocto"_s, u"Correlativo"_s, u"numero"_s, u"Fecha"_s, u"RazonSocial"_s,
             u"neto"_s, u"ComisionMonto"_s, u"ComisionCantidad"_s, u"ComisionlPrecio"_s},
            {{u"ANA"_s, u"FACTURA"_s, 5.0, u"0005"_s, day(7, 3), u"El Sol; Ltda."_s, 1000.0, 10.1, 0.2,
              Value(Value::Null{})},
             {u"ANA"_s, u"NCR"_s, 6.0, u"0006"_s, day(7, 4), u"-"_s, 1000.0, -10.5, 0.0, 0.0}});
    EXPECT_EQ(
        lines,
        (QStringList{
            u"Vendedor;Fecha;Documento;Número;;Cliente;Neto;Por monto;Por cantidad;Por precio;Comisión"_s,
            u"ANA;03/07/1997;FACTURA;0005;;\"El Sol; Ltda.\";1000;10,1;0,2;;10,3"_s,
            u"ANA;04/07/1997;NCR;0006;N/C;'-;1000;-10,5;0;0;-10,5"_s}));
}

TEST_F(ExportedDefinitionsTest, MonthsOfSalespeopleAsLines) {
    const QStringList lines =
        csv(u"ResumenMensualVendedor"_s,
            {u"vendedor"_s, u"Fecha"_s, u"ComisionMonto"_s, u"ComisionCantidad"_s, u"ComisionlPrecio"_s},
            {{u"ANA"_s, day(7, 3), 10.0, 1.0, 0.5},
             {u"ANA"_s, day(7, 20), 20.0, 0.0, 0.0},
             {u"ANA"_s, day(8, 1), -5.0, 0.0, 0.0},
             {u"LUIS"_s, day(8, 2), 1.0, 0.0, 0.0}});
    EXPECT_EQ(lines, (QStringList{u"Vendedor;Mes;Documentos;Por monto;Por cantidad;Por precio;Comisión"_s,
                                  u"ANA;julio 1997;2;30;1;0,5;31,5"_s, u"ANA;agosto 1997;1;-5;0;0;-5"_s,
                                  u"LUIS;agosto 1997;1;1;0;0;1"_s}));
}

TEST_F(ExportedDefinitionsTest, LinesOfSchemesWithTheirScheme) {
    const QStringList lines =
        csv(u"DetalleCodigos"_s,
            {u"codigo"_s, u"descripcion"_s, u"fechaInicio"_s, u"fechafinal"_s, u"acumulable"_s, u"tipo"_s,
             u"DescripcionDetalle"_s, u"concepto"_s, u"porcentaje"_s, u"cantidadInicio"_s, u"cantidadfinal"_s,
             u"subtipo"_s, u"calculo"_s},
            {{u"A1"_s, u"Zapatos"_s, day(7, 1), day(9, 30), u"S"_s, u"MONTO"_s, u"Bota"_s, u"B"_s, 2.5, 1.0,
              99.0, u"LINEA"_s, u"N"_s},
             {u"B2"_s, u"Vacío"_s, day(7, 1), day(9, 30), u"N"_s, QString(), QString(), QString(),
              Value(Value::Null{}), Value(Value::Null{}), Value(Value::Null{}), QString(), QString()}});
    EXPECT_EQ(
        lines,
        (QStringList{
            u"codigo;descripcion;fechaInicio;fechafinal;;tipo;Aplica a;Concepto;Descripción;Desde;Hasta;%;Sobre"_s,
            u"A1;Zapatos;01/07/1997;30/09/1997;Los porcentajes se acumulan;MONTO;LINEA;B;Bota;1;99;2,5;N"_s,
            u"B2;Vacío;01/07/1997;30/09/1997;Los porcentajes no se acumulan;Sin líneas;;;;;;;"_s}));
}

TEST_F(ExportedDefinitionsTest, SchemesAsLines) {
    openDefinition(u"ListaCodigos"_s);
    fill(madeUpRows(definition, 700));
    ASSERT_TRUE(writeCsv(source, path(u"a.csv"_s), {}));
    const QStringList lines =
        QString::fromUtf8(contentOf(path(u"a.csv"_s)).mid(3)).split(u"\r\n"_s, Qt::SkipEmptyParts);
    EXPECT_EQ(lines.at(0), u"Código;Descripción;Desde;Hasta;Acumula;Productos;Montos;Precios;Líneas"_s);
    int schemes = 0;
    for (int number = 0; number < layout->pageCount(); ++number)
        for (const Band& band : layout->page(number).bands)
            schemes += definition.sections[band.section].kind == SectionKind::GroupFooter;
    EXPECT_EQ(lines.size(), 1 + schemes);
    for (const QString& line : lines)
        EXPECT_EQ(line.count(u';'), 8 + line.count(u"\"'=")) << line.toStdString();
}

TEST_F(ExportedDefinitionsTest, AConnectionLostOnTheWayLeavesTheOldFiles) {
    openDefinition(u"ComisionesVendedor"_s);
    for (const QString& name : {u"a.xlsx"_s, u"a.csv"_s}) {
        writeOld(path(name));
        auto rows = madeUpRows(definition, 700);
        static_cast<ListRows&>(*rows).failAt(500);
        layout = std::make_unique<Layout>(definition, std::move(rows));
        source.layout = layout.get();
        source.context.definition = &definition;
        const auto write = name == u"a.csv" ? writeCsv : writeSpreadsheet;
        EXPECT_EQ(errorOf([&] { write(source, path(name), {}); }).number(), ErrorConnectionLost);
        EXPECT_EQ(contentOf(path(name)), "antes");
    }
    EXPECT_EQ(filesIn(folder.path()), (QStringList{u"a.csv"_s, u"a.xlsx"_s}));
}

} // namespace quorvane::report::test
