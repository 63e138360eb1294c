#include "platform/quorvane32/grid/XGridCellTable.h"
#include <gtest/gtest.h>

using quorvane::cellTable;
using quorvane::cellTableText;
using Table = QList<QStringList>;

namespace {

QStringList line(std::initializer_list<const char*> cells) {
    QStringList texts;
    for (const char* cell : cells)
        texts += QString::fromUtf8(cell);
    return texts;
}

} // namespace

TEST(XGridCellTable, TabsAndLineEndsSeparateCells) {
    EXPECT_EQ(cellTable(QStringLiteral("a\tb\r\nc\td\r\n")), Table({line({"a", "b"}), line({"c", "d"})}));
    EXPECT_EQ(cellTable(QStringLiteral("a\nb\rc")), Table({line({"a"}), line({"b"}), line({"c"})}));
}

TEST(XGridCellTable, LinesMayBeRagged) {
    EXPECT_EQ(cellTable(QStringLiteral("a\n\nb\tc\td\n\t")),
              Table({line({"a"}), line({""}), line({"b", "c", "d"}), line({"", ""})}));
}

TEST(XGridCellTable, QuotedCellMayHoldTabsLineEndsAndQuotes) {
    EXPECT_EQ(cellTable(QStringLiteral("\"a\nb\"\t\"c\td\"\t\"say \"\"hi\"\"\"\n")),
              Table({line({"a\nb", "c\td", "say \"hi\""})}));
    EXPECT_EQ(cellTable(QStringLiteral("\"\"\tx")), Table({line({"", "x"})}));
}

TEST(XGridCellTable, QuoteThatOpensNoQuotedCellIsText) {
    EXPECT_EQ(cellTable(QStringLiteral("\"5\" pipe\t6\" pipe")), Table({line({"\"5\" pipe", "6\" pipe"})}));
    EXPECT_EQ(cellTable(QStringLiteral("\"open\tnext")), Table({line({"\"open", "next"})}));
    EXPECT_EQ(cellTable(QStringLiteral("\"")), Table({line({"\""})}));
}

TEST(XGridCellTable, EmptyTextIsOneEmptyCell) {
    EXPECT_EQ(cellTable(QString()), Table({line({""})}));
}

TEST(XGridCellTable, WhatIsWrittenIsReadBackTheSame) {
    const Table table{line({"plain", "", "tab\there"}), line({"two\nlines", "\"quoted\"", "in \"side\""}),
                      line({"", "\r", "ñ€😀"})};
    EXPECT_EQ(cellTable(cellTableText(table)), table);
}
