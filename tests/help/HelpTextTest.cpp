#include "platform/help/HelpText.h"
#include "platform/help/Sitemap.h"

#include <gtest/gtest.h>

namespace {

using namespace help;

TEST(HelpText, WesternBytesBecomeTheirLetters) {
    EXPECT_EQ(decodeText("A\xF1o \x80 \x93x\x94"), u"Año € “x”");
}

TEST(HelpText, PagesThatSaySoAreReadAsUtf8) {
    EXPECT_EQ(decodeText("<meta charset=\"utf-8\">a\xC3\xB1o"), u"<meta charset=\"utf-8\">año");
}

TEST(HelpText, FoldingKeepsPositions) {
    const QString text = QStringLiteral("Código ÑANDÚ ½ İ");
    const QString folded = foldForSearch(text);
    EXPECT_EQ(folded.size(), text.size());
    EXPECT_TRUE(folded.startsWith(u"codigo nandu ½"));
}

TEST(HelpText, ReferencesAreResolvedAndUnknownOnesKept) {
    EXPECT_EQ(resolveReferences(QStringLiteral("&lt;a&gt; &ntilde;&#241;&#xF1; &nada; & fin")),
              u"<a> ñññ &nada; & fin");
    EXPECT_EQ(resolveReferences(QStringLiteral("&#0; &#99999999; &;")), u"&#0; &#99999999; &;");
}

TEST(HelpText, PlainTextLeavesTagsTitleAndStylesOut) {
    EXPECT_EQ(
        plainText(QStringLiteral("<title>t</title><style>p{}</style><p>Uno<b>dos</b></p><!-- no --><p>tres")),
        u"Unodos tres");
}

TEST(HelpText, TitleIsFoundOrEmpty) {
    EXPECT_EQ(pageTitle(QStringLiteral("<TITLE>\n Un  t&iacute;tulo </TITLE>")), u"Un título");
    EXPECT_EQ(pageTitle(QStringLiteral("<title>sin fin")), QString());
}

TEST(Sitemap, ListsBelongToTheLineAbove) {
    const auto tree = parseSitemap(QStringLiteral(
        "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"A &amp; B\"></OBJECT>"
        "<UL><LI><OBJECT type='text/sitemap'><param value='p.html' name='Local'><param name=Name "
        "value=C></OBJECT></UL>"
        "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"x > y\"></OBJECT></UL>"));
    ASSERT_EQ(tree.size(), 2U);
    EXPECT_EQ(tree[0].title, u"A & B");
    ASSERT_EQ(tree[0].children.size(), 1U);
    EXPECT_EQ(tree[0].children[0].title, u"C");
    EXPECT_EQ(tree[0].children[0].pages, QStringList{QStringLiteral("p.html")});
    EXPECT_EQ(tree[1].title, u"x > y");
}

TEST(Sitemap, KeywordWithSeveralPagesKeepsTheirTitles) {
    const auto words = parseSitemap(QStringLiteral(
        "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"Tramo\">"
        "<param name=\"Name\" value=\"Uno\"><param name=\"Local\" value=\"1.html\">"
        "<param name=\"Name\" value=\"Dos\"><param name=\"Local\" value=\"2.html#x\"></OBJECT></UL>"));
    ASSERT_EQ(words.size(), 1U);
    EXPECT_EQ(words[0].pages, (QStringList{QStringLiteral("1.html"), QStringLiteral("2.html#x")}));
    EXPECT_EQ(words[0].pageTitles, (QStringList{QStringLiteral("Uno"), QStringLiteral("Dos")}));
}

TEST(Sitemap, EndlessNestingIsCutNotFollowed) {
    QString source;
    for (int level = 0; level < 5000; ++level)
        source += QStringLiteral(
                      "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"%1\"></OBJECT>")
                      .arg(level);
    const auto tree = parseSitemap(source);
    ASSERT_EQ(tree.size(), 1U);
    int depth = 0;
    for (const std::vector<SitemapNode>* level = &tree; !level->empty(); level = &level->front().children)
        ++depth;
    EXPECT_LE(depth, 32);
}

TEST(Sitemap, ClosingMoreThanWasOpenedDoesNoHarm) {
    const auto tree = parseSitemap(QStringLiteral(
        "</UL></UL><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"A\"></OBJECT></UL><UL"));
    ASSERT_EQ(tree.size(), 1U);
    EXPECT_EQ(tree[0].title, u"A");
}

} // namespace
