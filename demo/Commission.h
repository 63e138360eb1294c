#pragma once

#include "demo/SalesDocuments.h"
#include <QDate>
#include <QString>
#include <vector>

namespace dalvora::demo {

enum class LineKind { Product, Amount, PriceList };
enum class Basis { Net, Total };

/// A line of a commission scheme. A bracket holds both its ends; an end of 0 leaves it open.
struct SchemeLine {
    LineKind kind = LineKind::Product;
    QString subType; ///< Todos, Familia, SubFamilia, Producto or TipoProducto; "" for the other kinds
    QString code;
    Hundredths from = 0;
    Hundredths to = 0;
    Hundredths percent = 0; ///< 250 is 2.5 %
    Basis basis = Basis::Net;
};

/// One period of a commission scheme.
struct Scheme {
    QString code;
    QString description;
    QDate start;
    QDate end;
    bool accumulates = false;
    std::vector<SchemeLine> lines;

    bool covers(QDate date) const { return start <= date && date <= end; }
};

/// What a document earns its salesperson, by the three kinds of scheme lines.
struct Commission {
    Hundredths byAmount = 0;
    Hundredths byQuantity = 0;
    Hundredths byPriceList = 0;

    friend bool operator==(const Commission&, const Commission&) = default;
};

/// Works out the commission on `lines` under the scheme. `document` is the invoice that decides type, price
/// list and amount bracket: for an invoice the owner of the lines, for a credit note the invoice that they
/// came from, so that a return takes back at the percentage that the sale earned.
///
/// Where several scheme lines of one kind apply, all count in a scheme that accumulates; otherwise only the
/// most specific one does (Producto, SubFamilia, Familia, TipoProducto, Todos; a code before "all"), and of
/// equally specific ones that of the highest percentage. Each sum is rounded to hundredths once.
Commission commissionOf(const Scheme& scheme, const std::vector<Product>& products,
                        const SalesDocument& document, const std::vector<DocumentLine>& lines);

} // namespace dalvora::demo
