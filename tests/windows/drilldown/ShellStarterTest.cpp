#include "reports/drilldown/ShellStarter.h"
#include "tests/support/QtPrinters.h"
#include "tests/windows/drilldown/StartedPrograms.h"
#include <QFile>
#include <gtest/gtest.h>

using namespace dalvora;
using namespace dalvora::test;
using namespace Qt::StringLiterals;

namespace {

class Shell : public testing::Test {
protected:
    int open(const QString& file, const QString& workingFolder = u"C:\\"_s) {
        return ShellStarter(programs.folder()).open(file, workingFolder, 1);
    }

    StartedPrograms programs{"mute"};
};

TEST_F(Shell, StartsAProgramInAFolderWithBlanksAndAccents) {
    programs.install(u"Lorbadeno.Exe"_s);
    EXPECT_GT(open(programs.folder() + u"\\Lorbadeno.Exe"_s), 32);
    ASSERT_TRUE(programs.isReady());
    EXPECT_EQ(programs.told(u"cwd"_s), QStringList{u"C:\\"_s});
}

TEST_F(Shell, TakesTheWorkingFolderThatItIsGiven) {
    programs.install(u"Emisión de documentos.exe"_s);
    EXPECT_GT(open(programs.folder() + u"\\Emisión de documentos.exe"_s, programs.folder()), 32);
    ASSERT_TRUE(programs.isReady());
    EXPECT_EQ(programs.told(u"cwd"_s), QStringList{programs.folder()});
}

TEST_F(Shell, TellsWhyNothingWasStarted) {
    EXPECT_EQ(open(u"Lorbadeno que no existe.Exe"_s), 2);
    EXPECT_EQ(open(programs.folder() + u"\\Lorbadeno.Exe"_s), 2);
    EXPECT_LE(open(programs.folder() + u"\\nada\\Lorbadeno.Exe"_s), 32);
    QFile file(programs.folder() + u"\\Lorbadeno.Exe"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("no es un programa") > 0);
    file.close();
    EXPECT_LE(open(programs.folder() + u"\\Lorbadeno.Exe"_s), 32);
}

} // namespace
