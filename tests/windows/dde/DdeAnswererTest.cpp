#include "platform/dde/windows/DdeAnswerer.h"
#include "platform/dde/windows/DdeRequestLink.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/QtPrinters.h"
#include "tests/windows/dde/DoubleProcess.h"
#include <array>
#include <gtest/gtest.h>
#include <windows.h>

#include <ddeml.h>

using namespace quorvane;
using namespace quorvane::test;
using namespace Qt::StringLiterals;

namespace {

const QString topic = u"Emisión de Documentos|Lorbadeno"_s;

class DdeServer : public testing::Test {
protected:
    static int open(RequestLink& link, const QString& wanted = topic) {
        link.setLinkTopic(wanted);
        return errorOf([&] { link.setLinkMode(LinkManual); });
    }
    static int execute(RequestLink& link, const QString& command) {
        return errorOf([&] { link.LinkExecute(command); });
    }

    QStringList commands;
    bool accepted = true;
    DdeAnswerer answerer{topic, [this](const QString& command) {
                             commands << command;
                             return ChannelAnswer{accepted, u"motivo"_s};
                         }};
};

TEST_F(DdeServer, AnswersProgramsThatKnowNoUnicode) {
    ASSERT_TRUE(answerer.listen());
    DoubleProcess client(u"ask-ansi"_s, u"EMPRESA=001;CTACTE=ÑANDÚ"_s);
    EXPECT_EQ(client.finished(), 0);
    EXPECT_EQ(commands, QStringList{u"EMPRESA=001;CTACTE=ÑANDÚ"_s});
    accepted = false;
    DoubleProcess refused(u"ask-ansi"_s, u"x"_s);
    EXPECT_EQ(refused.finished(), DMLERR_NOTPROCESSED);
    answerer.close();
    DoubleProcess alone(u"ask-ansi"_s, u"x"_s);
    EXPECT_EQ(alone.finished(), DMLERR_NO_CONV_ESTABLISHED);
    EXPECT_EQ(commands.size(), 2);
}

TEST_F(DdeServer, AnswersItsTopicOnly) {
    ASSERT_TRUE(answerer.listen());
    DdeRequestLink link;
    EXPECT_EQ(open(link, u"Emisión de Documentos|Otra"_s), 282);
    EXPECT_EQ(open(link, u"emisión de documentos|LORBADENO"_s), 0);
}

TEST_F(DdeServer, TopicsOfOneServiceAreToldApart) {
    QStringList others;
    DdeAnswerer other(u"Emisión de Documentos|Otra"_s, [&](const QString& command) {
        others << command;
        return ChannelAnswer{true, {}};
    });
    ASSERT_TRUE(answerer.listen() && other.listen());
    DdeRequestLink link;
    DdeRequestLink otherLink;
    ASSERT_EQ(open(link), 0);
    ASSERT_EQ(open(otherLink, u"Emisión de Documentos|Otra"_s), 0);
    EXPECT_EQ(execute(otherLink, u"otra"_s), 0);
    EXPECT_EQ(execute(link, u"una"_s), 0);
    EXPECT_EQ(commands, QStringList{u"una"_s});
    EXPECT_EQ(others, QStringList{u"otra"_s});
    other.close();
    EXPECT_EQ(execute(otherLink, u"x"_s), 291);
    EXPECT_EQ(execute(link, u"dos"_s), 0);
}

TEST_F(DdeServer, ATopicIsAnsweredByOneProgramOnce) {
    ASSERT_TRUE(answerer.listen());
    EXPECT_TRUE(answerer.listen());
    const auto nothing = [](const QString&) { return ChannelAnswer{}; };
    EXPECT_FALSE(DdeAnswerer(u"emisión de documentos|LORBADENO"_s, nothing).listen());
    DdeRequestLink link;
    ASSERT_EQ(open(link), 0);
    EXPECT_EQ(execute(link, u"sigue aquí"_s), 0);
}

TEST_F(DdeServer, AThreadAnswersEightTopics) {
    const auto nothing = [](const QString&) { return ChannelAnswer{}; };
    std::array<std::unique_ptr<DdeAnswerer>, 9> answerers;
    for (std::size_t i = 0; i < answerers.size(); ++i)
        answerers[i] = std::make_unique<DdeAnswerer>(u"Pruebas|%1"_s.arg(i), nothing);
    for (int i = 0; i < 8; ++i)
        EXPECT_TRUE(answerers[i]->listen()) << i;
    EXPECT_FALSE(answerers[8]->listen());
    answerers[3]->close();
    EXPECT_TRUE(answerers[8]->listen());
    DdeRequestLink link;
    EXPECT_EQ(open(link, u"Pruebas|8"_s), 0);
    EXPECT_EQ(open(link, u"Pruebas|3"_s), 282);
}

TEST_F(DdeServer, ACommandThatComesDuringAnotherIsTurnedAway) {
    int during = -1;
    DdeRequestLink second;
    DdeAnswerer busy(u"A|B"_s, [&](const QString&) {
        if (during < 0)
            during = execute(second, u"dos"_s); // lets events run
        return ChannelAnswer{true, {}};
    });
    ASSERT_TRUE(busy.listen());
    DdeRequestLink first;
    ASSERT_EQ(open(first, u"A|B"_s), 0);
    ASSERT_EQ(open(second, u"A|B"_s), 0);
    EXPECT_EQ(execute(first, u"uno"_s), 0);
    EXPECT_EQ(during, 285);
    EXPECT_EQ(execute(second, u"tres"_s), 0);
}

TEST_F(DdeServer, ClosingEndsItsConversations) {
    ASSERT_TRUE(answerer.listen());
    DdeRequestLink link;
    ASSERT_EQ(open(link), 0);
    answerer.close();
    EXPECT_EQ(execute(link, u"x"_s), 291);
    EXPECT_EQ(open(link), 282);
    EXPECT_TRUE(commands.isEmpty());
}

TEST_F(DdeServer, TakesNoTextThatIsNoTopicOrTooLong) {
    const auto nothing = [](const QString&) { return ChannelAnswer{}; };
    EXPECT_FALSE(DdeAnswerer(u"Lorbadeno"_s, nothing).listen());
    EXPECT_FALSE(DdeAnswerer(QString(300, u'x') + u"|x"_s, nothing).listen());
    EXPECT_FALSE(DdeAnswerer(u"x|"_s + QString(300, u'x'), nothing).listen());
}

} // namespace
