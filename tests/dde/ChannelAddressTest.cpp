#include "tests/dde/Channel.h"
#include <QDir>
#include <QFile>

using namespace quorvane;
using namespace quorvane::test;

namespace {

TEST(ChannelAddress, ATopicHasTwoPartsAroundABar) {
    EXPECT_TRUE(isChannelTopic(u"A|B"_s));
    EXPECT_TRUE(isChannelTopic(topic));
    for (const QString& text : {u""_s, u"|"_s, u"A"_s, u"A|"_s, u"|B"_s})
        EXPECT_FALSE(isChannelTopic(text)) << text.toStdString();
}

TEST(ChannelAddress, StandsInTheUsersRuntimeFolder) {
    const RuntimeFolder folder;
    EXPECT_EQ(QFileInfo(channelAddress(topic)).path(), folder.path());
}

TEST(ChannelAddress, OneForATopicInAnyCase) {
    const RuntimeFolder folder;
    EXPECT_EQ(channelAddress(topic), channelAddress(u"EMISIÓN DE DOCUMENTOS|lorbadeno"_s));
    EXPECT_NE(channelAddress(topic), channelAddress(u"Emision de Documentos|Lorbadeno"_s));
    EXPECT_NE(channelAddress(u"A|B"_s), channelAddress(u"B|A"_s));
}

TEST(ChannelAddress, IsAFileNameWhateverTheTopicHolds) {
    const RuntimeFolder folder;
    const QString address = channelAddress(u"../../etc/x\0y|"_s + QString(100000, u'ñ'));
    EXPECT_EQ(QFileInfo(address).path(), folder.path());
    EXPECT_LT(QFileInfo(address).fileName().size(), 40);
}

TEST(ChannelAddress, ThereIsNoneInAFolderThatOthersMayEnter) {
    const RuntimeFolder folder;
    QFile(folder.path())
        .setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther |
                        QFile::ExeOther);
    const QString address = channelAddress(topic);
    EXPECT_FALSE(address.startsWith(folder.path() + u'/') &&
                 (QFile(folder.path()).permissions() & QFile::ReadOther))
        << address.toStdString();
}

} // namespace
