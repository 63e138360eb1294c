// The first start when its process is killed, finds no room or is not alone: each in a process of its own.
#include "demo/Demonstration.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/session/Profile.h"
#include "tests/demo/Completeness.h"
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace dalvora::demo;

/// Runs work in a process of its own and kills it after some microseconds.
void killedAfter(useconds_t microseconds, const std::function<void()>& work) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        work();
        _exit(0);
    }
    usleep(microseconds);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

TEST(FirstStart, KilledAtAnyMomentLeavesNothingHalfMade) {
    QElapsedTimer timer;
    timer.start();
    {
        const QTemporaryDir whole;
        createDemonstration(whole.path());
    }
    const auto duration = static_cast<useconds_t>(timer.nsecsElapsed() / 1000);
    constexpr int attempts = 9;
    for (int i = 0; i < attempts; ++i) {
        const QTemporaryDir folder;
        const QString database = folder.filePath(u"quorvane.db"_qs);
        // Most moments fall into the last quarter, where files are renamed and the profile is written.
        const double moment = i < 3 ? i / 4.0 : 0.75 + 0.3 * (i - 3) / (attempts - 4);
        killedAfter(static_cast<useconds_t>(duration * moment), [&] { createDemonstration(folder.path()); });
        if (QFile::exists(database)) {
            EXPECT_TRUE(isComplete(database)) << i;
        }
        EXPECT_TRUE(!quorvane::Profile::exists(folder.path()) || QFile::exists(database)) << i;
        createDemonstration(folder.path());
        EXPECT_TRUE(isComplete(database)) << i;
        EXPECT_TRUE(quorvane::Profile::load(folder.path()).automatic);
        const QStringList left =
            QDir(folder.path()).entryList({u"*nueva*"_qs, u"*.lock"_qs}, QDir::Files | QDir::Hidden);
        EXPECT_TRUE(left.isEmpty()) << qPrintable(left.join(u' '));
    }
}

TEST(FirstStart, WithoutSpaceOnTheDiskLeavesNothingAndSaysSo) {
    const QTemporaryDir folder;
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{65536, 65536};
        setrlimit(RLIMIT_FSIZE, &limit);
        try {
            createDemonstration(folder.path());
        } catch (const quorvane::RunTimeError& error) {
            _exit(error.description().isEmpty() ? 2 : 1);
        }
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_TRUE(QDir(folder.path()).isEmpty(QDir::Files | QDir::Hidden));
}

TEST(FirstStart, TwoProgramsAtOnceMakeOneDatabase) {
    const QTemporaryDir folder;
    pid_t children[4] = {};
    for (pid_t& child : children) {
        child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            try {
                createDemonstration(folder.path());
            } catch (const std::exception&) {
                _exit(1);
            }
            _exit(0);
        }
    }
    for (const pid_t child : children) {
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_EQ(WEXITSTATUS(status), 0);
    }
    EXPECT_TRUE(isComplete(folder.filePath(u"quorvane.db"_qs)));
}

TEST(FirstStart, InAReadOnlyFolderIsAPathError) {
    const QTemporaryDir folder;
    QFile::setPermissions(folder.path(),
                          QFile::ReadOther | QFile::ExeOther | QFile::ReadOwner | QFile::ExeOwner);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        constexpr unsigned nobody = 65534;
        if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0))
            _exit(2);
        try {
            createDemonstration(folder.path());
        } catch (const quorvane::RunTimeError& error) {
            _exit(error.number());
        }
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), quorvane::ErrorPathAccess);
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_TRUE(QDir(folder.path()).isEmpty(QDir::Files | QDir::Hidden));
}

} // namespace
