#include "platform/quorvane32/base/Date.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using quorvane::Date;
using quorvane::test::errorOf;

TEST(Date, CountsDaysFromTheEndOf1899) {
    EXPECT_EQ(Date::fromYmd(1899, 12, 31).serial(), 1);
    EXPECT_EQ(Date::fromYmd(1900, 1, 1).serial(), 2);
    EXPECT_EQ(Date::fromYmd(1905, 3, 14).serial(), 1900);
    EXPECT_EQ(Date::fromYmd(2006, 3, 5).serial(), 38781);
    EXPECT_EQ(Date::fromYmd(1899, 12, 29).serial(), -1);
}

TEST(Date, ReachesFromTheYear100ToTheYear9999) {
    EXPECT_EQ(Date::fromYmd(100, 1, 1).serial(), -657434);
    EXPECT_EQ(Date::fromYmd(9999, 12, 31).serial(), 2958465);
    EXPECT_EQ(errorOf([] { Date::fromYmd(99, 12, 31); }), 6);
    EXPECT_EQ(errorOf([] { Date::fromYmd(10000, 1, 1); }), 6);
}

TEST(Date, ADayThatDoesNotExistIsTheEmptyDate) {
    EXPECT_TRUE(Date::fromYmd(2006, 2, 31).isEmpty());
    EXPECT_TRUE(Date::fromQDate(QDate()).isEmpty());
}

TEST(Date, TheEmptyDateHasNoDayAndNoText) {
    EXPECT_TRUE(Date().isEmpty());
    EXPECT_FALSE(Date().toQDate().isValid());
    EXPECT_EQ(Date().toDayMonthYear(u'/'), u""_s);
}

TEST(Date, GivesItsDayBack) {
    for (const QDate day :
         {QDate(100, 1, 1), QDate(1899, 12, 29), QDate(1900, 2, 28), QDate(2004, 2, 29), QDate(9999, 12, 31)})
        EXPECT_EQ(Date::fromQDate(day).toQDate(), day);
}

TEST(Date, ATimeOfDayLeavesTheDay) {
    EXPECT_EQ(Date(38781.99).toQDate(), QDate(2006, 3, 5));
    EXPECT_EQ(Date(-1.75).toQDate(), QDate(1899, 12, 29));
    EXPECT_FALSE(Date(0.5).isEmpty());
}

TEST(Date, IsWrittenWithTwoTwoAndFourDigits) {
    EXPECT_EQ(Date::fromYmd(2006, 3, 5).toDayMonthYear(u'/'), u"05/03/2006"_s);
    EXPECT_EQ(Date::fromYmd(2006, 3, 5).toDayMonthYear(u'-'), u"05-03-2006"_s);
    EXPECT_EQ(Date::fromYmd(100, 12, 31).toDayMonthYear(u'/'), u"31/12/0100"_s);
}

TEST(Date, ComparesByTime) {
    EXPECT_LT(Date::fromYmd(2006, 3, 5), Date::fromYmd(2006, 3, 6));
    EXPECT_LT(Date(38781), Date(38781.5));
    EXPECT_EQ(Date(38781), Date::fromYmd(2006, 3, 5));
}
