#include "platform/quorvane32/base/RegionalSettings.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using quorvane::Date;
using quorvane::RegionalSettings;
using quorvane::test::errorOf;

namespace {

const RegionalSettings spanish;
const RegionalSettings english{u'.', u',', u'-'};

int numberError(const QString& text) {
    return errorOf([&] { (void)spanish.parseNumber(text); });
}

int dateError(const QString& text) {
    return errorOf([&] { (void)spanish.parseDate(text); });
}

} // namespace

TEST(RegionalSettings, WriteNumbersAndDates) {
    EXPECT_EQ(spanish.numberText(1234.5), u"1234,5"_s);
    EXPECT_EQ(english.numberText(1234.5), u"1234.5"_s);
    EXPECT_EQ(spanish.groupedText(1234.5, 2), u"1.234,50"_s);
    EXPECT_EQ(english.groupedText(1234.5, 2), u"1,234.50"_s);
    EXPECT_EQ(spanish.dateText(Date::fromYmd(2006, 3, 5)), u"05/03/2006"_s);
    EXPECT_EQ(english.dateText(Date::fromYmd(2006, 3, 5)), u"05-03-2006"_s);
    EXPECT_EQ(spanish.dateText(Date()), u""_s);
}

TEST(RegionalSettings, WritesTheMonthOfADate) {
    EXPECT_EQ(spanish.monthText(Date::fromYmd(1997, 7, 31)), u"julio 1997"_s);
    EXPECT_EQ(spanish.monthText(Date::fromYmd(2006, 1, 1)), u"enero 2006"_s);
    EXPECT_EQ(spanish.monthText(Date()), u""_s);
}

TEST(RegionalSettings, ReadNumbers) {
    EXPECT_EQ(spanish.parseNumber(u"1.234,5"), 1234.5);
    EXPECT_EQ(english.parseNumber(u"1,234.5"), 1234.5);
    EXPECT_EQ(spanish.parseNumber(u" -7 "), -7);
    EXPECT_EQ(spanish.parseNumber(u"+7,"), 7);
    EXPECT_EQ(spanish.parseNumber(u",5"), 0.5);
    EXPECT_EQ(spanish.parseNumber(u"1e3"), 1000);
    EXPECT_EQ(spanish.parseNumber(u"15E-1"), 1.5);
}

TEST(RegionalSettings, ReadBackEveryNumberTheyWrite) {
    for (const double number : {0.1, -1234567.875, 1e-7, 1e22, 100.0})
        for (const RegionalSettings& regional : {spanish, english}) {
            EXPECT_EQ(regional.parseNumber(regional.numberText(number)), number);
            EXPECT_EQ(regional.parseNumber(regional.groupedText(100.25, 2)), 100.25);
        }
}

TEST(RegionalSettings, RefuseATextThatIsNoNumber) {
    for (const QString& text : {u""_s,
                                u"  "_s,
                                u"abc"_s,
                                u"12a"_s,
                                u"1,2,3"_s,
                                u"1 2"_s,
                                u"-"_s,
                                u","_s,
                                u".5"_s,
                                u"1,2.3"_s,
                                u"1e"_s,
                                u"1e2,5"_s,
                                u"5-"_s,
                                u"--5"_s,
                                u"inf"_s,
                                u"0x10"_s,
                                u"$5"_s,
                                u"١٢"_s,
                                QString(401, u'9'),
                                QString(u'5') + QChar(0)})
        EXPECT_EQ(numberError(text), 13) << text.left(20).toStdString();
}

TEST(RegionalSettings, ReadGroupsOfThousands) {
    EXPECT_EQ(spanish.parseNumber(u"1.234.567"), 1234567);
    EXPECT_EQ(spanish.parseNumber(u"-12.345,678"), -12345.678);
    EXPECT_EQ(spanish.parseNumber(u"123.456e2"), 12345600);
    EXPECT_EQ(spanish.parseNumber(u"1234,5"), 1234.5);
}

TEST(RegionalSettings, APointOfTheKeypadIsNeverTakenForAGroup) {
    for (const QString& text :
         {u"1.5"_s, u"12..5"_s, u"1.2.3,4"_s, u"1.23"_s, u"1.2345"_s, u"1234.567"_s, u"0.125"_s, u"1."_s,
          u"1.234."_s, u"1.234.56"_s, u"1.,5"_s, u"1.23,4"_s, u"1.234,567.8"_s, u"1.2e3"_s, u"-.500"_s,
          u"1.-23"_s, u"1,5.000"_s, u"1e1.000"_s})
        EXPECT_EQ(numberError(text), 13) << text.toStdString();
}

TEST(RegionalSettings, ANumberTooLargeIsAnOverflow) {
    EXPECT_EQ(numberError(u"1e400"_s), 6);
    EXPECT_EQ(numberError(QString(400, u'9')), 6);
}

TEST(RegionalSettings, ReadDates) {
    for (const QString& text :
         {u"05/03/2006"_s, u"5/3/2006"_s, u"5/3/06"_s, u"5-3-06"_s, u"05.03.2006"_s, u" 5/3-06 "_s})
        EXPECT_EQ(spanish.parseDate(text), Date::fromYmd(2006, 3, 5)) << text.toStdString();
    EXPECT_EQ(spanish.parseDate(u"29/02/2004"), Date::fromYmd(2004, 2, 29));
    EXPECT_EQ(spanish.parseDate(u"01/01/0100"), Date::fromYmd(100, 1, 1));
}

TEST(RegionalSettings, PutATwoDigitYearNearToday) {
    EXPECT_EQ(spanish.parseDate(u"1/1/00"), Date::fromYmd(2000, 1, 1));
    EXPECT_EQ(spanish.parseDate(u"1/1/29"), Date::fromYmd(2029, 1, 1));
    EXPECT_EQ(spanish.parseDate(u"1/1/30"), Date::fromYmd(1930, 1, 1));
    EXPECT_EQ(spanish.parseDate(u"1/1/99"), Date::fromYmd(1999, 1, 1));
}

TEST(RegionalSettings, RefuseATextThatIsNoDate) {
    for (const QString& text : {u""_s, u"hoy"_s, u"31/02/2006"_s, u"29/02/2005"_s, u"32/01/2006"_s,
                                u"01/13/2006"_s, u"00/01/2006"_s, u"1/1"_s, u"1/1/2006/1"_s, u"1/1/10000"_s,
                                u"1//2006"_s, u"/1/2006"_s, u"001/1/2006"_s, u"1/1/0099"_s, u"01/01/206"_s,
                                u"01/01/100"_s, u"1/1/6"_s, u"1/1/2006x"_s, QString(10000, u'1')})
        EXPECT_EQ(dateError(text), 13) << text.left(20).toStdString();
}
