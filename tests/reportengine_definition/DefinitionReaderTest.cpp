#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/reportengine_definition/DefinitionFile.h"
#include <QDir>
#include <QFile>
#include <QImage>
#include <gtest/gtest.h>

namespace quorvane::report::test {

namespace {

using namespace Qt::StringLiterals;

constexpr double millimetre = 72 / 25.4;

class DefinitionReaderTest : public testing::Test {
protected:
    Definition read(const QByteArray& content) {
        const Outcome outcome = m_folder.read(content);
        EXPECT_EQ(outcome.error, 0) << outcome.description.toStdString();
        return outcome.definition.value_or(Definition{});
    }
    const Section& section(const Definition& definition, SectionKind kind, int group = 0) {
        for (const Section& candidate : definition.sections)
            if (candidate.kind == kind && candidate.group == group)
                return candidate;
        throw std::runtime_error("no such section");
    }

    DefinitionFolder m_folder;
};

TEST_F(DefinitionReaderTest, MeasuresBecomePoints) {
    const Definition definition = read(fullDefinition());
    EXPECT_NEAR(definition.pageSize.width(), 595.28, 0.01);
    EXPECT_NEAR(definition.pageSize.height(), 841.89, 0.01);
    EXPECT_NEAR(definition.margins.top(), 12.5 * millimetre, 1e-9);
    const Section& details = section(definition, SectionKind::Details);
    EXPECT_NEAR(details.height, 5 * millimetre, 1e-9);
    EXPECT_NEAR(details.objects[1].rect.left(), 50 * millimetre, 1e-9);
    EXPECT_NEAR(details.objects[1].rect.width(), 25 * millimetre, 1e-9);
    EXPECT_EQ(section(definition, SectionKind::PageHeader).objects[1].stroke, 1.5) << "points already";
}

TEST_F(DefinitionReaderTest, AStyleTakesWhatItDoesNotSayFromTheFirst) {
    const Definition definition = read(fullDefinition());
    ASSERT_EQ(definition.styles.size(), 3U);
    const Style& figure = definition.styles[1];
    EXPECT_EQ(figure.family, u"Arial, Liberation Sans"_s);
    EXPECT_EQ(figure.size, 8.5);
    EXPECT_TRUE(figure.bold && figure.italic);
    EXPECT_EQ(figure.colour, QColor(u"#222222"_s));
    EXPECT_EQ(figure.background, QColor(u"#EEF2F8"_s));
    EXPECT_EQ(figure.alignment, Qt::AlignRight | Qt::AlignBottom);
    EXPECT_EQ(definition.styles[2].alignment, Qt::AlignHCenter | Qt::AlignTop);
    EXPECT_FALSE(definition.styles[2].background.isValid());
}

TEST_F(DefinitionReaderTest, ColumnsComeFromTheRowsOrAreWorkedOut) {
    const Definition definition = read(fullDefinition());
    ASSERT_EQ(definition.columns.size(), 6U);
    EXPECT_EQ(definition.columns[1].type, ColumnType::Date);
    EXPECT_EQ(definition.columns[1].origin, Column::Origin::Rows);
    EXPECT_EQ(definition.columns[4].origin, Column::Origin::SumOf);
    EXPECT_EQ(definition.columns[4].type, ColumnType::Number);
    EXPECT_EQ(definition.columns[4].operands, (std::vector{2, 3}));
    EXPECT_EQ(definition.columns[5].origin, Column::Origin::CountOf);
    EXPECT_EQ(definition.columns[5].operands, std::vector{0});
    EXPECT_EQ(definition.columns[5].wanted, u"01"_s);
}

TEST_F(DefinitionReaderTest, FormulasHoldTheirTextInDoubleQuotes) {
    const Definition definition = read(fullDefinition());
    ASSERT_EQ(definition.formulas.size(), 2U);
    EXPECT_EQ(definition.formulas[0].name, u"{@CfgEmpresa}"_s);
    EXPECT_EQ(definition.formulas[0].text, u"\"\""_s);
    EXPECT_EQ(definition.formulas[1].text, u"\"Hola\""_s);
}

TEST_F(DefinitionReaderTest, GroupsAndSortKeysPointAtTheirColumns) {
    const Definition definition = read(fullDefinition());
    ASSERT_EQ(definition.groups.size(), 3U);
    EXPECT_EQ(definition.groups[0].caption, u"Vendedor"_s);
    EXPECT_EQ(definition.groups[1].period, Period::Year);
    EXPECT_EQ(definition.groups[2].period, Period::Month);
    EXPECT_EQ(definition.groups[2].column, 1);
    EXPECT_EQ(definition.groups[2].captionColumn, 1) << "its own column when none is given";
    ASSERT_EQ(definition.sort.size(), 2U);
    EXPECT_EQ(definition.sort[0].column, 1);
    EXPECT_TRUE(definition.sort[0].descending);
    EXPECT_FALSE(definition.sort[1].descending);
    EXPECT_FALSE(definition.sortedBySource);
}

TEST_F(DefinitionReaderTest, HeadersGoInwardAndFootersOutwardWhateverTheirOrderInTheFile) {
    const Definition definition = read(fullDefinition());
    std::vector<std::pair<SectionKind, int>> order;
    for (const Section& each : definition.sections)
        order.emplace_back(each.kind, each.group);
    using enum SectionKind;
    const std::vector<std::pair<SectionKind, int>> wanted{
        {ReportHeader, 0}, {PageHeader, 0},  {GroupHeader, 0}, {GroupHeader, 2},  {Details, 0},
        {GroupFooter, 2},  {GroupFooter, 1}, {GroupFooter, 0}, {ReportFooter, 0}, {PageFooter, 0}};
    EXPECT_EQ(order, wanted);
}

TEST_F(DefinitionReaderTest, SectionsKeepTheirHabits) {
    const Definition definition = read(fullDefinition());
    EXPECT_TRUE(section(definition, SectionKind::GroupHeader, 0).repeatOnPage);
    EXPECT_TRUE(section(definition, SectionKind::GroupHeader, 0).newPageBefore);
    EXPECT_FALSE(section(definition, SectionKind::GroupHeader, 2).repeatOnPage);
    EXPECT_TRUE(section(definition, SectionKind::Details).shaded);
    EXPECT_EQ(section(definition, SectionKind::Details).name, u"detalle"_s);
    EXPECT_TRUE(section(definition, SectionKind::ReportFooter).newPageBefore);
}

TEST_F(DefinitionReaderTest, FieldsKnowWhatTheyShow) {
    const Definition definition = read(fullDefinition());
    const Section& header = section(definition, SectionKind::PageHeader);
    EXPECT_EQ(header.objects[0].kind, ObjectKind::Field);
    EXPECT_EQ(header.objects[0].source.kind, FieldSource::Kind::Formula);
    EXPECT_EQ(header.objects[2].source.kind, FieldSource::Kind::PageNofM);
    EXPECT_EQ(header.objects[3].source.kind, FieldSource::Kind::PageNumber);
    EXPECT_EQ(header.objects[4].source.kind, FieldSource::Kind::PageCount);
    EXPECT_EQ(header.objects[5].source.kind, FieldSource::Kind::PrintDate);
    const Section& details = section(definition, SectionKind::Details);
    EXPECT_EQ(details.objects[0].source.kind, FieldSource::Kind::Column);
    EXPECT_EQ(details.objects[0].source.index, 1);
    EXPECT_EQ(details.objects[0].dateForm, DateForm::Month);
    const Section& footer = section(definition, SectionKind::GroupFooter);
    EXPECT_EQ(footer.objects[0].source.kind, FieldSource::Kind::Sum);
    EXPECT_EQ(footer.objects[0].source.index, 2);
    EXPECT_EQ(footer.objects[0].source.scope, 0);
    EXPECT_EQ(footer.objects[1].source.kind, FieldSource::Kind::Count);
    EXPECT_EQ(footer.objects[1].format.decimals, 0) << "a count has no decimals unless it says so";
    const Section& end = section(definition, SectionKind::ReportFooter);
    EXPECT_EQ(end.objects[0].source.scope, FieldSource::WholeReport);
}

TEST_F(DefinitionReaderTest, NumberFormatsAreKeptOrTakenFromAnotherObject) {
    const Definition definition = read(fullDefinition());
    const Section& details = section(definition, SectionKind::Details);
    EXPECT_EQ(details.objects[1].format.decimals, 2);
    EXPECT_EQ(details.objects[1].format.thousands, u"."_s);
    EXPECT_EQ(details.objects[1].format.decimal, u","_s);
    EXPECT_TRUE(details.objects[1].formatOf.isEmpty());
    const ReportObject& own = details.objects[2];
    EXPECT_EQ(own.formatOf, u"Field8"_s);
    EXPECT_TRUE(own.ownDecimals);
    EXPECT_EQ(own.format.decimals, 3);
    EXPECT_EQ(own.format.thousands, u"."_s) << "the rest is as in Field8";
    const ReportObject& sum = section(definition, SectionKind::GroupFooter).objects[0];
    EXPECT_FALSE(sum.ownDecimals);
    EXPECT_EQ(sum.format.decimals, 2) << "as in Field8";
}

TEST_F(DefinitionReaderTest, ConditionsGiveASecondLookOrHide) {
    const Definition definition = read(fullDefinition());
    const Section& details = section(definition, SectionKind::Details);
    EXPECT_EQ(details.objects[0].condition.test, Condition::Test::None);
    EXPECT_EQ(details.objects[1].condition.test, Condition::Test::Negative);
    EXPECT_EQ(details.objects[1].condition.column, 2);
    EXPECT_EQ(details.objects[1].condition.style, 1);
    EXPECT_FALSE(details.objects[1].condition.hide);
    EXPECT_EQ(details.objects[3].condition.test, Condition::Test::Filled);
    EXPECT_TRUE(details.objects[3].condition.hide);
}

TEST_F(DefinitionReaderTest, AChartSumsAColumnByGroup) {
    const Definition definition = read(fullDefinition());
    const ReportObject& chart = section(definition, SectionKind::ReportFooter).objects[1];
    EXPECT_EQ(chart.kind, ObjectKind::Chart);
    EXPECT_EQ(chart.chart.group, 0);
    EXPECT_EQ(chart.chart.column, 4);
    EXPECT_EQ(chart.chart.title, u"Por vendedor"_s);
}

TEST_F(DefinitionReaderTest, RowsMayComeOrdered) {
    const Definition definition =
        read(with(smallDefinition(), "<columns>", R"(<columns sortedBySource="true">)"));
    EXPECT_TRUE(definition.sortedBySource);
}

/// The small definition with a picture in its details.
QByteArray illustrated(const QByteArray& file) {
    return with(smallDefinition(), R"(<details height="5"/>)",
                R"(<details height="5"><image left="0" top="0" width="5" height="5" file=")" + file +
                    R"("/></details>)");
}

TEST_F(DefinitionReaderTest, AnImageLiesBesideTheDefinition) {
    QImage picture(12, 8, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const QString path = m_folder.write(u"imagen"_s, illustrated("logo.png"));
    ASSERT_TRUE(picture.save(QFileInfo(path).dir().filePath(u"logo.png"_s)));
    const Definition definition = read(illustrated("logo.png"));
    const ReportObject& image = section(definition, SectionKind::Details).objects[0];
    EXPECT_EQ(image.kind, ObjectKind::Image);
    EXPECT_EQ(image.image.size(), QSize(12, 8));
    EXPECT_EQ(image.image.pixelColor(3, 3), QColor(Qt::red));
}

TEST_F(DefinitionReaderTest, AnImageBeyondItsLimitsIsRefused) {
    QImage wide(4'001, 1, QImage::Format_Mono);
    wide.fill(0);
    const QDir folder = QFileInfo(m_folder.write(u"imagen"_s, illustrated("ancha.png"))).dir();
    ASSERT_TRUE(wide.save(folder.filePath(u"ancha.png"_s)));
    const Outcome tooWide = m_folder.read(illustrated("ancha.png"));
    EXPECT_EQ(tooWide.error, ErrorFileFormat);
    EXPECT_TRUE(tooWide.description.contains(u"línea 5: la imagen 'ancha.png' es demasiado grande"_s))
        << tooWide.description.toStdString();

    QFile heavy(folder.filePath(u"pesada.png"_s));
    ASSERT_TRUE(heavy.open(QIODevice::WriteOnly) && heavy.resize(4'194'305));
    const Outcome tooHeavy = m_folder.read(illustrated("pesada.png"));
    EXPECT_EQ(tooHeavy.error, ErrorFileFormat);
    EXPECT_TRUE(tooHeavy.description.contains(u"la imagen 'pesada.png' pasa de 4 MB"_s));
}

TEST_F(DefinitionReaderTest, AMarkOfTheByteOrderAndOtherEncodingsAreRead) {
    EXPECT_EQ(read("\xEF\xBB\xBF" + smallDefinition()).title, u"T"_s);
    const QString text = u"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"_s +
                         QString::fromUtf8(smallDefinition()).replace(u"\"T\""_s, u"\"Comisión\""_s);
    EXPECT_EQ(read(text.toLatin1()).title, u"Comisión"_s);
}

TEST_F(DefinitionReaderTest, AMissingFileIsError53AndAFolderToo) {
    EXPECT_EQ(outcomeOf(u"/no/hay/tal.rpt"_s).error, ErrorFileNotFound);
    EXPECT_EQ(outcomeOf(QDir::tempPath()).error, ErrorFileNotFound);
}

TEST_F(DefinitionReaderTest, AFileThatMayNotBeReadIsError75) {
    const QString path = m_folder.write(u"cerrado"_s, smallDefinition());
    QFile::setPermissions(path, QFileDevice::Permissions());
    if (QFile(path).open(QIODevice::ReadOnly))
        GTEST_SKIP() << "this user may read everything";
    const Outcome outcome = outcomeOf(path);
    EXPECT_EQ(outcome.error, ErrorPathAccess);
    EXPECT_TRUE(outcome.description.contains(u"cerrado.rpt"_s));
}

TEST_F(DefinitionReaderTest, AFileWhoseDeviceFailsIsError75) {
    // The process's own memory opens as a file, and reading it from address 0 is an input error.
    const QString path = u"/proc/self/mem"_s;
    if (!QFile::exists(path))
        GTEST_SKIP() << "a system without such a file";
    EXPECT_EQ(outcomeOf(path).error, ErrorPathAccess);
}

} // namespace

} // namespace quorvane::report::test
