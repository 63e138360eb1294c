#include "platform/dde/SystemRequestAnswerer.h"
#include "platform/dde/SystemRequestLink.h"
#include "tests/dde/Channel.h"
#include <QScopeGuard>

using namespace quorvane;
using namespace quorvane::test;

namespace {

/// Looks for modules there only.
auto lookingIn(const QString& folder) {
    const QStringList before = QCoreApplication::libraryPaths();
    QCoreApplication::setLibraryPaths({folder});
    return qScopeGuard([before] { QCoreApplication::setLibraryPaths(before); });
}

/// Both ends as programs get them: local sockets, on Windows DDE.
class SystemRequestChannel : public testing::Test {
protected:
    SystemRequestChannel() { link.setLinkTopic(wanted); }

    int open() {
        return errorOf([this] { link.setLinkMode(LinkManual); });
    }
    int execute(const QString& command) {
        return errorOf([&] { link.LinkExecute(command); });
    }
    /// An answerer that accepts everything but "mala"; it listens.
    std::unique_ptr<RequestAnswerer> answering(const QString& topic) {
        auto answerer = makeRequestAnswerer(topic, [this](const QString& command) {
            commands << command;
            if (command == u"error")
                quorvane::raise(ErrorTypeMismatch);
            return ChannelAnswer{command != u"mala", u"no se entiende"_s};
        });
        EXPECT_TRUE(answerer->listen());
        return answerer;
    }

    const QString wanted = u"Canal de pruebas|Único"_s;
    const decltype(lookingIn({})) modules =
        lookingIn(QCoreApplication::applicationDirPath() + u"/../../bin"_s);
    RuntimeFolder folder;
    QStringList commands;
    SystemRequestLink link;
};

const auto nothing = [](const QString&) { return ChannelAnswer{}; };

TEST(SystemRequestChannelModule, IsMissedByTheFirstUse) {
    const RuntimeFolder folder;
    const auto none = lookingIn(folder.path());
    SystemRequestLink link;
    EXPECT_EQ(link.linkMode(), LinkNone);
    EXPECT_EQ(errorOf([&] { link.setLinkMode(LinkManual); }), ErrorCannotCreateObject);
    EXPECT_EQ(errorOf([] { makeRequestAnswerer(u"A|B"_s, nothing); }), ErrorCannotCreateObject);
}

TEST_F(SystemRequestChannel, NobodyThereIs282BeforeTheTimeOut) {
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(open(), 282);
    EXPECT_LT(time.elapsed(), 4000);
    EXPECT_EQ(link.linkMode(), LinkNone);
}

TEST_F(SystemRequestChannel, CommandsReachTheApplicationAndItsAnswerComesBack) {
    const auto answerer = answering(wanted);
    ASSERT_EQ(open(), 0);
    EXPECT_EQ(link.linkMode(), LinkManual);
    const QStringList all{u"EMPRESA=001;CTACTE=Ñandú;TIPOCTACTE=$TIPOCTACTE$"_s, u"mala"_s,
                          QString(60000, u'x'), QString()};
    EXPECT_EQ(execute(all[0]), 0);
    EXPECT_EQ(execute(all[1]), 285);
    EXPECT_EQ(link.linkMode(), LinkManual);
    EXPECT_EQ(execute(all[2]), 0);
    EXPECT_EQ(execute(all[3]), 0);
    EXPECT_EQ(commands, all);
    link.setLinkMode(LinkNone);
    EXPECT_EQ(link.linkMode(), LinkNone);
    EXPECT_EQ(execute(u"x"_s), 293);
}

TEST_F(SystemRequestChannel, AnErrorRefusesTheCommand) {
    const auto answerer = answering(wanted);
    ASSERT_EQ(open(), 0);
    EXPECT_EQ(execute(u"error"_s), 285);
    EXPECT_EQ(execute(u"x"_s), 0);
}

TEST_F(SystemRequestChannel, ATopicIsFoundInAnyCase) {
    const auto answerer = answering(wanted.toUpper());
    EXPECT_EQ(open(), 0);
}

TEST_F(SystemRequestChannel, AnotherTopicIsNotAnswered) {
    const auto answerer = answering(u"Canal de pruebas|Otro"_s);
    const auto other = answering(u"Otro canal|Único"_s);
    EXPECT_EQ(open(), 282);
}

TEST_F(SystemRequestChannel, ATopicHasOneAnswererUntilItCloses) {
    const auto answerer = answering(wanted);
    EXPECT_TRUE(answerer->listen());
    const auto second = makeRequestAnswerer(wanted.toLower(), nothing);
    EXPECT_FALSE(second->listen());
    ASSERT_EQ(open(), 0);
    EXPECT_EQ(execute(u"sigue aquí"_s), 0);
    answerer->close();
    EXPECT_EQ(execute(u"x"_s), 291);
    EXPECT_EQ(open(), 282);
    EXPECT_TRUE(second->listen());
    EXPECT_EQ(open(), 0);
}

TEST_F(SystemRequestChannel, ATopicWithoutTwoPartsIs297AndNotAnswered) {
    for (const QString& text : {u""_s, u"Lorbadeno"_s, u"Lorbadeno|"_s}) {
        link.setLinkTopic(text);
        EXPECT_EQ(open(), 297);
        EXPECT_FALSE(makeRequestAnswerer(text, nothing)->listen());
    }
}

TEST_F(SystemRequestChannel, OtherModesAndTimesAreInvalid) {
    EXPECT_EQ(errorOf([this] { link.setLinkMode(1); }), 5);
    EXPECT_EQ(errorOf([this] { link.setLinkMode(-1); }), 5);
    EXPECT_EQ(errorOf([this] { link.setLinkTimeout(-1); }), 5);
}

TEST_F(SystemRequestChannel, ATextThatNoMessageHoldsIsRefusedHereAndTheConversationGoesOn) {
    const auto answerer = answering(wanted);
    ASSERT_EQ(open(), 0);
    EXPECT_EQ(execute(QString(70000, u'x')), 5);
    EXPECT_EQ(execute(u"a"_s + QChar(u'\0')), 5);
    EXPECT_EQ(execute(u"x"_s), 0);
    EXPECT_EQ(commands, QStringList{u"x"_s});
}

} // namespace
