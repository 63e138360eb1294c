#pragma once

#include "platform/quorvane32/lookup/QueryDefinition.h"
#include <QByteArray>
#include <QStringView>
#include <vector>

namespace quorvane {

/// Reads the text of a query file line by line into definitions.
class QueryFileParser {
public:
    explicit QueryFileParser(QString fileName) : m_fileName(std::move(fileName)) {}

    /// Error 321 when the text is no query file.
    std::vector<QueryDefinition> parse(const QByteArray& bytes);
    /// Raises error 321 with the file, the line (from 1) and the reason.
    [[noreturn]] void fail(int line, const QString& reason) const;

private:
    void readLine(const QString& line);
    void beginQuery(QStringView header);
    void readEntry(const QString& line);
    void readText(QString& target, QStringView key, QStringView value);
    void readParameter(QStringView value);
    void readColumn(QStringView value);
    void readFormat(QueryColumn& column, QStringView format);
    void readReturned(QStringView value);
    void checkQuery() const;
    void checkStatement(const QueryDefinition& query) const;
    QueryDefinition& current();
    [[noreturn]] void fail(const QString& reason) const { fail(m_line, reason); }

    QString m_fileName;
    int m_line = 0;
    /// Line of the query being read, for faults that only its end shows.
    int m_queryLine = 0;
    bool m_inStatement = false;
    std::vector<QueryDefinition> m_queries;
};

} // namespace quorvane
