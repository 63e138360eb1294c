#include "common/SqlTemplate.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>
#include <random>
#include <vector>

using namespace dalvora;
using namespace Qt::StringLiterals;
using quorvane::Kind;
using quorvane::RegionalSettings;

namespace {

const RegionalSettings spanish;
using Fills = std::vector<std::pair<QString, QString>>;

QString filled(const QString& text, const Fills& fills, Qt::CaseSensitivity matching = Qt::CaseInsensitive) {
    const SqlTemplate form(text, matching);
    SqlStatement statement(form, spanish);
    for (const auto& [name, value] : fills)
        statement.fillText(name, value);
    return statement.text();
}

/// What filling means, told as plainly as possible.
QString replaced(QString text, const Fills& fills, Qt::CaseSensitivity matching = Qt::CaseInsensitive) {
    for (const auto& [name, value] : fills)
        text.replace(u'$' + name + u'$', value, matching);
    return text;
}

} // namespace

TEST(SqlTemplate, FillsTheStatementOfAHeader) {
    const SqlTemplate form(u"SELECT * "
                           u"FROM Comisiones "
                           u"WHERE Empresa = '$Empresa$' and codigo = '$codigo$' ");
    EXPECT_EQ(SqlStatement(form, spanish)
                  .fill(u"Empresa", u"01"_s, Kind::String)
                  .fill(u"Codigo", u"O'NEIL"_s, Kind::String)
                  .text(),
              u"SELECT * FROM Comisiones WHERE Empresa = '01' and codigo = 'O''NEIL' "_s);
}

TEST(SqlTemplate, OneFillReplacesEveryOccurrenceInAnyCase) {
    EXPECT_EQ(filled(u"$a$ $A$ $a$"_s, {{u"A"_s, u"1"_s}}), u"1 1 1"_s);
}

TEST(SqlTemplate, MatchesWithExactCaseWhenAskedTo) {
    EXPECT_EQ(filled(u"$a$ $A$"_s, {{u"A"_s, u"1"_s}}, Qt::CaseSensitive), u"$a$ 1"_s);
}

TEST(SqlTemplate, APlaceholderThatNothingFillsStays) {
    EXPECT_EQ(filled(u"x = $a$, y = $b$"_s, {{u"b"_s, u"2"_s}}), u"x = $a$, y = 2"_s);
}

TEST(SqlTemplate, AFillWithoutAPlaceholderChangesNothing) {
    EXPECT_EQ(filled(u"x = $a$"_s, {{u"c"_s, u"3"_s}, {u"a"_s, u"1"_s}}), u"x = 1"_s);
}

TEST(SqlTemplate, TheFirstFillOfANameWins) {
    EXPECT_EQ(filled(u"$a$"_s, {{u"a"_s, u"1"_s}, {u"a"_s, u"2"_s}}), u"1"_s);
}

TEST(SqlTemplate, AShorterNameLeavesALongerOneAlone) {
    EXPECT_EQ(
        filled(u"$Porcentaje$ $Porcentaje2$"_s, {{u"Porcentaje"_s, u"1"_s}, {u"Porcentaje2"_s, u"2"_s}}),
        u"1 2"_s);
}

TEST(SqlTemplate, AFilledTextThatReadsLikeALaterPlaceholderIsFilledToo) {
    EXPECT_EQ(filled(u"'$a$' '$b$'"_s, {{u"a"_s, u"$b$"_s}, {u"b"_s, u"2"_s}}), u"'2' '2'"_s);
}

TEST(SqlTemplate, AFilledTextThatReadsLikeAnEarlierPlaceholderStays) {
    EXPECT_EQ(filled(u"'$a$' '$b$'"_s, {{u"a"_s, u"1"_s}, {u"b"_s, u"$a$"_s}}), u"'1' '$a$'"_s);
}

TEST(SqlTemplate, DollarSignsInATextAreKept) {
    EXPECT_EQ(filled(u"'$a$'"_s, {{u"a"_s, u"5$ o $ 6 $$"_s}}), u"'5$ o $ 6 $$'"_s);
}

TEST(SqlTemplate, AnEmptyFillLeavesNothing) {
    EXPECT_EQ(filled(u"'$a$'"_s, {{u"a"_s, u""_s}}), u"''"_s);
    EXPECT_EQ(filled(u""_s, {{u"a"_s, u"1"_s}}), u""_s);
}

TEST(SqlTemplate, ATextBegunOnceIsGoneOnWithManyTimes) {
    const SqlTemplate form(u"$a$-$b$");
    SqlStatement begun(form, spanish);
    begun.fillText(u"a", u"1"_s);
    SqlStatement first = begun;
    SqlStatement second = begun;
    EXPECT_EQ(first.fillText(u"b", u"x"_s).text(), u"1-x"_s);
    EXPECT_EQ(second.fillText(u"b", u"y"_s).text(), u"1-y"_s);
}

TEST(SqlTemplate, GivesWhatReplacingInOrderGivesOnAnyText) {
    // Texts and fills of few characters, so that dollar signs meet and overlap in every way.
    std::mt19937 random(20060305); // NOLINT(bugprone-random-generator-seed): the same texts every run
    const auto text = [&](int longest) {
        static const QString letters = u"$$$aAbB1 '"_s;
        QString result;
        for (int length = static_cast<int>(random() % (longest + 1)); length > 0; --length)
            result += letters[static_cast<qsizetype>(random() % letters.size())];
        return result;
    };
    const auto name = [&] { return QStringList{u"a"_s, u"b"_s, u"ab"_s, u"A1"_s}[random() % 4]; };
    for (int round = 0; round < 20000; ++round) {
        const QString form = text(24);
        Fills fills;
        for (int count = static_cast<int>(random() % 4); count > 0; --count)
            fills.emplace_back(name(), text(6));
        const auto matching = random() % 2 ? Qt::CaseInsensitive : Qt::CaseSensitive;
        ASSERT_EQ(filled(form, fills, matching), replaced(form, fills, matching)) << form.toStdString();
    }
}
