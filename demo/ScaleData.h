#pragma once

#include <QDate>
#include <QString>

namespace dalvora::demo {

/// Large tables for tests and benchmarks, added to an existing database file in one transaction each. The
/// engine's errors leave the operations as RunTimeError.
class ScaleData {
public:
    ScaleData(QString path, QString company) : m_path(std::move(path)), m_company(std::move(company)) {}

    struct SchemeSize {
        QString code;
        QDate start;
        QDate end;
        int productLines = 0;
        int amountLines = 0;
        int priceLines = 0;
    };
    /// A scheme whose lines all differ: product lines of every kind by turns, brackets of ten units,
    /// percentages with decimals.
    void addScheme(const SchemeSize& size) const;
    /// Schemes S000001, S000002, ... of one year each, with `linesEach` product lines.
    void addSchemes(int count, int linesEach) const;
    /// Products X000001, X000002, ... in a hundred families.
    void addProducts(int count) const;
    /// Salespeople S000001, S000002, ... without a scheme.
    void addSalespeople(int count) const;
    /// Issued invoices and, one in twenty, credit notes, numbered from 1000001 as the years 1996 to 1998 go
    /// by, spread over the company's customers and the salespeople 01 to 09, with commission amounts.
    void addDocuments(int count) const;

private:
    QString m_path;
    QString m_company;
};

} // namespace dalvora::demo
