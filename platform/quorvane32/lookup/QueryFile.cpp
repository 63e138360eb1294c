#include "platform/quorvane32/lookup/QueryFile.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/lookup/QueryFileParser.h"
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace quorvane {

namespace {

/// A query file is written by hand; what is larger is another file.
constexpr qint64 largestFile = 4'194'304;

} // namespace

QueryFile QueryFile::load(const QString& path) {
    if (!QFileInfo(path).isFile()) {
        throw RunTimeError(ErrorFileNotFound,
                           QStringLiteral("No se encontró el archivo de consultas '%1'").arg(path));
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw RunTimeError(ErrorPermissionDenied,
                           QStringLiteral("No se puede leer el archivo de consultas '%1'").arg(path));
    }
    return parse(file.read(largestFile + 1), path);
}

QueryFile QueryFile::parse(const QByteArray& bytes, const QString& fileName) {
    QueryFileParser parser(fileName);
    if (bytes.size() > largestFile)
        parser.fail(1, QStringLiteral("el archivo es demasiado grande para ser un archivo de consultas"));
    QueryFile file;
    file.m_fileName = fileName;
    file.m_queries = parser.parse(bytes);
    return file;
}

const QueryDefinition& QueryFile::query(const QString& name) const {
    const auto found = std::find_if(m_queries.begin(), m_queries.end(), [&](const QueryDefinition& query) {
        return query.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    if (found == m_queries.end()) {
        throw RunTimeError(ErrorItemNotFound,
                           QStringLiteral("La consulta '%1' no existe en el archivo de consultas '%2'")
                               .arg(name, m_fileName));
    }
    return *found;
}

} // namespace quorvane
