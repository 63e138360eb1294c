#include "tests/report_output/SampleReport.h"

using namespace Qt::StringLiterals;

namespace quorvane::report::test {

namespace {

constexpr double mm = 72 / 25.4;

Style style(double size, bool bold, const QColor& colour, Qt::Alignment horizontal) {
    Style style;
    style.family = u"Liberation Sans, DejaVu Sans"_s;
    style.size = size;
    style.bold = bold;
    style.colour = colour;
    style.alignment = horizontal | Qt::AlignVCenter;
    return style;
}

ReportObject object(ObjectKind kind, QRectF place, int look) {
    ReportObject object;
    object.kind = kind;
    object.rect = {place.x() * mm, place.y() * mm, place.width() * mm, place.height() * mm};
    object.style = look;
    return object;
}

ReportObject text(QRectF place, int look, const QString& content) {
    ReportObject made = object(ObjectKind::Text, place, look);
    made.text = content;
    return made;
}

ReportObject field(QRectF place, int look, FieldSource source) {
    ReportObject made = object(ObjectKind::Field, place, look);
    made.source = source;
    made.format = {2, u"."_s, u","_s};
    return made;
}

ReportObject column(QRectF place, int look, int position) {
    return field(place, look, {FieldSource::Kind::Column, position, FieldSource::WholeReport});
}

Section section(SectionKind kind, double height, std::vector<ReportObject> objects) {
    Section made;
    made.kind = kind;
    made.height = height * mm;
    made.objects = std::move(objects);
    return made;
}

Section pageHeader() {
    ReportObject band = object(ObjectKind::Box, {0, 14, 180, 6}, Ground);
    band.stroke = 0;
    return section(SectionKind::PageHeader, 22,
                   {field({0, 0, 90, 6}, Title, {FieldSource::Kind::Formula, 0, 0}),
                    text({0, 6, 90, 5}, Quiet, u"Fono {@CfgTelefono}"_s),
                    text({90, 0, 90, 6}, Title, u"Ventas por vendedor"_s), std::move(band),
                    text({2, 14, 20, 6}, Heading, u"Fecha"_s), text({24, 14, 26, 6}, Heading, u"Documento"_s),
                    text({52, 14, 20, 6}, HeadingRight, u"Número"_s),
                    text({84, 14, 50, 6}, Heading, u"Cliente"_s),
                    text({140, 14, 38, 6}, HeadingRight, u"Monto"_s)});
}

Section details() {
    ReportObject mark = text({73, 0, 9, 5}, Red, u"N/C"_s);
    mark.condition = {Condition::Test::Negative, Amount, 0, true};
    ReportObject amount = column({140, 0, 38, 5}, Figure, Amount);
    amount.name = u"Field8"_s;
    amount.condition = {Condition::Test::Negative, Amount, Red, false};
    Section made = section(SectionKind::Details, 5,
                           {column({2, 0, 20, 5}, Plain, Day), column({24, 0, 26, 5}, Plain, Kind),
                            column({52, 0, 20, 5}, Figure, Number), std::move(mark),
                            column({84, 0, 50, 5}, Plain, Customer), std::move(amount)});
    made.shaded = true;
    return made;
}

Section groupFooter() {
    ReportObject count = field({84, 1, 10, 5}, Figure, {FieldSource::Kind::Count, 0, 0});
    count.format.decimals = 0;
    return section(SectionKind::GroupFooter, 8,
                   {object(ObjectKind::Line, {0, 0.5, 180, 0}, Quiet),
                    text({2, 1, 24, 5}, Total, u"Total vendedor"_s), column({27, 1, 44, 5}, Total, Seller),
                    std::move(count), text({95, 1, 40, 5}, Quiet, u"documentos"_s),
                    field({140, 1, 38, 5}, Total, {FieldSource::Kind::Sum, Amount, 0})});
}

Section reportFooter() {
    ReportObject chart = object(ObjectKind::Chart, {0, 12, 180, 50}, GroupTitle);
    chart.chart = {0, Amount, u"Ventas por vendedor"_s};
    return section(SectionKind::ReportFooter, 66,
                   {text({2, 1, 60, 6}, GroupTitle, u"Total general"_s),
                    field({140, 1, 38, 6}, Total, {FieldSource::Kind::Sum, Amount, FieldSource::WholeReport}),
                    std::move(chart)});
}

class SaleRows final : public RowSource {
public:
    explicit SaleRows(std::vector<Sale> sales) : m_sales(std::move(sales)) {}
    int columnCount() const override { return 6; }
    QString columnName(int column) const override {
        static const QStringList names{u"vendedor"_s, u"fecha"_s,       u"tipo"_s,
                                       u"numero"_s,   u"RazonSocial"_s, u"monto"_s};
        return names[column];
    }
    bool next() override { return ++m_at < static_cast<qsizetype>(m_sales.size()); }
    Value value(int column) override {
        const Sale& sale = m_sales[m_at];
        switch (column) {
        case Seller:
            return sale.seller;
        case Day:
            return sale.day;
        case Kind:
            return sale.kind;
        case Number:
            return sale.number;
        case Customer:
            return sale.customer;
        default:
            return sale.amount;
        }
    }

private:
    std::vector<Sale> m_sales;
    qsizetype m_at = -1;
};

} // namespace

Definition sampleDefinition() {
    Definition made;
    made.title = u"VENTAS POR VENDEDOR"_s;
    const double margin = 15 * mm;
    made.pageSize = {210 * mm, 297 * mm};
    made.margins = {margin, margin, margin, margin};
    const QColor navy(0x1f, 0x38, 0x64);
    const QColor grey(0x5f, 0x6b, 0x7a);
    made.styles = {style(8.5, false, Qt::black, Qt::AlignLeft),
                   style(8.5, false, Qt::black, Qt::AlignRight),
                   style(8.5, false, QColor(0xb3, 0x26, 0x1e), Qt::AlignRight),
                   style(8, true, Qt::white, Qt::AlignLeft),
                   style(8, true, Qt::white, Qt::AlignRight),
                   style(13, true, navy, Qt::AlignLeft),
                   style(9.5, true, navy, Qt::AlignLeft),
                   style(8.5, true, navy, Qt::AlignRight),
                   style(8, false, grey, Qt::AlignLeft),
                   style(8, false, navy, Qt::AlignLeft)};
    made.styles[Ground].background = navy;
    made.columns = {
        {u"vendedor"_s, ColumnType::Text, {}, {}, {}},    {u"fecha"_s, ColumnType::Date, {}, {}, {}},
        {u"tipo"_s, ColumnType::Text, {}, {}, {}},        {u"numero"_s, ColumnType::Text, {}, {}, {}},
        {u"RazonSocial"_s, ColumnType::Text, {}, {}, {}}, {u"monto"_s, ColumnType::Number, {}, {}, {}}};
    made.groups = {{Seller, Period::None, u"Vendedor"_s, Seller}};
    made.sort = {{Seller, false}, {Day, false}, {Number, false}};
    made.formulas = {{u"{@CfgEmpresa}"_s, u"\"Comercial \"El Sol\" S.A.\""_s},
                     {u"{@CfgTelefono}"_s, u"\"2 555 1234\""_s}};
    Section groupHeader = section(
        SectionKind::GroupHeader, 7,
        {text({2, 0, 18, 6}, GroupTitle, u"Vendedor"_s), column({20, 0, 100, 6}, GroupTitle, Seller)});
    groupHeader.repeatOnPage = true;
    made.sections = {pageHeader(),
                     std::move(groupHeader),
                     details(),
                     groupFooter(),
                     reportFooter(),
                     section(SectionKind::PageFooter, 6,
                             {field({0, 1, 60, 4}, Quiet, {FieldSource::Kind::PrintDate, 0, 0}),
                              field({120, 1, 60, 4}, Figure, {FieldSource::Kind::PageNofM, 0, 0})})};
    return made;
}

std::vector<Sale> sampleSales() {
    const auto day = [](int month, int number) { return Date::fromYmd(1997, month, number); };
    return {
        {u"Andrés Peña"_s, day(7, 1), u"FACTURA"_s, u"1001"_s, u"Muebles Ñuñoa Ltda."_s, Value(1234567.5)},
        {u"Andrés Peña"_s, day(7, 9), u"NCR"_s, u"77"_s, u"Muebles Ñuñoa Ltda."_s, Value(-2500.25)},
        {u"Andrés Peña"_s, day(8, 2), u"FACTURA"_s, u"1002"_s, u"=SUMA(A1:A9)"_s, Value(Value::Null{})},
        {u"Berta Soto"_s, day(7, 15), u"FACTURA"_s, u"0003"_s,
         u"Sociedad Importadora y Distribuidora de Artículos Eléctricos del Sur Limitada"_s, Value(850000.0)},
        {u"Berta Soto"_s, Date(), u"BOLETA"_s, u"12"_s, u"Casa \"Matriz\"; centro"_s, Value(99.99)},
        {u"Carlos Ruiz"_s, day(9, 30), u"NCR"_s, u"78"_s, u"+56 2 555"_s, Value(-310000.0)},
    };
}

std::unique_ptr<RowSource> rowsOf(std::vector<Sale> sales) {
    return std::make_unique<SaleRows>(std::move(sales));
}

PageContext sampleContext(const Definition& definition, int pageCount) {
    PageContext context;
    context.definition = &definition;
    context.pageCount = pageCount;
    context.printDate = Date::fromYmd(2006, 3, 5);
    return context;
}

} // namespace quorvane::report::test
