#pragma once

#include "demo/Money.h"
#include <QString>
#include <memory>
#include <span>
#include <variant>

namespace dalvora::demo {

/// An amount of money, a percentage or a quantity in hundredths, stored as a number with two decimals.
struct Amount {
    Hundredths hundredths = 0;
};

/// What a row holds in a column; nothing for null.
using Field = std::variant<std::monostate, QString, qint64, Amount>;

/// Takes the rows of one table.
class RowSink {
public:
    virtual ~RowSink() = default;
    virtual void add(std::span<const Field> row) = 0;
};

/// A database that rows are loaded into. Errors of the database leave it and its sinks as RunTimeError.
class RowTarget {
public:
    virtual ~RowTarget() = default;
    /// `columns` as they stand between the parentheses of an INSERT.
    virtual std::unique_ptr<RowSink> open(const char* table, const char* columns) = 0;
};

} // namespace dalvora::demo
