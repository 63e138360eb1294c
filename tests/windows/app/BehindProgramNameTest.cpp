#include "app/windows/BehindProgramName.h"
#include "app/CommandLine.h"
#include <gtest/gtest.h>

using namespace dalvora;
using namespace Qt::StringLiterals;

TEST(BehindProgramName, TheProgramMayStandInQuotationMarks) {
    EXPECT_EQ(behindProgramName(u"dalvora.exe EMPRESA=001"_s), u"EMPRESA=001"_s);
    EXPECT_EQ(behindProgramName(u"\"C:\\Archivos de programa\\dalvora.exe\" EMPRESA=001"_s),
              u"EMPRESA=001"_s);
    EXPECT_EQ(behindProgramName(u"C:\\\"Año nuevo\"\\dalvora.exe\t EMPRESA=001"_s), u"EMPRESA=001"_s);
}

TEST(BehindProgramName, NothingBehindItIsNothing) {
    EXPECT_EQ(behindProgramName(u""_s), u""_s);
    EXPECT_EQ(behindProgramName(u"dalvora.exe"_s), u""_s);
    EXPECT_EQ(behindProgramName(u"\"C:\\Archivos de programa\\dalvora.exe\"  "_s), u""_s);
    EXPECT_EQ(behindProgramName(u"\"C:\\sin fin EMPRESA=001"_s), u""_s);
}

TEST(BehindProgramName, BlanksStayAsTheyStand) {
    EXPECT_EQ(behindProgramName(u"dalvora.exe USUARIO=a  b ;EMPRESA= 0  7 "_s),
              u"USUARIO=a  b ;EMPRESA= 0  7 "_s);
    EXPECT_EQ(ParseKeyValues(behindProgramName(u"dalvora.exe USUARIO=a  b ;EMPRESA= 0  7 "_s), u"EMPRESA"_s),
              u" 0  7 "_s);
}

TEST(BehindProgramName, WordsThatTheToolkitKnowsArePartOfTheText) {
    EXPECT_EQ(behindProgramName(u"dalvora.exe EMPRESA=001;NOTA=a -style b"_s),
              u"EMPRESA=001;NOTA=a -style b"_s);
}

TEST(BehindProgramName, QuotationMarksBelongToNoValue) {
    for (const QString& line :
         {u"\"EMPRESA=0 1\""_s, u"EMPRESA=\"0 1\""_s, u"USUARIO=a \"b ;EMPRESA=0 1\""_s})
        EXPECT_EQ(ParseKeyValues(behindProgramName(u"dalvora.exe "_s + line), u"EMPRESA"_s), u"0 1"_s);
}
