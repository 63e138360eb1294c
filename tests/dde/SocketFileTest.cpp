// Addresses that are files of the user's runtime folder, as they are where local sockets are files.
#include "platform/dde/RequestServer.h"
#include "tests/dde/Channel.h"
#include <QFile>
#include <QFileInfo>

using namespace quorvane;
using namespace quorvane::test;

namespace {

TEST(SocketFile, StandsInTheUsersRuntimeFolder) {
    const RuntimeFolder folder;
    EXPECT_EQ(QFileInfo(channelAddress(topic)).path(), folder.path());
}

TEST(SocketFile, IsAFileNameWhateverTheTopicHolds) {
    const RuntimeFolder folder;
    const QString address = channelAddress(u"../../etc/x\0y|"_s + QString(100000, u'ñ'));
    EXPECT_EQ(QFileInfo(address).path(), folder.path());
    EXPECT_LT(QFileInfo(address).fileName().size(), 40);
}

TEST(SocketFile, ThereIsNoneInAFolderThatOthersMayEnter) {
    const RuntimeFolder folder;
    QFile(folder.path())
        .setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther |
                        QFile::ExeOther);
    const QString address = channelAddress(topic);
    EXPECT_FALSE(address.startsWith(folder.path() + u'/') &&
                 (QFile(folder.path()).permissions() & QFile::ReadOther))
        << address.toStdString();
}

TEST(SocketFile, IsOfThisUserOnly) {
    const RuntimeFolder folder;
    RequestServer server(topic, [](const QString&) { return ChannelAnswer{}; });
    ASSERT_TRUE(server.listen());
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFile::permissions(channelAddress(topic)) & others, QFile::Permissions());
    EXPECT_EQ(QFile::permissions(channelAddress(topic) + u".lock"_s) & others, QFile::Permissions());
}

} // namespace
