#include "tests/reportengine_viewer/ViewerFixture.h"
#include "tests/report_output/SampleReport.h"
#include <QApplication>
#include <array>

using namespace Qt::StringLiterals;

namespace quorvane::report::test {

namespace {

constexpr QSize windowSize{1000, 760};
constexpr int longest = 60000; // milliseconds
const std::array<QString, 10> sellers{
    u"Andrés Peña"_s, u"Berta Soto"_s, u"Carlos Ruiz"_s,   u"Débora Ibáñez"_s, u"Esteban Núñez"_s,
    u"Flor Vera"_s,   u"Gil Toro"_s,   u"Hugo Ñancupil"_s, u"Inés Araya"_s,    u"Julia Cid"_s};

quorvane::test::RowValues saleOf(qint64 row, qint64 rows, bool sorted) {
    const auto seller = sorted ? row * 10 / std::max<qint64>(1, rows) : row % 10;
    const Date day = Date::fromYmd(1997, 7 + static_cast<int>(row / 30 % 3), 1 + static_cast<int>(row % 28));
    const bool credit = row % 9 == 4;
    const double amount = (credit ? -1 : 1) * (1000.0 + static_cast<double>(row % 977) * 13.5);
    return {sellers[static_cast<std::size_t>(seller)],
            day,
            credit ? u"NCR"_s : u"FACTURA"_s,
            QString::number(10000 + row),
            u"Cliente %1 S.A."_s.arg(row, 7, 10, QLatin1Char('0')),
            amount};
}

std::unique_ptr<quorvane::test::ListRows> salesRows(qint64 rows, bool sorted) {
    return std::make_unique<quorvane::test::ListRows>(
        QStringList{u"vendedor"_s, u"fecha"_s, u"tipo"_s, u"numero"_s, u"RazonSocial"_s, u"monto"_s}, rows,
        [rows, sorted](qint64 row) { return saleOf(row, rows, sorted); });
}

} // namespace

ViewerFixture::ViewerFixture() : viewer(std::make_unique<ReportViewer>()) {
    viewer->resize(windowSize);
}

ViewerFixture::~ViewerFixture() = default;

QString ViewerFixture::customer(qint64 row) {
    return u"Cliente %1 S.A."_s.arg(row, 7, 10, QLatin1Char('0'));
}

void ViewerFixture::show(std::unique_ptr<quorvane::test::ListRows> rows, bool sorted) {
    Definition definition = sampleDefinition();
    if (sorted) {
        definition.sort.clear();
        definition.sortedBySource = true;
    }
    for (Section& section : definition.sections)
        if (section.kind == SectionKind::Details) {
            section.objects[1].name = u"Field10"_s;
            section.objects[2].name = u"Field6"_s;
        }
    report = std::make_unique<Report>(std::move(definition));
    report->setDataSource(std::move(rows));
    viewer->setReportSource(*report);
    viewer->viewReport();
    viewer->show();
    viewer->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(viewer.get()));
    view().setFocus();
}

void ViewerFixture::show(qint64 rows, bool sorted) {
    show(salesRows(rows, sorted), sorted);
}

void ViewerFixture::showFailing(qint64 rows, qint64 failAt) {
    auto source = salesRows(rows, true);
    source->failAt(failAt);
    show(std::move(source), true);
}

void ViewerFixture::finish() {
    ASSERT_TRUE(QTest::qWaitFor([this] { return !viewer->layoutRun().isRunning(); }, longest));
}

void ViewerFixture::press(int key, Qt::KeyboardModifiers modifiers, QWidget* where) {
    QTest::keyClick(where ? where : QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
}

void ViewerFixture::type(const QString& text) {
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(letter), {});
}

QString ViewerFixture::search(const QString& text) {
    press(Qt::Key_F, Qt::ControlModifier);
    type(text);
    press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return !findMessage().isEmpty() && !findMessage().startsWith(u"Buscando"_s); }, longest));
    return findMessage();
}

QRect ViewerFixture::placeOf(int page, const QString& text) {
    const std::shared_ptr<const ShownPage> shown = view().pages()->page(page);
    for (const PlacedText& placed : shown->texts)
        if (placed.text == text) {
            const PageGeometry& geometry = view().geometryOfPages();
            return view().toViewport(geometry.toPixels({page, placed.rect}, view().scroll()));
        }
    return {};
}

} // namespace quorvane::report::test
