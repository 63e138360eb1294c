#pragma once

#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/quorvane32/base/Value.h"
#include <QString>

namespace dalvora {

/// The text that stands for a value in a statement, without quotes around it: a text with its quotes doubled,
/// a Double with "." as decimal point, a Date as dd/mm/yyyy ("" for the empty date), a Boolean as "S" or "N".
/// Code Empty infers the code from the value. Errors 13 (no such value in this text), 6 (date out of range)
/// and 94 (Null).
QString SqlText(const quorvane::Value& value, quorvane::Kind code,
                const quorvane::RegionalSettings& regional);

/// A database field's value brought to the kind that a record field of the given code needs; Null becomes the
/// code's default ("" or 0). Error 6 for a number beyond 32 bits with the codes Integer and Long.
quorvane::Value FieldValue(quorvane::Value value, quorvane::Kind code,
                           const quorvane::RegionalSettings& regional);

/// Converts an entered text. The limit is the most characters of a String (none when 0 or less) or the number
/// of decimals of a Double (no rounding when below 0). False, with the output untouched, when the text cannot
/// be converted; never raises.
bool TextToValue(const QString& text, quorvane::Kind code, quorvane::Value& output, int limit,
                 const quorvane::RegionalSettings& regional);

} // namespace dalvora
