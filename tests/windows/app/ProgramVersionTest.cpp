#include "app/ProgramVersion.h"
#include "app/CommandLine.h"
#include "app/windows/VersionResource.h"
#include <QCoreApplication>
#include <QDir>
#include <gtest/gtest.h>

using namespace dalvora;

TEST(ProgramVersionTest, IsThatOfTheRunningProgramsResource) {
    const ProgramVersion version = programVersion();
    EXPECT_EQ(version, (ProgramVersion{7, 13, 1203}));
    EXPECT_EQ(FormateaVersion(version.major, version.minor, version.revision), QStringLiteral("7.13.12"));
}

TEST(ProgramVersionTest, AFileWithoutAResourceHasNone) {
    const QString folder = QCoreApplication::applicationDirPath();
    EXPECT_EQ(versionResource(QDir::toNativeSeparators(folder)), std::nullopt);
    EXPECT_EQ(versionResource(QStringLiteral("C:\\no\\hay.exe")), std::nullopt);
}
