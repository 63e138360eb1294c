#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace dalvora::test {

/// A folder of programs and a runtime folder of the test's own. Whatever was started from it is ended with
/// it.
class DocumentPrograms {
public:
    DocumentPrograms();
    ~DocumentPrograms();
    DocumentPrograms(const DocumentPrograms&) = delete;
    DocumentPrograms& operator=(const DocumentPrograms&) = delete;

    QString folder() const { return m_programs.path(); }
    /// Puts the real document program into the folder, with the profile it shall use.
    void installReal(const QString& profileFolder);
    /// Puts one there that misbehaves (DocumentDouble.cpp tells how).
    void installDouble(const QByteArray& mode);

    /// The process that holds the topic, 0 for none.
    qint64 running() const;
    /// Ends it at once and waits until it has gone.
    void kill();

private:
    void install(const QString& program);

    QTemporaryDir m_programs;
    QTemporaryDir m_runtime;
    QByteArray m_runtimeBefore;
    QByteArray m_homeBefore;
};

} // namespace dalvora::test
