#include "tests/reportengine_definition/DamageCases.h"
#include "tests/reportengine_definition/DefinitionFile.h"
#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>

namespace quorvane::report::test {

namespace {

using namespace Qt::StringLiterals;

/// Holds files against the schema; gives back those that are valid. One run for all: starting the program is
/// what takes time.
QStringList validFiles(const QStringList& paths) {
    QProcess xmllint;
    xmllint.setProcessChannelMode(QProcess::MergedChannels);
    xmllint.start(QStringLiteral("xmllint"),
                  QStringList{u"--noout"_s, u"--nonet"_s, u"--schema"_s, QStringLiteral(REPORT_SCHEMA)} +
                      paths);
    EXPECT_TRUE(xmllint.waitForFinished(60'000));
    const QStringList said = QString::fromUtf8(xmllint.readAll()).split(u'\n');
    EXPECT_FALSE(said.join(u' ').contains(u"failed to compile"_s)) << said.join(u'\n').toStdString();
    QStringList valid;
    for (const QString& path : paths)
        if (said.contains(path + u" validates"_s))
            valid.append(path);
    return valid;
}

TEST(SchemaTest, AcceptsTheShippedDefinitions) {
    ASSERT_EQ(shippedDefinitions().size(), 4);
    EXPECT_EQ(validFiles(shippedDefinitions()), shippedDefinitions());
}

TEST(SchemaTest, AcceptsTheExampleOfTheReferencePageAndSoDoesTheReader) {
    QFile page(QStringLiteral(REFERENCE_PAGE));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QByteArray text = page.readAll();
    const QByteArray mark = "```xml\n";
    const qsizetype begin = text.indexOf(mark) + mark.size();
    ASSERT_GE(begin, mark.size());
    const DefinitionFolder folder;
    const QString path = folder.write(u"example"_s, text.mid(begin, text.indexOf("```", begin) - begin));
    EXPECT_EQ(outcomeOf(path).error, 0) << outcomeOf(path).description.toStdString();
    EXPECT_EQ(validFiles({path}), QStringList{path});
}

TEST(SchemaTest, AcceptsWhatTheReaderAccepts) {
    const DefinitionFolder folder;
    const QStringList paths{
        folder.write(u"full"_s, fullDefinition()), folder.write(u"small"_s, smallDefinition()),
        folder.write(u"blanks"_s, with(fullDefinition(), "height=\"297\"", "height=\" 297 \""))};
    for (const QString& path : paths)
        EXPECT_EQ(outcomeOf(path).error, 0) << outcomeOf(path).description.toStdString();
    EXPECT_EQ(validFiles(paths), paths);
}

TEST(SchemaTest, RefusesWhatTheReaderRefusesButForRulesBeyondIt) {
    const DefinitionFolder folder;
    QStringList paths;
    QStringList beyond;
    for (const DamageCase& damage : damageCases()) {
        paths.append(folder.write(QString::fromUtf8(damage.name), damaged(damage)));
        if (!damage.schemaSees)
            beyond.append(paths.last());
        EXPECT_NE(outcomeOf(paths.last()).error, 0) << damage.name;
    }
    paths.append(folder.write(
        u"NoDetails"_s, with(smallDefinition(), R"(<details height="5"/>)", R"(<pageFooter height="5"/>)")));
    EXPECT_NE(outcomeOf(paths.last()).error, 0);
    EXPECT_EQ(validFiles(paths), beyond);
}

} // namespace

} // namespace quorvane::report::test
