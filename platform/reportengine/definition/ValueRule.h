#pragma once

#include <QString>

namespace quorvane::report {

/// What an attribute of a definition may hold. The schema reportes/report.xsd says the same; the tests hold
/// the two against each other.
struct ValueRule {
    enum class Kind { Text, Name, FormulaName, FileName, Decimal, Whole, Colour, Choice, Symbol };

    Kind kind = Kind::Text;
    double least = 0; ///< Decimal and Whole
    double most = 0;
    const char16_t* choices = nullptr; ///< Choice: the words, with "|" between them
    const char16_t* says = nullptr;    ///< what a message says the value must be, in Spanish

    bool accepts(const QString& value) const;
    /// What the value must be, as it ends the sentence "... debe ser".
    QString description() const;
};

} // namespace quorvane::report
