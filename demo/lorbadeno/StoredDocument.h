#pragma once

#include "platform/quorvane32/base/Date.h"
#include <QString>
#include <vector>

namespace dalvora::lorbadeno {

/// A code and what it is called.
struct Labelled {
    QString code;
    QString label;
};

struct StoredLine {
    Labelled product;
    double quantity = 0;
    double price = 0;
    double discount = 0; ///< per cent
    double net = 0;
};

/// A sales document as the database holds it, with the names behind its codes.
struct StoredDocument {
    Labelled company;    ///< its label is the name, "" when the database does not tell
    QString companyCode; ///< legal code
    QString companyAddress;
    Labelled type;
    QString number;
    quorvane::Date date;
    Labelled customer;
    QString customerCode; ///< legal code
    QString customerPlace;
    Labelled salesperson;
    Labelled priceList;
    Labelled currency;
    int decimals = 2; ///< of the currency
    bool issued = false;
    bool voided = false;
    double net = 0;
    double tax = 0;
    double freight = 0;
    double total = 0;
    std::vector<StoredLine> lines;
    bool linesKept = false; ///< false in a database that keeps no lines
};

} // namespace dalvora::lorbadeno
