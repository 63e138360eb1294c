#pragma once

#include <QString>
#include <QStringList>

namespace quorvane {

/// What quorvane.ini says: which database, which companies, and how to sign in. docs/users.md describes the
/// file.
struct Profile {
    /// Connect string as written; a relative file of an embedded database stands in the profile's folder.
    QString connectString;
    /// Companies that may be signed in to, at least one.
    QStringList companies;
    /// The one taken when the program is started without a company.
    QString defaultCompany;
    /// The user who signs in, or whose name the login window offers; "" for none.
    QString user;
    /// True when `user` signs in without a password.
    bool automatic = false;

    /// QUORVANE_HOME when it is set, else the usual one.
    static QString defaultFolder();
    /// The folder "quorvane" of the user's configuration folder.
    static QString usualFolder();
    static QString fileName(const QString& folder);
    static bool exists(const QString& folder);

    /// Reads the profile of a folder. Error 53 when there is none, 70 when it cannot be read, 321 when it is
    /// damaged; the description names the file and the line.
    static Profile load(const QString& folder);
    /// Writes quorvane.ini whole or not at all; error 61 on a full disk, 75 when it cannot be written.
    void save(const QString& folder) const;

    /// The connect string with the database's file made absolute.
    QString resolvedConnectString(const QString& folder) const;
};

} // namespace quorvane
