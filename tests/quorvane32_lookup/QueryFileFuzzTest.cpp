#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/lookup/LookupErrors.h"
#include "platform/quorvane32/lookup/QueryArgument.h"
#include "platform/quorvane32/lookup/QueryFile.h"
#include <QFile>
#include <gtest/gtest.h>
#include <random>

using namespace quorvane;

namespace {

QByteArray shippedFile() {
    QFile file(QStringLiteral(DALVORA_QUERY_FILE));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

/// Bytes that mean something to the format, so that mutations reach deep.
constexpr char pieces[] = "[]|=;$'\"-#@ \t\r\n0129az\xC3\xB1\xFF";

QByteArray mutated(QByteArray text, std::mt19937& random) {
    const auto below = [&](qsizetype limit) {
        return std::uniform_int_distribution<qsizetype>(0, limit - 1)(random);
    };
    const qsizetype changes = 1 + below(8);
    for (qsizetype i = 0; i < changes && !text.isEmpty(); ++i) {
        const qsizetype at = below(text.size());
        switch (below(4)) {
        case 0:
            text[at] = pieces[below(sizeof pieces)];
            break;
        case 1:
            text.insert(at, pieces[below(sizeof pieces)]);
            break;
        case 2:
            text.remove(at, 1 + below(40));
            break;
        default:
            text.insert(at, text.mid(below(text.size()), below(80)));
        }
    }
    return text;
}

/// A text either gives sound queries or error 321; nothing else may leave the parser.
void expectSound(const QByteArray& text) {
    try {
        const QueryFile file = QueryFile::parse(text, "x.qry");
        for (const QueryDefinition& query : file.queries()) {
            EXPECT_FALSE(query.name.isEmpty());
            EXPECT_FALSE(query.columns.empty());
            EXPECT_FALSE(query.returned.isEmpty());
            QStringList values;
            for (const QueryParameter& parameter : query.parameters)
                values += parameter.kind == ParameterKind::Text ? "a'b" : "";
            try {
                (void)query.statement(values, {});
            } catch (const RunTimeError& error) {
                // Only a declared value, or a number left empty, can be unreadable.
                EXPECT_EQ(error.number(), ErrorTypeMismatch) << text.constData();
            }
        }
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), ErrorInvalidFileFormat) << text.constData();
    }
}

} // namespace

TEST(QueryFileFuzz, DamagedCopiesOfTheShippedFileGiveQueriesOrAnError) {
    const QByteArray text = shippedFile();
    std::mt19937 random(20060305);
    for (int i = 0; i < 4000; ++i)
        expectSound(mutated(text, random));
}

TEST(QueryFileFuzz, RandomBytesGiveAnError) {
    std::mt19937 random(7);
    for (int i = 0; i < 4000; ++i) {
        QByteArray text;
        const unsigned length = random() % 300;
        for (unsigned k = 0; k < length; ++k)
            text += random() % 3 == 0 ? static_cast<char>(random() % 256) : pieces[random() % sizeof pieces];
        expectSound(text);
    }
}

TEST(QueryFileFuzz, EveryPrefixOfTheShippedFileGivesQueriesOrAnError) {
    const QByteArray text = shippedFile();
    for (qsizetype length = 0; length < text.size(); length += 3)
        expectSound(text.first(length));
}

TEST(QueryFileFuzz, AnyArgumentIsReadOrRefused) {
    std::mt19937 random(11);
    constexpr char letters[] = "@@##a.qry/\\ ";
    for (int i = 0; i < 20000; ++i) {
        QString text;
        const unsigned length = random() % 30;
        for (unsigned k = 0; k < length; ++k)
            text += QLatin1Char(letters[random() % (sizeof letters - 1)]);
        if (!text.contains(u'@')) {
            EXPECT_THROW((void)QueryArgument::parse(text), RunTimeError);
            continue;
        }
        const QueryArgument argument = QueryArgument::parse(text);
        const QString end = argument.parameters.isEmpty() ? QString() : u'#' + argument.parameters.join(u'#');
        EXPECT_TRUE(text.endsWith(argument.file + end));
    }
}
