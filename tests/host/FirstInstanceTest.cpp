#include "app/FirstInstance.h"
#include "app/HostChannel.h"
#include "platform/quorvane32/session/Profile.h"
#include "tests/host/Channel.h"
#include "tests/support/QtPrinters.h"
#include <QDir>
#include <QElapsedTimer>
#include <gtest/gtest.h>

using namespace dalvora;
using namespace dalvora::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class FirstInstanceTest : public testing::Test {
protected:
    /// Answers as the company's running program does.
    void answer(const QString& company, bool accept = true) {
        m_accept = accept;
        m_channel.begin({startTopic(folder.path(), company)});
    }

    ChannelFolder channelFolder;
    QTemporaryDir folder;
    FirstInstance first{folder.path()};
    FirstInstance second{folder.path(), 10s}; // an answer on a busy machine
    FirstInstance impatient{folder.path(), 300ms};
    QStringList commands;

private:
    bool m_accept = true;
    HostChannel m_channel{[this](const QString& command) {
        commands << command;
        return quorvane::ChannelAnswer{m_accept, u"no"_s};
    }};
};

} // namespace

TEST_F(FirstInstanceTest, TheSecondLetsTheFirstComeToTheFront) {
    EXPECT_FALSE(first.givesWay(u"001"_s));
    answer(u"001"_s);
    EXPECT_TRUE(second.givesWay(u"001"_s));
    EXPECT_EQ(commands, QStringList{u"ACCION=MOSTRAR"_s});
}

TEST_F(FirstInstanceTest, ACompanyIsTheSameInAnyCaseAndWithBlanksAround) {
    EXPECT_FALSE(first.givesWay(u"Sur"_s));
    answer(u"Sur"_s);
    EXPECT_TRUE(second.givesWay(u" SUR "_s));
}

TEST_F(FirstInstanceTest, OtherCompaniesAndFoldersAreOtherPlaces) {
    const QTemporaryDir other;
    EXPECT_FALSE(first.givesWay(u"001"_s));
    answer(u"001"_s);
    FirstInstance elsewhere(other.path());
    EXPECT_FALSE(elsewhere.givesWay(u"001"_s));
    EXPECT_FALSE(second.givesWay(u"002"_s));
    EXPECT_EQ(commands, QStringList());
}

TEST_F(FirstInstanceTest, AFolderIsTheSameHoweverItIsWritten) {
    EXPECT_FALSE(first.givesWay(u"001"_s));
    answer(u"001"_s);
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"x"_s));
    FirstInstance roundabout(folder.path() + u"/x/../"_s, 10s);
    EXPECT_TRUE(roundabout.givesWay(u"001"_s));
}

TEST_F(FirstInstanceTest, WithoutACompanyThereIsNothingToAsk) {
    EXPECT_FALSE(first.givesWay(QString()));
    EXPECT_FALSE(second.givesWay(QString()));
    EXPECT_FALSE(first.givesWay(u"001"_s));
}

TEST_F(FirstInstanceTest, ASilentFirstDelaysTheSecondOnlyOnce) {
    EXPECT_FALSE(first.givesWay(u"001"_s));
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(impatient.givesWay(u"001"_s));
    EXPECT_GE(clock.elapsed(), 300);
    answer(u"001"_s);
    EXPECT_FALSE(impatient.givesWay(u"001"_s)) << "it has been asked";
    EXPECT_EQ(commands, QStringList());
}

TEST_F(FirstInstanceTest, AFirstThatRefusesIsLeftAlone) {
    EXPECT_FALSE(first.givesWay(u"001"_s));
    answer(u"001"_s, false);
    FirstInstance asking(folder.path(), 2s);
    EXPECT_FALSE(asking.givesWay(u"001"_s));
    EXPECT_FALSE(commands.isEmpty());
}

TEST_F(FirstInstanceTest, ThePlaceOfOneThatEndedIsFree) {
    auto gone = std::make_unique<FirstInstance>(folder.path());
    EXPECT_FALSE(gone->givesWay(u"001"_s));
    gone.reset();
    EXPECT_FALSE(first.givesWay(u"001"_s));
    answer(u"001"_s);
    EXPECT_TRUE(second.givesWay(u"001"_s)) << "who came next holds it";
}

TEST_F(FirstInstanceTest, WhoSignsInToAnotherCompanyLeavesThePlaceOfTheFirst) {
    EXPECT_FALSE(first.givesWay(u"001"_s));
    EXPECT_FALSE(first.givesWay(u"002"_s));
    EXPECT_FALSE(second.givesWay(u"001"_s));
    answer(u"002"_s);
    FirstInstance third(folder.path(), 10s);
    EXPECT_TRUE(third.givesWay(u"002"_s));
}

TEST_F(FirstInstanceTest, OneBesideTheFirstTakesItsPlaceOnceThatHasEnded) {
    auto hanging = std::make_unique<FirstInstance>(folder.path());
    EXPECT_FALSE(hanging->givesWay(u"001"_s));
    EXPECT_FALSE(impatient.givesWay(u"001"_s));
    EXPECT_FALSE(impatient.takePlace());
    hanging.reset();
    EXPECT_TRUE(impatient.takePlace());
    answer(u"001"_s);
    EXPECT_TRUE(second.givesWay(u"001"_s));
}

TEST_F(FirstInstanceTest, TopicsThatOthersLeaveAreTaken) {
    const QStringList topics{u"Dalvora|a"_s, u"Dalvora|b"_s};
    QStringList late;
    HostChannel before{[](const QString&) { return quorvane::ChannelAnswer{true, {}}; }};
    HostChannel after{[&late](const QString& command) {
        late << command;
        return quorvane::ChannelAnswer{true, {}};
    }};
    EXPECT_TRUE(before.begin({topics[0]}));
    EXPECT_FALSE(after.begin(topics));
    EXPECT_EQ(errorOfAsking(topics[0]), 0);
    EXPECT_EQ(errorOfAsking(topics[1]), 0);
    EXPECT_EQ(late.size(), 1);
    before.close();
    EXPECT_TRUE(after.begin(topics));
    EXPECT_EQ(errorOfAsking(topics[0]), 0);
    EXPECT_EQ(late.size(), 2);
}

TEST(HostTopic, NamesTheFolderOfAProfileThatIsNotTheUsualOne) {
    const QTemporaryDir folder;
    EXPECT_EQ(hostTopic(quorvane::Profile::usualFolder(), u"001"_s), u"Dalvora|001"_s);
    EXPECT_EQ(hostTopic(folder.path(), u"001"_s), u"Dalvora|001|"_s + QDir(folder.path()).canonicalPath());
}
