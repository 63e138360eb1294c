#pragma once

#include "tests/host/Channel.h"
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <optional>

namespace dalvora::test {

/// The program's own executable, started over a demonstration in a folder of its own.
class StartedPrograms : public testing::Test {
protected:
    StartedPrograms();

    /// Programs in a test are ended, not asked to end.
    struct End {
        void operator()(QProcess* program) const;
    };
    using Started = std::unique_ptr<QProcess, End>;
    /// Starts the program; without a folder over the fixture's.
    Started start(const QString& commandLine, const QString& profileFolder = {}) const;
    /// Waits until the program of the company answers.
    testing::AssertionResult answers(const QString& company) const;
    /// Waits until so many programs have begun to work with the database.
    testing::AssertionResult haveBegun(int programs) const;
    /// Waits until so many schemes have been read from the database.
    testing::AssertionResult haveRead(int schemes) const;
    /// How the program ended; nothing while it runs after a generous time.
    static std::optional<int> exitCode(QProcess& program);

    ChannelFolder channelFolder;
    QTemporaryDir home;

private:
    /// Waits until the audit trail has so many entries of a code.
    testing::AssertionResult audited(int code, int times) const;
};

} // namespace dalvora::test
