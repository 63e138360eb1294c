#pragma once

#include <QString>

namespace dalvora::demo {

/// What the trading data's English category becomes in the demonstration company.
struct CategoryLabel {
    const char* name;
    const char* code;
    const char* label;
    bool perishable;
};

/// Error 3265 for a category without a label.
const CategoryLabel& categoryLabel(const QString& name);
/// The same by the demonstration company's family code.
const CategoryLabel& categoryLabelOfCode(const QString& code);

/// The Spanish name of a country; error 3265 for one without a label, "" for "".
QString countryLabel(const QString& country);

/// The unit of measure that a text such as "24 - 12 oz bottles" names: its first packaging word, or UNIDAD.
QString unitOf(const QString& quantityPerUnit);

/// A name cut to the whole words that fit a code of 20 characters, in capitals.
QString codeOfName(const QString& name);

/// True for a country of America; documents shipped elsewhere are exports.
bool isAmerican(const QString& country);

} // namespace dalvora::demo
