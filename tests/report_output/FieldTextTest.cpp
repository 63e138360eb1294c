#include "platform/reportengine/output/FieldText.h"
#include "tests/report_output/SampleReport.h"
#include "tests/support/QtPrinters.h"
#include <QDate>
#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

namespace quorvane::report {

namespace {

/// A report of one section with one object, and one band of it.
class FieldTextTest : public testing::Test {
protected:
    QString shown(const Value& value) {
        m_definition.sections = {Section{}};
        m_definition.sections[0].objects = {m_object};
        Page page;
        page.number = 3;
        page.bands = {Band{}};
        page.bands[0].values = {value};
        page.bands[0].condition = m_condition;
        m_context.definition = &m_definition;
        return fieldText(m_context, page, page.bands[0], 0);
    }
    QString shownFrom(FieldSource::Kind kind, int index = 0) {
        m_object.source = {kind, index, FieldSource::WholeReport};
        return shown(Value());
    }
    void setUpField(int decimals, const QString& thousands, const QString& decimal) {
        m_object.kind = ObjectKind::Field;
        m_object.format = {decimals, thousands, decimal};
    }
    void SetUp() override { setUpField(2, u"."_s, u","_s); }

    Definition m_definition;
    PageContext m_context;
    ReportObject m_object;
    std::vector<bool> m_condition;
};

TEST_F(FieldTextTest, NumbersHaveTheDecimalsAndSymbolsOfTheField) {
    EXPECT_EQ(shown(1234567.891), u"1.234.567,89"_s);
    EXPECT_EQ(shown(-1234.5), u"-1.234,50"_s);
    EXPECT_EQ(shown(0.0), u"0,00"_s);
    setUpField(0, u","_s, u"."_s);
    EXPECT_EQ(shown(-1234567.0), u"-1,234,567"_s);
    setUpField(3, u" "_s, u"."_s);
    EXPECT_EQ(shown(1234.5), u"1 234.500"_s);
}

TEST_F(FieldTextTest, HalvesGoToTheEvenNeighbour) {
    EXPECT_EQ(shown(0.125), u"0,12"_s);
    EXPECT_EQ(shown(0.375), u"0,38"_s);
    EXPECT_EQ(shown(2.675), u"2,68"_s); // by its decimal digits, not by the double's last bit
    setUpField(0, u"."_s, u","_s);
    EXPECT_EQ(shown(0.5), u"0"_s);
    EXPECT_EQ(shown(1.5), u"2"_s);
    EXPECT_EQ(shown(-2.5), u"-2"_s);
}

TEST_F(FieldTextTest, WhatRoundsToZeroHasNoSign) {
    EXPECT_EQ(shown(-0.001), u"0,00"_s);
    EXPECT_EQ(shown(-0.0), u"0,00"_s);
}

TEST_F(FieldTextTest, BelowZeroDecimalsTheGeneralFormIsShown) {
    setUpField(-1, u"."_s, u","_s);
    EXPECT_EQ(shown(1234567.25), u"1234567,25"_s);
    EXPECT_EQ(shown(-3.0), u"-3"_s);
    setUpField(-1, QString(), u"'"_s);
    EXPECT_EQ(shown(0.1), u"0'1"_s);
}

TEST_F(FieldTextTest, SymbolsMayBeMissingOrLong) {
    setUpField(2, QString(), u","_s);
    EXPECT_EQ(shown(1234567.5), u"1234567,50"_s);
    setUpField(2, u"&nbsp;"_s, u"::"_s);
    EXPECT_EQ(shown(1234567.5), u"1&nbsp;234&nbsp;567::50"_s);
    setUpField(2, u"."_s, QString());
    EXPECT_EQ(shown(12.5), u"12,50"_s);
}

TEST_F(FieldTextTest, EveryKindOfNumberIsANumber) {
    EXPECT_EQ(shown(qint16(1200)), u"1.200,00"_s);
    EXPECT_EQ(shown(qint32(-1200)), u"-1.200,00"_s);
    EXPECT_EQ(shown(quint8(7)), u"7,00"_s);
    EXPECT_EQ(shown(0.1F), u"0,10"_s);
    EXPECT_EQ(shown(Value::Currency{12345678}), u"1.234,57"_s);
    EXPECT_EQ(shown(Decimal(123450, 2)), u"1.234,50"_s);
}

TEST_F(FieldTextTest, NumbersBeyondAllNumbersAreTold) {
    EXPECT_EQ(shown(std::numeric_limits<double>::infinity()), u"∞"_s);
    EXPECT_EQ(shown(-std::numeric_limits<double>::infinity()), u"-∞"_s);
    EXPECT_EQ(shown(std::numeric_limits<double>::quiet_NaN()), QString());
}

TEST_F(FieldTextTest, NothingIsShownOfNullAndEmpty) {
    EXPECT_EQ(shown(Value::Null{}), QString());
    EXPECT_EQ(shown(Value()), QString());
    EXPECT_EQ(shown(Date()), QString());
}

TEST_F(FieldTextTest, DatesAreDaysMonthsOrYears) {
    const Date day(Date::fromYmd(2006, 3, 5).serial() + 0.75);
    EXPECT_EQ(shown(day), u"05/03/2006"_s);
    m_context.regional.dateSeparator = u'-';
    EXPECT_EQ(shown(day), u"05-03-2006"_s);
    m_object.dateForm = DateForm::Month;
    EXPECT_EQ(shown(day), u"marzo 2006"_s);
    m_object.dateForm = DateForm::Year;
    EXPECT_EQ(shown(day), u"2006"_s);
    EXPECT_EQ(shown(Date()), QString());
}

TEST_F(FieldTextTest, TextsAndTruthsAreShownAsPeopleSayThem) {
    EXPECT_EQ(shown(u" 007 "_s), u" 007 "_s);
    EXPECT_EQ(shown(true), u"Sí"_s);
    EXPECT_EQ(shown(false), u"No"_s);
}

TEST_F(FieldTextTest, FormulasLoseOnePairOfQuotes) {
    m_definition.formulas = {{u"{@CfgEmpresa}"_s, u"\"Comercial \"El Sol\"\""_s},
                             {u"{@CfgGiro}"_s, u"\"\""_s},
                             {u"{@CfgRepLegal}"_s, QString()}};
    EXPECT_EQ(shownFrom(FieldSource::Kind::Formula, 0), u"Comercial \"El Sol\""_s);
    EXPECT_EQ(shownFrom(FieldSource::Kind::Formula, 1), QString());
    EXPECT_EQ(shownFrom(FieldSource::Kind::Formula, 2), QString());
}

TEST_F(FieldTextTest, FormulasInATextAreFilledInOnce) {
    m_definition.formulas = {{u"{@CfgUsuario}"_s, u"\"{@CfgGiro}\""_s}, {u"{@CfgGiro}"_s, u"\"Muebles\""_s}};
    m_object.kind = ObjectKind::Text;
    m_object.text = u"De {@cfgusuario} y {@CfgGiro}: {@Nadie}, {@roto"_s;
    EXPECT_EQ(shown(Value()), u"De {@CfgGiro} y Muebles: {@Nadie}, {@roto"_s);
}

TEST_F(FieldTextTest, PagesAreCountedOnceTheirNumberIsKnown) {
    EXPECT_EQ(shownFrom(FieldSource::Kind::PageNumber), u"3"_s);
    EXPECT_EQ(shownFrom(FieldSource::Kind::PageNofM), u"Página 3"_s);
    EXPECT_EQ(shownFrom(FieldSource::Kind::PageCount), QString());
    m_context.pageCount = 20;
    EXPECT_EQ(shownFrom(FieldSource::Kind::PageNofM), u"Página 3 de 20"_s);
    EXPECT_EQ(shownFrom(FieldSource::Kind::PageCount), u"20"_s);
}

TEST_F(FieldTextTest, TheDayOfPrintingIsTodayUnlessOneIsGiven) {
    m_context.printDate = Date::fromYmd(1999, 12, 31);
    EXPECT_EQ(shownFrom(FieldSource::Kind::PrintDate), u"31/12/1999"_s);
    m_context.printDate = Date();
    EXPECT_EQ(shownFrom(FieldSource::Kind::PrintDate),
              m_context.regional.dateText(Date::fromQDate(QDate::currentDate())));
}

TEST_F(FieldTextTest, AHiddenObjectHasNoText) {
    m_object.kind = ObjectKind::Text;
    m_object.text = u"N/C"_s;
    m_object.condition = {Condition::Test::Negative, 0, 0, true};
    EXPECT_EQ(shown(Value()), QString());
    m_condition = {true};
    EXPECT_EQ(shown(Value()), u"N/C"_s);
    m_condition = {false};
    EXPECT_EQ(shown(Value()), QString());
    // A condition of looks hides nothing.
    m_object.condition.hide = false;
    EXPECT_EQ(shown(Value()), u"N/C"_s);
}

TEST_F(FieldTextTest, PicturesAndLinesHaveNoText) {
    for (const ObjectKind kind : {ObjectKind::Line, ObjectKind::Box, ObjectKind::Image, ObjectKind::Chart}) {
        m_object.kind = kind;
        EXPECT_EQ(shown(u"algo"_s), QString());
    }
}

} // namespace

} // namespace quorvane::report
