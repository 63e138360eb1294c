#include "demo/TradingData.h"

#include "demo/Csv.h"
#include "demo/Labels.h"
#include <QFile>
#include <QHash>

static void initialiseResources() {
    Q_INIT_RESOURCE(northwind); // a static library's resources are linked only when something names them
}

namespace dalvora::demo {

namespace {

CsvTable table(const char* name) {
    initialiseResources();
    QFile file(QStringLiteral(":/demo/northwind/%1.csv").arg(QLatin1String(name)));
    // The data is part of the program: without it there is no program to report to.
    if (!file.open(QIODevice::ReadOnly))
        qFatal("missing resource %s", qPrintable(file.fileName()));
    return CsvTable::parse(file.readAll());
}

QString padded(const QString& number, int width) {
    return number.rightJustified(width, u'0');
}

QDate dateOf(const QString& text) {
    return QDate::fromString(text.left(10), Qt::ISODate);
}

std::vector<Supplier> readSuppliers() {
    const CsvTable csv = table("suppliers");
    const auto id = csv.column(QStringLiteral("SupplierID"));
    const auto name = csv.column(QStringLiteral("CompanyName"));
    const auto country = csv.column(QStringLiteral("Country"));
    std::vector<Supplier> suppliers;
    for (std::size_t row = 0; row < csv.rowCount(); ++row)
        suppliers.push_back({u'P' + padded(csv.text(row, id), 2), csv.text(row, name),
                             codeOfName(csv.text(row, name)), countryLabel(csv.text(row, country))});
    return suppliers;
}

QHash<QString, QString> readCategories() {
    const CsvTable csv = table("categories");
    const auto id = csv.column(QStringLiteral("CategoryID"));
    const auto name = csv.column(QStringLiteral("CategoryName"));
    QHash<QString, QString> names;
    for (std::size_t row = 0; row < csv.rowCount(); ++row)
        names.insert(csv.text(row, id), csv.text(row, name));
    return names;
}

std::vector<Product> readProducts(const std::vector<Supplier>& suppliers) {
    QHash<QString, const Supplier*> byAccount;
    for (const Supplier& supplier : suppliers)
        byAccount.insert(supplier.account, &supplier);
    const QHash<QString, QString> categories = readCategories();
    const CsvTable csv = table("products");
    const auto id = csv.column(QStringLiteral("ProductID"));
    const auto name = csv.column(QStringLiteral("ProductName"));
    const auto supplierId = csv.column(QStringLiteral("SupplierID"));
    const auto category = csv.column(QStringLiteral("CategoryID"));
    const auto packing = csv.column(QStringLiteral("QuantityPerUnit"));
    const auto price = csv.column(QStringLiteral("UnitPrice"));
    const auto discontinued = csv.column(QStringLiteral("Discontinued"));
    std::vector<Product> products;
    for (std::size_t row = 0; row < csv.rowCount(); ++row) {
        const Supplier* supplier = byAccount.value(u'P' + padded(csv.text(row, supplierId), 2));
        const CategoryLabel& label = categoryLabel(categories.value(csv.text(row, category)));
        Product product;
        product.code = padded(csv.text(row, id), 3);
        product.name = csv.text(row, name);
        product.family = QLatin1String(label.code);
        product.subFamily = supplier->subFamily;
        product.supplier = supplier->account;
        product.type = QString::fromUtf16(label.perishable ? perishableType : durableType);
        product.unit = unitOf(csv.text(row, packing));
        product.price = hundredthsOf(csv.text(row, price));
        product.discontinued = csv.text(row, discontinued) == QLatin1String("1");
        products.push_back(std::move(product));
    }
    return products;
}

std::vector<Customer> readCustomers() {
    const CsvTable csv = table("customers");
    const auto id = csv.column(QStringLiteral("CustomerID"));
    const auto name = csv.column(QStringLiteral("CompanyName"));
    const auto city = csv.column(QStringLiteral("City"));
    const auto country = csv.column(QStringLiteral("Country"));
    std::vector<Customer> customers;
    for (std::size_t row = 0; row < csv.rowCount(); ++row)
        customers.push_back({csv.text(row, id).toUpper(), csv.text(row, name), csv.text(row, city),
                             countryLabel(csv.text(row, country))});
    return customers;
}

QString salespersonCode(const QString& employee) {
    return padded(employee, 2);
}

std::vector<Salesperson> readSalespeople() {
    const CsvTable csv = table("employees");
    const auto id = csv.column(QStringLiteral("EmployeeID"));
    const auto last = csv.column(QStringLiteral("LastName"));
    const auto first = csv.column(QStringLiteral("FirstName"));
    std::vector<Salesperson> salespeople;
    for (std::size_t row = 0; row < csv.rowCount(); ++row)
        salespeople.push_back(
            {salespersonCode(csv.text(row, id)), csv.text(row, first) + u' ' + csv.text(row, last)});
    return salespeople;
}

std::vector<Order> readOrders() {
    const CsvTable csv = table("orders");
    const auto id = csv.column(QStringLiteral("OrderID"));
    const auto customer = csv.column(QStringLiteral("CustomerID"));
    const auto employee = csv.column(QStringLiteral("EmployeeID"));
    const auto ordered = csv.column(QStringLiteral("OrderDate"));
    const auto shipped = csv.column(QStringLiteral("ShippedDate"));
    const auto freight = csv.column(QStringLiteral("Freight"));
    const auto country = csv.column(QStringLiteral("ShipCountry"));
    std::vector<Order> orders;
    for (std::size_t row = 0; row < csv.rowCount(); ++row) {
        Order order;
        order.number = csv.text(row, id).toInt();
        order.customer = csv.text(row, customer).toUpper();
        order.salesperson = salespersonCode(csv.text(row, employee));
        order.ordered = dateOf(csv.text(row, ordered));
        order.shipped = dateOf(csv.text(row, shipped));
        order.freight = hundredthsOf(csv.text(row, freight));
        order.shipCountry = csv.text(row, country);
        orders.push_back(std::move(order));
    }
    return orders;
}

void readOrderLines(std::vector<Order>& orders, const std::vector<Product>& products) {
    QHash<int, Order*> byNumber;
    for (Order& order : orders)
        byNumber.insert(order.number, &order);
    QHash<QString, std::size_t> byCode;
    for (std::size_t i = 0; i < products.size(); ++i)
        byCode.insert(products[i].code, i);
    const CsvTable csv = table("order_details");
    const auto id = csv.column(QStringLiteral("OrderID"));
    const auto product = csv.column(QStringLiteral("ProductID"));
    const auto price = csv.column(QStringLiteral("UnitPrice"));
    const auto quantity = csv.column(QStringLiteral("Quantity"));
    const auto discount = csv.column(QStringLiteral("Discount"));
    for (std::size_t row = 0; row < csv.rowCount(); ++row)
        byNumber[csv.text(row, id).toInt()]->lines.push_back(
            {byCode[padded(csv.text(row, product), 3)], hundredthsOf(csv.text(row, price)),
             csv.text(row, quantity).toLongLong(), hundredthsOf(csv.text(row, discount))});
}

} // namespace

TradingData TradingData::load() {
    TradingData data;
    data.suppliers = readSuppliers();
    data.products = readProducts(data.suppliers);
    data.customers = readCustomers();
    data.salespeople = readSalespeople();
    data.orders = readOrders();
    readOrderLines(data.orders, data.products);
    return data;
}

} // namespace dalvora::demo
