#include "ui/toolbar/MessageTable.h"
#include <gtest/gtest.h>

namespace toolbar_test {

using namespace dalvora::toolbar;

TEST(MessageTable, BeforeAndAfterAreTwoLists) {
    MessageTable table;
    EXPECT_TRUE(table.add(15, MessageTime::Before));
    EXPECT_TRUE(table.add(20, MessageTime::After));
    EXPECT_TRUE(table.handles(15, MessageTime::Before));
    EXPECT_FALSE(table.handles(15, MessageTime::After));
    EXPECT_TRUE(table.handles(20, MessageTime::After));
    EXPECT_FALSE(table.handles(20, MessageTime::Before));
}

TEST(MessageTable, RemovingAnUnknownMessageFails) {
    MessageTable table;
    table.add(15, MessageTime::Before);
    EXPECT_FALSE(table.remove(15, MessageTime::After));
    EXPECT_TRUE(table.remove(15, MessageTime::Before));
    EXPECT_FALSE(table.remove(15, MessageTime::Before));
    EXPECT_FALSE(table.handles(15, MessageTime::Before));
}

TEST(MessageTable, AFullListRefusesOneMoreAndTheOtherListGoesOn) {
    MessageTable table;
    for (quint32 message = 1; message <= MSG_ENTRIES; ++message)
        EXPECT_TRUE(table.add(message, MessageTime::Before));
    EXPECT_TRUE(table.add(1, MessageTime::Before)) << "it is there already";
    EXPECT_FALSE(table.add(1000, MessageTime::Before));
    EXPECT_FALSE(table.handles(1000, MessageTime::Before));
    EXPECT_TRUE(table.add(1000, MessageTime::After));
}

TEST(MessageTable, AllMessagesTakesTheWholeList) {
    MessageTable table;
    for (quint32 message = 1; message <= MSG_ENTRIES; ++message)
        table.add(message, MessageTime::Before);
    EXPECT_TRUE(table.add(ALL_MESSAGES, MessageTime::Before));
    EXPECT_TRUE(table.handles(12345, MessageTime::Before));
    EXPECT_TRUE(table.add(7, MessageTime::Before));
    EXPECT_TRUE(table.remove(ALL_MESSAGES, MessageTime::Before));
    EXPECT_FALSE(table.handles(7, MessageTime::Before));
}

} // namespace toolbar_test
