#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/reportengine_definition/DamageCases.h"
#include "tests/reportengine_definition/DefinitionFile.h"
#include <QElapsedTimer>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace quorvane::report::test {

namespace {

using namespace Qt::StringLiterals;

class DamageTest : public testing::TestWithParam<DamageCase> {};

TEST_P(DamageTest, TellsFileLineAndReason) {
    const QByteArray text = damaged(GetParam());
    const Outcome outcome = DefinitionFolder().read(text);
    EXPECT_EQ(outcome.error, ErrorFileFormat) << outcome.description.toStdString();
    const auto match =
        QRegularExpression(u"^.*prueba\\.rpt, línea ([0-9]+): (.+)$"_s).match(outcome.description);
    ASSERT_TRUE(match.hasMatch()) << outcome.description.toStdString();
    EXPECT_TRUE(match.captured(2).contains(QString::fromUtf8(GetParam().reason)))
        << outcome.description.toStdString();
    const qsizetype place = *GetParam().place == '\0' ? text.size() : text.indexOf(GetParam().place);
    ASSERT_GE(place, 0);
    EXPECT_EQ(match.captured(1).toLongLong(), text.left(place).count('\n') + 1)
        << outcome.description.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Table, DamageTest, testing::ValuesIn(damageCases()),
                         [](const auto& damage) { return std::string(damage.param.name); });

class BadFileTest : public testing::Test {
protected:
    /// Reads it, which must end with error 321 and within two seconds.
    QString reasonFor(const QByteArray& content) {
        QElapsedTimer timer;
        timer.start();
        const Outcome outcome = m_folder.read(content);
        EXPECT_EQ(outcome.error, ErrorFileFormat);
        EXPECT_LT(timer.elapsed(), 2'000);
        EXPECT_LT(outcome.description.size(), 500);
        return outcome.description;
    }

    DefinitionFolder m_folder;
};

TEST_F(BadFileTest, WithoutDetailsThatSectionIsNamed) {
    const QByteArray text =
        with(smallDefinition(), R"(<details height="5"/>)", R"(<pageFooter height="5"/>)");
    EXPECT_TRUE(reasonFor(text).contains(u"línea 5: falta el elemento <details> dentro de <sections>"_s));
}

TEST_F(BadFileTest, AnEmptyFileEndsBeforeItBegins) {
    EXPECT_TRUE(reasonFor("").contains(u"línea 1: el documento termina antes de tiempo"_s));
}

TEST_F(BadFileTest, MoreThanTenMegabytesAreNotLookedAt) {
    const QByteArray large = smallDefinition() + QByteArray(10'485'760, ' ');
    EXPECT_TRUE(reasonFor(large).contains(u"línea 1: el archivo pasa de 10 MB"_s));
}

TEST_F(BadFileTest, JunkOfAlmostTenMegabytes) {
    const int size = 10'484'760;
    EXPECT_TRUE(reasonFor(QByteArray(size, 'x')).contains(u"línea 1"_s));
    EXPECT_TRUE(reasonFor(QByteArray(size, '<')).contains(u"línea 1"_s));
    EXPECT_TRUE(reasonFor(QByteArray(size, '\0')).contains(u"línea 1"_s));
    EXPECT_TRUE(reasonFor(QByteArray("<a>").repeated(size / 3)).contains(u"debe ser <report>"_s));
    EXPECT_TRUE(
        reasonFor("<report title=\"" + QByteArray(size, 'x') + "\"/>").contains(u"1 a 100 caracteres"_s));
}

TEST_F(BadFileTest, NestingWithoutEndStopsAtTheFirstElementThatDoesNotBelong) {
    const QByteArray deep = with(smallDefinition(), "<styles>", QByteArray("<styles>").repeated(1'000'000));
    EXPECT_TRUE(reasonFor(deep).contains(u"línea 3: el elemento <styles> no va aquí, dentro de <styles>"_s));
}

TEST_F(BadFileTest, AnEntityBombIsNotLit) {
    QByteArray type = "<!DOCTYPE report [<!ENTITY a0 \"ja\">";
    for (int i = 1; i < 30; ++i) {
        const QByteArray inner = "&a" + QByteArray::number(i - 1) + ";";
        type += "<!ENTITY a" + QByteArray::number(i) + " \"" + inner.repeated(10) + "\">";
    }
    const QByteArray bomb = type + "]>" + with(smallDefinition(), "\"T\"", "\"&a29;\"");
    EXPECT_TRUE(reasonFor(bomb).contains(u"línea 1: no se admiten declaraciones DOCTYPE ni entidades"_s));
}

TEST_F(BadFileTest, AFileOfAnotherKindIsQuotedShortAndWithoutControlCharacters) {
    const QString reason =
        reasonFor(with(smallDefinition(), "height=\"5\"", "height=\"" + QByteArray(300, '9') + "&#9;\""));
    EXPECT_TRUE(reason.contains(QString(40, u'9') + u"…'"_s)) << reason.toStdString();
    for (const QChar character : reason)
        EXPECT_TRUE(character.isPrint());
}

TEST_F(BadFileTest, AThousandGroupsAreTooMany) {
    QByteArray groups = "<groups>";
    for (int i = 0; i < 1'000; ++i)
        groups += "<group name=\"g" + QByteArray::number(i) + "\" column=\"a\"/>";
    const QByteArray text = with(smallDefinition(), "<sections>", groups + "</groups><sections>");
    EXPECT_TRUE(reasonFor(text).contains(u"línea 5: hay más elementos <group> de los que admite <groups>"_s));
}

} // namespace

} // namespace quorvane::report::test
