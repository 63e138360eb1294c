#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace quorvane::test {

/// The other program of a DDE conversation, in a process of its own that ends with this object. DdeDouble.cpp
/// tells its modes.
class DoubleProcess {
public:
    explicit DoubleProcess(const QString& mode, const QString& say = {});
    ~DoubleProcess();

    /// Waits until it has told that it is ready.
    bool isReady() const;
    /// Waits for its end; its exit code, -1 when it goes on.
    int finished();
    void kill();
    /// The commands that it was sent, as the bytes that arrived.
    QList<QByteArray> commands() const;

    /// The program's file.
    static QString file();

private:
    QStringList log() const;

    QTemporaryDir m_folder;
    QProcess m_process;
};

} // namespace quorvane::test
