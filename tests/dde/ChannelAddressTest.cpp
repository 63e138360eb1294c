#include "tests/dde/Channel.h"

using namespace quorvane;
using namespace quorvane::test;

namespace {

TEST(ChannelAddress, ATopicHasTwoPartsAroundABar) {
    EXPECT_TRUE(isChannelTopic(u"A|B"_s));
    EXPECT_TRUE(isChannelTopic(topic));
    for (const QString& text : {u""_s, u"|"_s, u"A"_s, u"A|"_s, u"|B"_s})
        EXPECT_FALSE(isChannelTopic(text)) << text.toStdString();
}

TEST(ChannelAddress, OneForATopicInAnyCase) {
    const RuntimeFolder folder;
    EXPECT_EQ(channelAddress(topic), channelAddress(u"EMISIÓN DE DOCUMENTOS|lorbadeno"_s));
    EXPECT_NE(channelAddress(topic), channelAddress(u"Emision de Documentos|Lorbadeno"_s));
    EXPECT_NE(channelAddress(u"A|B"_s), channelAddress(u"B|A"_s));
}

} // namespace
