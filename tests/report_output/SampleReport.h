#pragma once

#include "platform/reportengine/definition/Definition.h"
#include "platform/reportengine/output/FieldText.h"
#include "platform/reportengine/rows/RowSource.h"
#include <memory>
#include <vector>

namespace quorvane::report::test {

/// Styles of the sample, by position.
enum SampleStyle { Plain, Figure, Red, Heading, HeadingRight, Title, GroupTitle, Total, Quiet, Ground };

/// Columns of the sample, by position.
enum SampleColumn { Seller, Day, Kind, Number, Customer, Amount };

/// A report of sales documents by salesperson: company header, grouped details on tinted lines with negative
/// amounts in red and marked, subtotals, a total and a chart.
Definition sampleDefinition();

/// A row of the sample.
struct Sale {
    QString seller;
    Date day;
    QString kind;
    QString number;
    QString customer;
    Value amount;
};

/// Three salespeople, a credit note, a missing amount, a missing date, texts that look like formulas.
std::vector<Sale> sampleSales();

std::unique_ptr<RowSource> rowsOf(std::vector<Sale> sales);

/// What sample pages are drawn with; the date of printing is always the same.
PageContext sampleContext(const Definition& definition, int pageCount);

} // namespace quorvane::report::test
