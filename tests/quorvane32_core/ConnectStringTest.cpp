#include "platform/quorvane32/core/ConnectString.h"
#include <gtest/gtest.h>

using quorvane::ConnectString;

TEST(ConnectString, FindsKeysWithoutRegardToCase) {
    const auto options =
        ConnectString::parse(QStringLiteral("Driver=sqlite; DATABASE=/a b/c.db ;Timeout=50"));
    EXPECT_EQ(options.value("driver"), "sqlite");
    EXPECT_EQ(options.value("Database"), "/a b/c.db");
    EXPECT_EQ(options.value("timeout"), "50");
    EXPECT_EQ(options.value("port", "none"), "none");
}

TEST(ConnectString, ValueInBracesMayHoldSeparators) {
    ConnectString options;
    options.setValue("Database", "/odd;name}.db");
    options.setValue("Password", "{x");
    const auto again = ConnectString::parse(options.toString());
    EXPECT_EQ(again.value("database"), "/odd;name}.db");
    EXPECT_EQ(again.value("password"), "{x");
}

TEST(ConnectString, BlanksAroundAValueInBracesAreNotOfIt) {
    EXPECT_EQ(ConnectString::parse(QStringLiteral("Password = { a;b } ; Port=7")).value("password"), " a;b ");
    EXPECT_EQ(ConnectString::parse(QStringLiteral("Password = { a;b } ; Port=7")).value("port"), "7");
}

TEST(ConnectString, AValueWithOuterBlanksComesBackWhole) {
    ConnectString options;
    options.setValue("Password", " x ");
    options.setValue("Database", "plain}");
    const auto again = ConnectString::parse(options.toString());
    EXPECT_EQ(again.value("password"), " x ");
    EXPECT_EQ(again.value("database"), "plain}");
}

TEST(ConnectString, RubbishGivesNoValues) {
    EXPECT_EQ(ConnectString::parse(QStringLiteral("no pairs here")).toString(), "");
    EXPECT_EQ(ConnectString::parse(QStringLiteral("a={unclosed")).value("a"), "unclosed");
}
