// Pages against stored pictures, see ReferenceImage.h for how to renew them.

#include "platform/reportengine/output/PagePainter.h"
#include "platform/reportengine/layout/Layout.h"
#include "tests/report_output/ReferenceImage.h"
#include "tests/report_output/SampleReport.h"
#include "tests/support/QtPrinters.h"
#include <QPainter>
#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane::report::test {

namespace {

/// A page on white paper at the given scale of one pixel a point.
QImage drawn(const PageContext& context, const Page& page, double scale) {
    const QSizeF size = context.definition->pageSize * scale;
    QImage picture(size.toSize(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    PagePainter(context).paint(painter, page);
    return picture;
}

/// A definition of one small page whose only section holds the objects, and its page.
struct SmallPage {
    SmallPage(QSizeF size, std::vector<ReportObject> objects, std::vector<Value> values) {
        definition = sampleDefinition();
        definition.pageSize = size;
        definition.margins = {};
        Section section;
        section.kind = SectionKind::Details;
        section.height = size.height();
        section.objects = std::move(objects);
        definition.sections = {std::move(section)};
        Band band;
        band.row = 0;
        band.values = std::move(values);
        page.bands = {std::move(band)};
    }
    QImage picture(double scale) {
        PageContext context = sampleContext(definition, 1);
        context.groups = &groups;
        return drawn(context, page, scale);
    }

    Definition definition;
    Page page;
    std::vector<GroupEntry> groups;
};

ReportObject textObject(QRectF rect, int style, const QString& text) {
    ReportObject object;
    object.rect = rect;
    object.style = style;
    object.text = text;
    return object;
}

ReportObject figureObject(QRectF rect, int decimals) {
    ReportObject object;
    object.kind = ObjectKind::Field;
    object.rect = rect;
    object.style = Figure;
    object.format = {decimals, u"."_s, u","_s};
    return object;
}

/// The columns of pixels between which anything but the ground is drawn, from first to last; {-1, -1} for
/// nothing.
std::pair<int, int> inkedColumns(const QImage& picture, QRect within) {
    std::pair<int, int> span{-1, -1};
    for (int x = within.left(); x <= within.right(); ++x)
        for (int y = within.top(); y <= within.bottom(); ++y)
            if (qGray(picture.pixel(x, y)) < 160) {
                if (span.first < 0)
                    span.first = x;
                span.second = x;
                break;
            }
    return span;
}

SmallPage chartPage(const std::vector<std::pair<QString, double>>& totals) {
    ReportObject chart;
    chart.kind = ObjectKind::Chart;
    chart.rect = {10, 10, 480, 180};
    chart.style = GroupTitle;
    chart.chart = {0, Amount, u"Comisión del período por vendedor"_s};
    SmallPage page({500, 200}, {chart}, {});
    for (const auto& [name, total] : totals)
        page.groups.push_back({0, name, name, 0, 0, {total}});
    return page;
}

TEST(PagePainterTest, TextsThatDoNotFitEndInAnEllipsisWithinTheirPlace) {
    const QString name = QString(u"Sociedad Ñandú "_s).repeated(20); // 300 characters
    SmallPage page({300, 60},
                   {textObject({10, 5, 100, 14}, Plain, name), textObject({150, 5, 60, 14}, Figure, name),
                    textObject({10, 30, 6, 14}, Plain, name)},
                   {});
    const QImage picture = page.picture(4);
    const auto left = inkedColumns(picture, {0, 0, 500, 90});
    EXPECT_GE(left.first, 40);
    EXPECT_LE(left.second, 440);
    EXPECT_GT(left.second, 400) << "the place is used";
    const auto right = inkedColumns(picture, {500, 0, 700, 90});
    EXPECT_GE(right.first, 600);
    EXPECT_LE(right.second, 840);
    EXPECT_LE(inkedColumns(picture, {0, 110, 1200, 80}).second, 64);
    EXPECT_TRUE(looksLikeReference(picture, u"elision"_s));
}

TEST(PagePainterTest, FiguresEndAtTheSamePlaceWhateverTheirDigits) {
    const std::vector<double> values{1111111.11, 7777777.77, -4.5, 0};
    std::vector<ReportObject> objects;
    std::vector<Value> shown;
    for (size_t i = 0; i < values.size(); ++i) {
        objects.push_back(figureObject({10, 5.0 + 14 * static_cast<double>(i), 100, 12}, 2));
        shown.emplace_back(values[i]);
    }
    SmallPage page({130, 66}, objects, shown);
    const QImage picture = page.picture(4);
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(inkedColumns(picture, {0, (5 + 14 * i) * 4, 520, 48}).second, 437, 4) << i;
}

TEST(PagePainterTest, AFigureIsNeverCut) {
    // A little too wide: smaller. Far too wide: marks, since half a figure would be read as another one.
    SmallPage page({130, 40}, {figureObject({10, 5, 50, 12}, 2), figureObject({10, 22, 20, 12}, 2)},
                   {Value(1234567890.12), Value(1234567890.12)});
    const QImage picture = page.picture(4);
    const auto smaller = inkedColumns(picture, {0, 0, 520, 80});
    EXPECT_GE(smaller.first, 39);
    EXPECT_LE(smaller.second, 241);
    EXPECT_LE(inkedColumns(picture, {0, 88, 520, 60}).second, 121);
    EXPECT_TRUE(looksLikeReference(picture, u"figures"_s));
}

TEST(PagePainterTest, LineBreaksInDataStayOnTheLine) {
    SmallPage broken({130, 20}, {textObject({5, 3, 120, 14}, Plain, u"uno\ndos\ttres"_s)}, {});
    SmallPage plain({130, 20}, {textObject({5, 3, 120, 14}, Plain, u"uno dos tres"_s)}, {});
    EXPECT_EQ(broken.picture(2), plain.picture(2));
}

TEST(PagePainterTest, ATextHigherThanItsPlaceIsClipped) {
    SmallPage page({100, 40}, {textObject({5, 15, 90, 5}, Title, u"ÁÉgpq"_s)}, {});
    const QImage picture = page.picture(4);
    EXPECT_EQ(inkedColumns(picture, {0, 0, 400, 59}).first, -1);
    EXPECT_EQ(inkedColumns(picture, {0, 81, 400, 79}).first, -1);
    EXPECT_NE(inkedColumns(picture, {0, 60, 400, 20}).first, -1);
}

TEST(PagePainterTest, ConditionsChangeOrHideAnObject) {
    ReportObject red = figureObject({10, 5, 60, 12}, 2);
    red.condition = {Condition::Test::Negative, 0, Red, false};
    ReportObject mark = textObject({80, 5, 40, 12}, Plain, u"N/C"_s);
    mark.condition = {Condition::Test::Negative, 0, 0, true};
    SmallPage page({130, 24}, {red, mark}, {Value(-5.0), Value()});
    const auto hasRed = [](const QImage& picture) {
        for (int x = 0; x < picture.width(); ++x)
            for (int y = 0; y < picture.height(); ++y) {
                const QRgb pixel = picture.pixel(x, y);
                if (qRed(pixel) > qGreen(pixel) + 80)
                    return true;
            }
        return false;
    };
    page.page.bands[0].condition = {true, true};
    QImage picture = page.picture(4);
    EXPECT_TRUE(hasRed(picture));
    EXPECT_NE(inkedColumns(picture, {320, 0, 200, 96}).first, -1);
    page.page.bands[0].condition = {false, false};
    picture = page.picture(4);
    EXPECT_FALSE(hasRed(picture));
    EXPECT_EQ(inkedColumns(picture, {320, 0, 200, 96}).first, -1);
}

TEST(PagePainterTest, ImagesKeepTheirShape) {
    ReportObject object;
    object.kind = ObjectKind::Image;
    object.rect = {10, 10, 80, 20};
    object.image = QImage(30, 30, QImage::Format_RGB32);
    object.image.fill(Qt::black);
    SmallPage page({100, 40}, {object}, {});
    const QImage picture = page.picture(2);
    const auto inked = inkedColumns(picture, picture.rect());
    EXPECT_NEAR(inked.first, 20, 1);
    EXPECT_NEAR(inked.second, 59, 1);
}

TEST(PagePainterTest, AChartHasAxisNamesValuesAndNegativeBars) {
    EXPECT_TRUE(looksLikeReference(chartPage({{u"Andrés Peña"_s, 1232067.25},
                                              {u"Berta Soto"_s, 850099.99},
                                              {u"Carlos Ruiz"_s, -310000},
                                              {u"Distribuidora y Comercializadora Ñuble Limitada"_s, 12500}})
                                       .picture(2),
                                   u"chart"_s));
}

TEST(PagePainterTest, AChartOfManyGroupsKeepsTheLargest) {
    std::vector<std::pair<QString, double>> totals;
    totals.reserve(200);
    for (int i = 0; i < 200; ++i)
        totals.emplace_back(u"Vendedor %1"_s.arg(i), i % 20 == 0 ? 3e7 + i * 1e4 : i * 1e4);
    EXPECT_TRUE(looksLikeReference(chartPage(totals).picture(2), u"chart-many"_s));
}

TEST(PagePainterTest, TheLastFigureUnderAChartIsWhole) {
    // The chart ends at 490 points; what touches its end is cut.
    const QImage negative = chartPage({{u"Ana"_s, -310000}, {u"Eva"_s, -20000}}).picture(2);
    EXPECT_LT(inkedColumns(negative, negative.rect()).second, 978);
}

TEST(PagePainterTest, ANarrowChartHasFewerMarks) {
    SmallPage page = chartPage({{u"Ana"_s, 1232067}, {u"Eva"_s, 850100}});
    page.definition.sections[0].objects[0].rect.setWidth(150);
    EXPECT_TRUE(looksLikeReference(page.picture(2), u"chart-narrow"_s));
}

TEST(PagePainterTest, AChartTooLowForTwoBarsSaysSo) {
    SmallPage page = chartPage({{u"Ana"_s, 1}, {u"Eva"_s, 2}, {u"Luz"_s, 3}});
    page.definition.sections[0].objects[0].rect.setHeight(45);
    EXPECT_TRUE(looksLikeReference(page.picture(2), u"chart-low"_s));
}

TEST(PagePainterTest, AnotherDefinitionBringsItsOwnFonts) {
    SmallPage small({130, 30}, {textObject({5, 3, 120, 24}, Plain, u"Igual"_s)}, {});
    SmallPage large = small;
    large.definition.styles[Plain].size = 20;
    QImage picture(130, 30, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::TextAntialiasing);
    PagePainter pages(sampleContext(small.definition, 1));
    pages.paint(painter, small.page);
    painter.fillRect(picture.rect(), Qt::white);
    pages.setContext(sampleContext(large.definition, 1));
    pages.paint(painter, large.page);
    EXPECT_EQ(inkedColumns(picture, picture.rect()), inkedColumns(large.picture(1), picture.rect()));
}

TEST(PagePainterTest, AChartWithoutBarsSaysSo) {
    const QImage none = chartPage({}).picture(2);
    EXPECT_NE(inkedColumns(none, none.rect()).first, -1);
    // All totals zero: bars without length, and no division by zero.
    const QImage zero = chartPage({{u"Nadie"_s, 0}, {u"Ninguno"_s, 0}}).picture(2);
    EXPECT_NE(inkedColumns(zero, zero.rect()).first, -1);
    EXPECT_NE(none, zero);
}

} // namespace

} // namespace quorvane::report::test
