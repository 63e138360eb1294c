#include "app/CommandLine.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <gtest/gtest.h>

using namespace dalvora;

TEST(ParseKeyValues, KeyIsFoundInAnyCaseAtAnyPlace) {
    EXPECT_EQ(ParseKeyValues("empresa=07;USUARIO=x", "EMPRESA"), "07");
    EXPECT_EQ(ParseKeyValues("USUARIO=x;Empresa=07;z=1", "EMPRESA"), "07");
}

TEST(ParseKeyValues, KeyMustFollowASeparatorOrTheStart) {
    EXPECT_EQ(ParseKeyValues("XEMPRESA=1", "EMPRESA"), "");
    EXPECT_EQ(ParseKeyValues("a=1; EMPRESA=1", "EMPRESA"), "");
}

TEST(ParseKeyValues, ValueIsTakenAsItStands) {
    EXPECT_EQ(ParseKeyValues("EMPRESA=", "EMPRESA"), "");
    EXPECT_EQ(ParseKeyValues("EMPRESA=;x=1", "EMPRESA"), "");
    EXPECT_EQ(ParseKeyValues("EMPRESA= 0 7=x ", "EMPRESA"), " 0 7=x ");
    EXPECT_EQ(ParseKeyValues("", "EMPRESA"), "");
}

TEST(ParseKeyValues, LongerThanSixteenBitsOverflows) {
    const QString key = "EMPRESA=1;";
    EXPECT_EQ(ParseKeyValues(key + QString(32767 - key.size(), 'x'), "EMPRESA"), "1");
    try {
        ParseKeyValues(QString(32768, 'x'), "EMPRESA");
        FAIL();
    } catch (const quorvane::RunTimeError& error) {
        EXPECT_EQ(error.number(), quorvane::ErrorOverflow);
    }
}

TEST(FormateaVersion, BuildLeadsTheRevision) {
    EXPECT_EQ(FormateaVersion(7, 13, 1203), "7.13.12");
    EXPECT_EQ(FormateaVersion(7, 13, 5), "7.13.05");
    EXPECT_EQ(FormateaVersion(1, 0, 203), "1.0.02");
}

TEST(FormateaVersion, TailsOfRevisions) {
    const std::pair<int, const char*> cases[] = {{0, "00"},   {9, "09"},    {99, "09"},
                                                 {999, "09"}, {1000, "10"}, {9999, "99"}};
    for (const auto& [revision, tail] : cases)
        EXPECT_EQ(FormateaVersion(1, 0, revision), QStringLiteral("1.0.") + tail) << revision;
}
