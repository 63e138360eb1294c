#include "platform/quorvane32/lookup/QueryArgument.h"
#include "tests/quorvane32_lookup/RowsOf.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvane;

TEST(QueryArgument, HoldsQueryFileAndParameters) {
    const auto argument = QueryArgument::parse("CodigosComision@C:\\dir\\DALVORA.qry#01");
    EXPECT_EQ(argument.query, "CodigosComision");
    EXPECT_EQ(argument.file, "C:\\dir\\DALVORA.qry");
    EXPECT_EQ(argument.parameters, QStringList{"01"});
}

TEST(QueryArgument, KeepsBlankAndEmptyParameters) {
    const auto argument = QueryArgument::parse("LISTAPRECIO_FAMILIA@/x/DALVORA.QRY#FAMILIA#01#  ");
    EXPECT_EQ(argument.parameters, (QStringList{"FAMILIA", "01", "  "}));
    EXPECT_EQ(QueryArgument::parse("A@b.qry#").parameters, QStringList{""});
    EXPECT_EQ(QueryArgument::parse("A@b.qry#1#").parameters, (QStringList{"1", ""}));
    EXPECT_TRUE(QueryArgument::parse("A@b.qry").parameters.isEmpty());
}

TEST(QueryArgument, AFolderMayHoldTheSeparators) {
    const auto argument = QueryArgument::parse("A@/home/c#/p@q/x.QRY#1#2");
    EXPECT_EQ(argument.query, "A");
    EXPECT_EQ(argument.file, "/home/c#/p@q/x.QRY");
    EXPECT_EQ(argument.parameters, (QStringList{"1", "2"}));
}

TEST(QueryArgument, AFileOfAnotherExtensionEndsAtTheFirstSeparator) {
    EXPECT_EQ(QueryArgument::parse("A@x.txt#1#2").file, "x.txt");
}

TEST(QueryArgument, WithoutAFileIsAnInvalidCall) {
    EXPECT_EQ(rows::errorOf([] { (void)QueryArgument::parse("Codigos"); }), ErrorInvalidCall);
}

/// Whether a path leads to a file; a system that knows no case leaves the name as it was given.
bool isFile(const QString& path, const QString& file) {
    return QFileInfo(path) == QFileInfo(file);
}

TEST(LocateFile, FindsANameInAnyCase) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("DALVORA.qry"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(locateFile(folder.filePath("DALVORA.qry")), folder.filePath("DALVORA.qry"));
    EXPECT_TRUE(isFile(locateFile(folder.filePath("DALVORA.QRY")), file.fileName()));
    EXPECT_TRUE(isFile(locateFile(folder.filePath("dalvora.qry")), file.fileName()));
    EXPECT_EQ(locateFile(folder.filePath("otro.qry")), folder.filePath("otro.qry"));
}

TEST(LocateFile, PrefersTheNameAsGiven) {
    const QTemporaryDir folder;
    for (const char* name : {"a.qry", "A.QRY"}) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    EXPECT_EQ(locateFile(folder.filePath("a.qry")), folder.filePath("a.qry"));
    EXPECT_EQ(locateFile(folder.filePath("A.QRY")), folder.filePath("A.QRY"));
}

TEST(LocateFile, TakesABackslashForAFolder) {
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir("sub"));
    QFile file(folder.filePath("sub/x.qry"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(isFile(locateFile(folder.path() + "\\sub\\X.QRY"), file.fileName()));
}
