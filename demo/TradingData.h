#pragma once

#include "demo/Money.h"
#include <QDate>
#include <QString>
#include <vector>

namespace dalvora::demo {

struct Supplier {
    QString account;
    QString name;
    QString subFamily;
    QString country;
};

struct Product {
    QString code;
    QString name;
    QString family;
    QString subFamily;
    QString type;
    QString unit;
    QString supplier;
    Hundredths price = 0;
    bool discontinued = false;
};

struct Customer {
    QString account;
    QString name;
    QString city;
    QString country;
};

struct Salesperson {
    QString code;
    QString name;
};

struct OrderLine {
    std::size_t product = 0; ///< position in TradingData::products
    Hundredths price = 0;
    qint64 quantity = 0;
    Hundredths discount = 0; ///< 5 is 5 %
};

struct Order {
    int number = 0;
    QString customer;
    QString salesperson;
    QDate ordered;
    QDate shipped; ///< invalid when not shipped yet
    Hundredths freight = 0;
    QString shipCountry; ///< as the data names it, in English
    std::vector<OrderLine> lines;
};

/// The food trader's data with the codes and the Spanish labels of the demonstration company.
struct TradingData {
    /// From the CSV files inside the program.
    static TradingData load();

    std::vector<Supplier> suppliers;
    std::vector<Product> products;
    std::vector<Customer> customers;
    std::vector<Salesperson> salespeople;
    std::vector<Order> orders;
};

inline constexpr char16_t perishableType[] = u"PERECIBLE";
inline constexpr char16_t durableType[] = u"NO PERECIBLE";

} // namespace dalvora::demo
