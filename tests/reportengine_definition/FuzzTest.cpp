#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/reportengine_definition/DefinitionFile.h"
#include <QFile>
#include <gtest/gtest.h>
#include <random>

namespace quorvane::report::test {

namespace {

/// Changes a text at random: bytes, lost pieces, doubled pieces, pieces elsewhere.
class Mutator {
public:
    QByteArray mutated(QByteArray text) {
        for (std::size_t change = 0, changes = 1 + below(3); change < changes; ++change)
            mutate(text);
        return text;
    }

private:
    std::size_t below(std::size_t limit) { return m_random() % limit; }
    qsizetype placeIn(const QByteArray& text) {
        return static_cast<qsizetype>(below(static_cast<std::size_t>(text.size()) + 1));
    }

    void mutate(QByteArray& text) {
        const qsizetype place = placeIn(text);
        const auto length = static_cast<qsizetype>(below(40));
        switch (below(6)) {
        case 0:
            text.insert(place, static_cast<char>(below(256)));
            break;
        case 1:
            if (place < text.size())
                text[place] = static_cast<char>(below(256));
            break;
        case 2:
            text.remove(place, length);
            break;
        case 3:
            text.insert(place, text.mid(placeIn(text), length));
            break;
        case 4:
            if (place < text.size())
                text[place] = "0123456789<>\"'&=./#{}"[below(20)];
            break;
        default:
            moveElement(text, place);
        }
    }

    /// Whole elements keep the file well-formed more often, so the damage gets past the XML.
    void moveElement(QByteArray& text, qsizetype place) {
        const qsizetype begin = text.indexOf('<', place);
        const qsizetype end = text.indexOf("/>", begin);
        if (begin < 0 || end < 0)
            return;
        const QByteArray element = text.mid(begin, end + 2 - begin);
        if (below(2) == 0)
            text.remove(begin, element.size());
        const qsizetype target = text.indexOf('<', placeIn(text));
        text.insert(std::max<qsizetype>(target, 0), element);
    }

    std::mt19937 m_random{19'960'704}; // NOLINT(bugprone-random-generator-seed): the same files in every run
};

TEST(FuzzTest, AMutatedDefinitionIsReadOrTellsItsDamageAndNothingElse) {
    const DefinitionFolder folder;
    Mutator mutator;
    std::vector<QByteArray> originals{fullDefinition()};
    for (const QString& path : shippedDefinitions()) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        originals.push_back(file.readAll());
    }
    int read = 0;
    int damaged = 0;
    for (int round = 0; round < 300; ++round)
        for (const QByteArray& original : originals) {
            const QByteArray text = mutator.mutated(original);
            const Outcome outcome = folder.read(text);
            ASSERT_TRUE(outcome.error == 0 || outcome.error == ErrorFileFormat) << text.toStdString();
            ASSERT_EQ(outcome.error == 0, outcome.description.isEmpty()) << text.toStdString();
            ++(outcome.error == 0 ? read : damaged);
        }
    EXPECT_GT(read, 30) << "mutations that do no harm are part of it";
    EXPECT_GT(damaged, 700);
}

} // namespace

} // namespace quorvane::report::test
