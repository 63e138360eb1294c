#pragma once

#include "data/SessionContext.h"
#include <QTemporaryDir>

namespace bench {

/// The demonstration company on a database of its own, signed in to, with schemes of the sizes that the
/// benchmarks use.
class Company {
public:
    Company();
    /// The same on a server's database that has its tables and rows already.
    explicit Company(const QString& connectString);
    ~Company();

    dalvora::SessionContext& context() { return m_context; }
    dalvora::DBTable& table() { return *m_context.Table; }
    QString databaseFile() const;
    /// Folder that the program takes as QUORVANE_HOME.
    QString folder() const { return m_folder.path(); }

    /// Adds a scheme with product lines only, valid in the year 2000.
    void addScheme(const QString& code, int lines);
    /// Adds schemes of ten product lines each.
    void addSchemes(int count);
    /// Adds issued documents.
    void addDocuments(int count);
    /// The statement that feeds the report of this name.
    QString reportStatement(const QString& name);
    /// Reads a scheme as the form does.
    void read(const QString& code);
    /// A new scheme of the year 2001 on the record, its lines entered but not saved.
    void enterScheme(const QString& code, int lines);
    void save();

private:
    void signIn();

    QTemporaryDir m_folder;
    dalvora::SessionContext m_context;
};

} // namespace bench
