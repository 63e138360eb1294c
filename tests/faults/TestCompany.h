#pragma once

#include "tests/support/TestDatabase.h"
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>

namespace dalvora::test {

/// The profile and the database of one small company (001) in a folder of their own, with the user ana, who
/// has all rights and signs in by herself. What the tests do to the files here is done as another program or
/// another person would do it: on connections of its own, closed at once.
class TestCompany {
public:
    /// On the embedded database, in a temporary folder or in the given one, which is left behind. `timeout`
    /// (ms) is the time that the programs wait for another one's lock.
    explicit TestCompany(int timeout = 5000, const QString& folder = {});
    /// On a database of the engine, with the profile in a temporary folder.
    explicit TestCompany(TestEngine engine, int timeout = 5000);

    QString path() const { return m_path; }
    /// How a connection that is not the program's reaches the database.
    QString connectString() const;
    /// Writes the profile anew: how the program reaches the database, and whether ana signs in by herself.
    void writeProfile(const QString& connectString, bool automatic = true) const;
    /// The file of the embedded database.
    QString database() const { return m_path + QStringLiteral("/quorvane.db"); }
    QString profileFile() const { return m_path + QStringLiteral("/quorvane.ini"); }

    void setTimeout(int timeout) const;
    /// Runs statements separated by ";", all or none.
    void execute(const QString& statements) const;
    /// Rows of a query, values joined by "|", in the order of the texts.
    QStringList rows(const QString& select) const;
    /// The first row of a query; "" for none.
    QString value(const QString& select) const;
    /// "ok", or what the engine finds wrong with the file.
    QString integrity() const { return value(QStringLiteral("PRAGMA integrity_check")); }
    /// Every table with all its rows, but for the audit trail: for comparing before and after.
    QStringList contents() const;

private:
    QStringList serverRows(const QString& select) const;

    QTemporaryDir m_temporary;
    QString m_path;
    std::unique_ptr<TestDatabase> m_server;
};

/// Writes a file whole; a test that cannot write its own files fails.
void writeFile(const QString& path, const QByteArray& bytes);

} // namespace dalvora::test
