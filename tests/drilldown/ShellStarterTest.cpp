#include "reports/drilldown/ShellStarter.h"
#include "tests/support/QtPrinters.h"
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

using namespace dalvora;
using namespace Qt::StringLiterals;

namespace {

/// A folder with a program that writes down where it was started from.
class Starter : public testing::Test {
protected:
    void install(const QString& name, const QByteArray& text) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) > 0);
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void installMarker(const QString& name) {
        install(name, "#!/bin/sh\npwd > '" + folder.filePath(u"aquí"_s).toUtf8() + ".nuevo'\nmv '" +
                          folder.filePath(u"aquí"_s).toUtf8() + ".nuevo' '" +
                          folder.filePath(u"aquí"_s).toUtf8() + "'\n");
    }
    QByteArray startedIn() const {
        QFile mark(folder.filePath(u"aquí"_s));
        const QDeadlineTimer deadline(5000);
        while (!mark.exists() && !deadline.hasExpired())
            QThread::msleep(5);
        return mark.open(QIODevice::ReadOnly) ? mark.readAll().trimmed() : QByteArray();
    }

    QTemporaryDir folder;
    ShellStarter starter{folder.path()};
};

TEST_F(Starter, FindsAProgramBesideOurOwn) {
    installMarker(u"Lorbadeno.Exe"_s);
    EXPECT_GT(starter.open(u"Lorbadeno.Exe"_s, u"C:\\"_s, 1), 32);
    EXPECT_EQ(startedIn(), "/");
}

TEST_F(Starter, TakesAFolderInTheErpsSpelling) {
    installMarker(u"Lorbadeno.Exe"_s);
    EXPECT_GT(starter.open(folder.path() + u"\\Lorbadeno.Exe"_s, u"C:\\"_s, 1), 32);
    EXPECT_EQ(startedIn(), "/");
}

TEST_F(Starter, TellsWhyNothingWasStarted) {
    EXPECT_EQ(starter.open(u"Lorbadeno.Exe"_s, u"C:\\"_s, 1), 2);
    EXPECT_EQ(starter.open(folder.path() + u"\\Lorbadeno.Exe"_s, u"C:\\"_s, 1), 2);
    EXPECT_EQ(starter.open(folder.path() + u"\\nada\\Lorbadeno.Exe"_s, u"C:\\"_s, 1), 3);
    install(u"Lorbadeno.Exe"_s, "no es un programa");
    EXPECT_EQ(starter.open(u"Lorbadeno.Exe"_s, u"C:\\nada\\de\\nada"_s, 1), 3);
    QFile::setPermissions(folder.filePath(u"Lorbadeno.Exe"_s), QFile::ReadOwner);
    EXPECT_EQ(starter.open(u"Lorbadeno.Exe"_s, u"C:\\"_s, 1), 5);
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"Carpeta.Exe"_s));
    EXPECT_LE(starter.open(u"Carpeta.Exe"_s, u"C:\\"_s, 1), 32);
}

TEST_F(Starter, AFileThatIsNoProgramIsNotStarted) {
    install(u"Lorbadeno.Exe"_s, QByteArray("\x7f"
                                           "ELF no",
                                           7));
    EXPECT_EQ(starter.open(u"Lorbadeno.Exe"_s, u"C:\\"_s, 1), 11);
}

} // namespace
