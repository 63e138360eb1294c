#include "platform/quorvane32/base/SpanishText.h"
#include <QStringList>
#include <algorithm>
#include <gtest/gtest.h>

using namespace quorvane;

TEST(SpanishText, CaseAndTrailingBlanksDoNotCountButAccentsDo) {
    EXPECT_EQ(compareSpanish(u"AÑO ", u"año"), 0);
    EXPECT_EQ(compareSpanish(u"", u"  "), 0);
    EXPECT_NE(compareSpanish(u"papá", u"papa"), 0);
    EXPECT_NE(compareSpanish(u" a", u"a"), 0);
}

TEST(SpanishText, OrdersEnyeBehindNAndAccentsLast) {
    QStringList words{u"ñandú"_qs, u"oso"_qs,   u"Nube"_qs,  u"papa"_qs,
                      u"papá"_qs,  u"papas"_qs, u"árbol"_qs, u"bola"_qs};
    std::sort(words.begin(), words.end(),
              [](const QString& a, const QString& b) { return compareSpanish(a, b) < 0; });
    EXPECT_EQ(words.join(u' '), u"árbol bola Nube ñandú oso papa papá papas"_qs);
}

TEST(SpanishText, Utf8ComparisonAgreesWithTheTextOne) {
    const QStringList words{u""_qs,    u" "_qs, u"a"_qs, u"A"_qs, u"á"_qs, u"Á"_qs, u"ab"_qs,
                            u"az "_qs, u"ñ"_qs, u"Ñ"_qs, u"n"_qs, u"😀"_qs, u"1"_qs};
    const auto sign = [](int order) { return (order > 0) - (order < 0); };
    for (const QString& a : words)
        for (const QString& b : words)
            EXPECT_EQ(sign(compareSpanishUtf8(a.toUtf8(), b.toUtf8())), sign(compareSpanish(a, b)))
                << qPrintable(a) << " against " << qPrintable(b);
}

TEST(SpanishText, EqualExactlyWhenFoldedEqual) {
    const QStringList words{u"Ñ"_qs, u"ñ"_qs, u"n"_qs, u"É"_qs, u"é"_qs, u"e "_qs, u"e"_qs, u"ÿ"_qs};
    for (const QString& a : words)
        for (const QString& b : words)
            EXPECT_EQ(compareSpanish(a, b) == 0, foldText(a) == foldText(b));
}

TEST(SpanishText, KeysOrderAsTextsDo) {
    const QStringList words{u""_qs,       u" "_qs,      u"a"_qs,  u"A "_qs, u"á"_qs,     u"aa"_qs,
                            u"áa"_qs,     u"aá"_qs,     u"áá"_qs, u"ab"_qs, u"az"_qs,    u"n"_qs,
                            u"nz"_qs,     u"ñ"_qs,      u"Ña"_qs, u"o"_qs,  u"z"_qs,     u"~"_qs,
                            u"€"_qs,      u"😀"_qs,      u"1"_qs,  u"Ğ"_qs,  u"g"_qs,     u"a b"_qs,
                            u"ä"_qs,      u"\x0001"_qs, u"ß"_qs,  u"ø"_qs,  u"papá "_qs, u"PAPAS"_qs,
                            u"papá s"_qs, u"ÿ"_qs,      u"ý"_qs,  u"ýb"_qs, u"ya"_qs};
    const auto sign = [](int order) { return (order > 0) - (order < 0); };
    const auto keyOf = [](const QString& word) {
        SpanishKey key;
        appendSpanishKey(word, key);
        return QByteArray(reinterpret_cast<const char*>(key.data()), key.size());
    };
    for (const QString& a : words)
        for (const QString& b : words) {
            EXPECT_EQ(sign(keyOf(a).compare(keyOf(b))), sign(compareSpanish(a, b)))
                << qPrintable(a) << " against " << qPrintable(b);
            EXPECT_TRUE(compareSpanish(a, b) == 0 || !keyOf(a).startsWith(keyOf(b)))
                << qPrintable(a) << " behind " << qPrintable(b);
        }
}

TEST(SpanishText, PlainFoldDropsAccents) {
    EXPECT_EQ(foldPlain(u"Ñandú ÁRBOL Ğ"), u"nandu arbol g"_qs);
}

TEST(SpanishText, LikeKnowsWildcardsAndEscapes) {
    EXPECT_TRUE(likeSpanish(u"Ñ%A", u"ñandÁa", {}));
    EXPECT_TRUE(likeSpanish(u"%", u"", {}));
    EXPECT_TRUE(likeSpanish(u"a_c", u"ABC", {}));
    EXPECT_FALSE(likeSpanish(u"a_c", u"ac", {}));
    EXPECT_TRUE(likeSpanish(u"50\\%", u"50%", u'\\'));
    EXPECT_FALSE(likeSpanish(u"50\\%", u"505", u'\\'));
    EXPECT_TRUE(likeSpanish(u"a\\_b", u"a_b", u'\\'));
    EXPECT_FALSE(likeSpanish(u"a\\_b", u"axb", u'\\'));
    EXPECT_TRUE(likeSpanish(u"%a%b%", u"xxaxxbxx", {}));
}

TEST(SpanishText, LikeOnHostilePatternsEndsSoon) {
    const QString text(5000, u'a');
    EXPECT_FALSE(likeSpanish(QStringLiteral("%a").repeated(200) + u'b', text, {}));
}
