#pragma once

#include "demo/TradingData.h"
#include <QDate>
#include <QString>
#include <vector>

namespace dalvora::demo {

inline constexpr char16_t invoiceType[] = u"FACTURA";
inline constexpr char16_t exportInvoiceType[] = u"FACEXP";
inline constexpr char16_t creditNoteType[] = u"NCREDITO";
inline constexpr char16_t firstPriceList[] = u"L1996";
inline constexpr char16_t secondPriceList[] = u"L1997";
inline constexpr int taxPercent = 19;

struct DocumentLine {
    std::size_t product = 0; ///< position in TradingData::products
    qint64 quantity = 0;
    Hundredths net = 0;
    Hundredths tax = 0;
    Hundredths price = 0;
    qint64 discount = 0; ///< per cent
};

/// What a document sells for: the sums of its lines.
struct Amounts {
    Hundredths net = 0;
    Hundredths tax = 0;
    /// What "Total" means in a commission line: freight earns no commission.
    Hundredths withTax() const { return net + tax; }
};

Amounts amountsOf(const std::vector<DocumentLine>& lines);

struct SalesDocument {
    QString type;
    int number = 0;
    QString customer;
    QString salesperson;
    QString priceList;
    QDate date;
    Hundredths freight = 0;
    std::vector<DocumentLine> lines;
    /// For a credit note the position of the invoice that it takes back among the invoices, else -1.
    qsizetype invoice = -1;
};

/// One invoice for every order, in the orders' order.
std::vector<SalesDocument> invoicesOf(const TradingData& data);

/// One credit note for every order that was shipped thirty days or more after it was placed: the customer
/// sent the first line back, a week after it arrived. Numbered from 1; `invoices` are those of the same
/// orders.
std::vector<SalesDocument> creditNotesOf(const TradingData& data, const std::vector<SalesDocument>& invoices);

} // namespace dalvora::demo
