#include "demo/lorbadeno/VncPort.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>

using namespace dalvora::lorbadeno;
using namespace Qt::StringLiterals;

TEST(VncPort, IsTheOneBehindThatOfTheProgramThatStartedIt) {
    EXPECT_EQ(ownVncPort(u"vnc:size=1280x800:port=5900"_s), 5901);
    EXPECT_EQ(ownVncPort(u"vnc:port=6001:size=800x600"_s), 6002);
    EXPECT_EQ(ownVncPort(u"vnc"_s), 5901);
    EXPECT_EQ(ownVncPort(u"vnc:port=nada"_s), 5901);
    EXPECT_EQ(ownVncPort(u"vnc:port=65535"_s), 5901);
    EXPECT_EQ(withVncPort(u"vnc:port=5900:size=1280x800"_s, 5901), u"vnc:size=1280x800:port=5901"_s);
    EXPECT_EQ(withVncPort(u"vnc"_s, 5901), u"vnc:port=5901"_s);
}

TEST(VncPort, OtherScreensAreShared) {
    for (const QString& platform : {u""_s, u"xcb"_s, u"offscreen"_s, u"wayland:port=1"_s})
        EXPECT_EQ(ownVncPort(platform), 0);
}
