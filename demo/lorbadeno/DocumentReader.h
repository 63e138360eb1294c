#pragma once

#include "demo/lorbadeno/DocumentRequest.h"
#include "demo/lorbadeno/StoredDocument.h"
#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/quorvane32/core/Connection.h"

namespace dalvora::lorbadeno {

/// Reads documents from the database of a profile, which it opens for reading when the first one is asked
/// for.
class DocumentReader {
public:
    /// `profileFolder` holds quorvane.ini.
    explicit DocumentReader(QString profileFolder) : m_folder(std::move(profileFolder)) {}

    /// Errors: those of the profile and the database; 5 for a company that the profile does not name; 3021
    /// for a document that does not exist.
    StoredDocument read(const DocumentRequest& request);

private:
    void requireCompany(const QString& code);
    void readHeader(StoredDocument& document, const DocumentRequest& request);
    void readNames(StoredDocument& document, const QString& company, const QString& accountKind);
    void readLines(StoredDocument& document, const DocumentRequest& request);
    QString generalText(const QString& company, const QString& kind, const QString& code, QStringView field);
    QString text(const quorvane::Recordset& row, QStringView name) const;
    double number(const quorvane::Recordset& row, QStringView name) const;

    QString m_folder;
    quorvane::RegionalSettings m_regional;
    quorvane::Connection m_connection;
};

} // namespace dalvora::lorbadeno
