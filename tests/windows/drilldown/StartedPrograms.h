#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace dalvora::test {

/// A folder whose name has blanks and accents, for a program that the shell starts (tests/windows/dde/
/// DdeDouble.cpp tells what that does). What was started ends with this object.
class StartedPrograms {
public:
    explicit StartedPrograms(const QByteArray& mode);
    ~StartedPrograms();
    StartedPrograms(const StartedPrograms&) = delete;
    StartedPrograms& operator=(const StartedPrograms&) = delete;

    /// The folder, with "\" as the system has it.
    QString folder() const;
    void install(const QString& name) const;

    /// What the started programs have told, by the first word of a line: "process", "cwd", "command".
    QStringList told(const QString& what) const;
    /// Waits until one has told that it is ready.
    bool isReady() const;

private:
    QTemporaryDir m_folder;
};

} // namespace dalvora::test
