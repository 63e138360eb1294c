#include "platform/dde/windows/DdeCommand.h"
#include "tests/support/QtPrinters.h"
#include <gtest/gtest.h>

using namespace quorvane;
using namespace Qt::StringLiterals;

namespace {

QByteArray wide(const QString& text) {
    return {reinterpret_cast<const char*>(text.utf16()), text.size() * qsizetype(sizeof(char16_t))};
}

const QString command = u"EMPRESA=001;CTACTE=ÑANDÚ «€»;TIPOCTACTE=$TIPOCTACTE$"_s;

TEST(DdeCommand, IsReadFromUnicode) {
    EXPECT_EQ(ddeCommandText(wide(command + QChar(u'\0'))), command);
    EXPECT_EQ(ddeCommandText(wide(command)), command);
    EXPECT_EQ(ddeCommandText(wide(command + QChar(u'\0') + u"resto"_s)), command);
}

TEST(DdeCommand, IsReadFromTheCodePageOfOlderPrograms) {
    const QString text = u"EMPRESA=001;CTACTE=ÑANDÚ"_s;
    EXPECT_EQ(ddeCommandText(text.toLocal8Bit()), text);
    for (int padding = 1; padding < 9; ++padding)
        EXPECT_EQ(ddeCommandText(text.toLocal8Bit() + QByteArray(padding, '\0')), text) << padding;
}

TEST(DdeCommand, AFewLettersAreReadEitherWay) {
    for (const QString& text : {u""_s, u"a"_s, u"ñ"_s, u"ab"_s, u"abc"_s}) {
        EXPECT_EQ(ddeCommandText(wide(text + QChar(u'\0'))), text);
        for (int padding = 1; padding < 5; ++padding)
            EXPECT_EQ(ddeCommandText(text.toLocal8Bit() + QByteArray(padding, '\0')), text) << padding;
    }
    EXPECT_EQ(ddeCommandText({}), u""_s);
}

} // namespace
