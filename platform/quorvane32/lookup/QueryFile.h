#pragma once

#include "platform/quorvane32/lookup/QueryDefinition.h"
#include <QByteArray>
#include <QString>
#include <vector>

namespace quorvane {

/// The named queries of a query file (docs/query-file.md tells the format). It exists so that a company can
/// change what a lookup shows without a new program: a wrong file must therefore say what is wrong and where.
class QueryFile {
public:
    /// Reads a file. Error 53 when there is none, 70 when it cannot be read, 321 when it is damaged: the
    /// description names the file, the line and the reason.
    static QueryFile load(const QString& path);
    /// The same from the bytes of a file; `fileName` is only shown in errors.
    static QueryFile parse(const QByteArray& bytes, const QString& fileName);

    /// The query of that name, compared without regard to case. Error 3265 when the file has none.
    const QueryDefinition& query(const QString& name) const;
    const std::vector<QueryDefinition>& queries() const { return m_queries; }

private:
    QString m_fileName;
    std::vector<QueryDefinition> m_queries;
};

} // namespace quorvane
