#include "demo/SalesDocuments.h"

#include "demo/Labels.h"

namespace dalvora::demo {

namespace {

constexpr int lateDays = 30;
constexpr int returnDays = 7;

DocumentLine documentLine(const OrderLine& line, int tax) {
    DocumentLine result;
    result.product = line.product;
    result.quantity = line.quantity;
    result.net = roundedShare(line.price * line.quantity, 100 - line.discount, 100);
    result.tax = roundedShare(result.net, tax, 100);
    result.price = line.price;
    result.discount = line.discount;
    return result;
}

/// Orders at less than today's prices were sold by the first price list; an order that mixes both counts as
/// sold by today's.
QString priceListOf(const Order& order, const std::vector<Product>& products) {
    bool reduced = true;
    for (const OrderLine& line : order.lines)
        reduced = reduced && line.price < products[line.product].price;
    return QString::fromUtf16(reduced ? firstPriceList : secondPriceList);
}

SalesDocument invoiceOf(const Order& order, const std::vector<Product>& products) {
    const bool taxed = isAmerican(order.shipCountry);
    SalesDocument invoice;
    invoice.type = QString::fromUtf16(taxed ? invoiceType : exportInvoiceType);
    invoice.number = order.number;
    invoice.customer = order.customer;
    invoice.salesperson = order.salesperson;
    invoice.priceList = priceListOf(order, products);
    invoice.date = order.ordered;
    invoice.freight = order.freight;
    for (const OrderLine& line : order.lines)
        invoice.lines.push_back(documentLine(line, taxed ? taxPercent : 0));
    return invoice;
}

} // namespace

Amounts amountsOf(const std::vector<DocumentLine>& lines) {
    Amounts amounts;
    for (const DocumentLine& line : lines) {
        amounts.net += line.net;
        amounts.tax += line.tax;
    }
    return amounts;
}

std::vector<SalesDocument> invoicesOf(const TradingData& data) {
    std::vector<SalesDocument> invoices;
    for (const Order& order : data.orders)
        invoices.push_back(invoiceOf(order, data.products));
    return invoices;
}

std::vector<SalesDocument> creditNotesOf(const TradingData& data,
                                         const std::vector<SalesDocument>& invoices) {
    std::vector<SalesDocument> notes;
    for (std::size_t i = 0; i < data.orders.size(); ++i) {
        const Order& order = data.orders[i];
        if (!order.shipped.isValid() || order.ordered.daysTo(order.shipped) < lateDays)
            continue;
        SalesDocument note = invoices[i];
        note.type = QString::fromUtf16(creditNoteType);
        note.number = static_cast<int>(notes.size()) + 1;
        note.date = order.shipped.addDays(returnDays);
        note.freight = 0;
        note.lines = {invoices[i].lines.front()};
        note.invoice = static_cast<qsizetype>(i);
        notes.push_back(std::move(note));
    }
    return notes;
}

} // namespace dalvora::demo
