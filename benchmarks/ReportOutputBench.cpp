#include "benchmarks/Benches.h"
#include "benchmarks/Harness.h"
#include "benchmarks/SheetCells.h"
#include "benchmarks/TextRecorder.h"
#include "platform/reportengine/definition/DefinitionReader.h"
#include "platform/reportengine/output/Output.h"
#include "platform/reportengine/output/PagePainter.h"
#include <QCoreApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <stdexcept>

namespace bench {

using namespace quorvane;
using namespace quorvane::report;

namespace {

constexpr double exportGoal = 1.5;
constexpr int documents = 100'000;
constexpr int rounds = 3;
/// As the report's own documents have it.
constexpr int dotsPerInch = 1200;
constexpr double pointsPerInch = 72;

/// Issued documents of sixty salespeople in memory, as a database without an order of its own gives them.
class DocumentRows final : public RowSource {
public:
    int columnCount() const override { return static_cast<int>(names().size()); }
    QString columnName(int column) const override { return names()[column]; }
    bool next() override { return ++m_row < documents; }
    Value value(int column) override {
        const bool credit = m_row % 9 == 0;
        const double amount = (credit ? -1 : 1) * (1000 + m_row * 7919LL % 900'000) / 4.0;
        switch (column) {
        case 0:
            return QStringLiteral("VENDEDOR %1").arg(m_row * 31 % 60, 2, 10, QChar(u'0'));
        case 1:
            return credit ? QStringLiteral("NCR ELECTRONICA") : QStringLiteral("FACTURA");
        case 2:
            return m_row;
        case 3:
            return QStringLiteral("%1").arg(m_row, 8, 10, QChar(u'0'));
        case 4:
            return Date(35612 + m_row % 92);
        case 5:
            return QStringLiteral("Comercial Ñandú y Compañía %1 Ltda.").arg(m_row * 17 % 5000);
        case 6:
            return amount * 20;
        case 7:
            return amount;
        default:
            return amount / column;
        }
    }

private:
    static const QStringList& names() {
        static const QStringList list =
            QStringLiteral("vendedor TipoDocto Correlativo numero Fecha RazonSocial "
                           "neto ComisionMonto ComisionCantidad ComisionlPrecio")
                .split(QChar(u' '));
        return list;
    }

    int m_row = -1;
};

/// The report by salesperson over the documents, fresh for every output.
class Exported {
public:
    Exported()
        : m_definition(readDefinition(QCoreApplication::applicationDirPath() +
                                      QStringLiteral("/reportes/VELTRANO/ComisionesVendedor.rpt"))) {
        for (Formula& formula : m_definition.formulas)
            formula.text = QStringLiteral("\"Comercial del Sur S.A.\"");
    }

    const Definition& definition() const { return m_definition; }
    OutputSource open() {
        m_layout = std::make_unique<Layout>(m_definition, std::make_unique<DocumentRows>());
        OutputSource source;
        source.layout = m_layout.get();
        source.context.definition = &m_definition;
        return source;
    }

private:
    Definition m_definition;
    std::unique_ptr<Layout> m_layout;
};

void record(Exported& report, TextRecorder& recorder) {
    const OutputSource source = report.open();
    source.layout->finish();
    PageContext context = source.context;
    context.pageCount = source.layout->pageCount();
    context.groups = &source.layout->groups();
    QPainter painter(&recorder);
    painter.scale(dotsPerInch / pointsPerInch, dotsPerInch / pointsPerInch);
    const PagePainter pages(context);
    for (int page = 0; page < context.pageCount; ++page) {
        recorder.newPage();
        pages.paint(painter, source.layout->page(page));
    }
}

/// Nothing but the texts where they belong.
void drawTexts(const TextRecorder& texts, const Definition& definition, const QString& path) {
    QPdfWriter writer(path);
    writer.setResolution(dotsPerInch);
    writer.setPageLayout(
        QPageLayout(QPageSize(definition.pageSize, QPageSize::Point, {}, QPageSize::ExactMatch),
                    QPageLayout::Portrait, QMarginsF(), QPageLayout::Point));
    QPainter painter(&writer);
    painter.scale(dotsPerInch / pointsPerInch, dotsPerInch / pointsPerInch);
    int look = -1;
    for (std::size_t page = 0; page < texts.pages().size(); ++page) {
        if (page > 0)
            writer.newPage();
        for (const DrawnText& text : texts.pages()[page]) {
            if (text.look != look) {
                look = text.look;
                painter.setFont(texts.looks()[look].font);
                painter.setPen(texts.looks()[look].colour);
            }
            painter.drawText(text.place, text.text);
        }
    }
    if (!painter.end())
        throw std::runtime_error("the document cannot be written");
}

} // namespace

void benchExports(Report& results, Company&) {
    Exported report;
    const QTemporaryDir folder;
    const auto path = [&](const char* name) { return folder.filePath(QString::fromLatin1(name)); };
    const QString ours = path("ours.xlsx");
    if (!writeSpreadsheet(report.open(), ours, {}))
        throw std::runtime_error("the report cannot be exported");
    const SheetCells cells(ours);
    results.add(compare("sheet of " + std::to_string(documents) + " documents", exportGoal, rounds,
                        {[&] { writeSpreadsheet(report.open(), ours, {}); }},
                        {[&] { cells.write(path("floor.xlsx")); }}));
    TextRecorder texts(dotsPerInch);
    record(report, texts);
    results.add(compare("PDF of " + std::to_string(documents) + " documents", exportGoal, rounds,
                        {[&] { writePdf(report.open(), path("ours.pdf"), {}); }},
                        {[&] { drawTexts(texts, report.definition(), path("floor.pdf")); }}));
}

} // namespace bench
