#include "app/Regional.h"
#include <gtest/gtest.h>

using dalvora::regionalSettings;

TEST(Regional, ForeignLocaleGivesTheSpanishSettings) {
    const auto settings = regionalSettings(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(settings.decimalSeparator, u',');
    EXPECT_EQ(settings.groupSeparator, u'.');
    EXPECT_EQ(settings.dateSeparator, u'/');
}

TEST(Regional, SpanishLocaleKeepsItsOwn) {
    const auto mexico = regionalSettings(QLocale(QLocale::Spanish, QLocale::Mexico));
    EXPECT_EQ(mexico.decimalSeparator, u'.');
    EXPECT_EQ(mexico.groupSeparator, u',');
    const auto chile = regionalSettings(QLocale(QLocale::Spanish, QLocale::Chile));
    EXPECT_EQ(chile.decimalSeparator, u',');
    EXPECT_EQ(chile.dateSeparator, u'-');
}

TEST(Regional, SeparatorsOfNumbersAlwaysDiffer) {
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::Spanish, QLocale::AnyScript, QLocale::AnyCountry)) {
        const auto settings = regionalSettings(locale);
        EXPECT_NE(settings.decimalSeparator, settings.groupSeparator) << qPrintable(locale.name());
    }
}
