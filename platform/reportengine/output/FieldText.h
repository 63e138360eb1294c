#pragma once

#include "platform/quorvane32/base/Date.h"
#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/reportengine/definition/Definition.h"
#include "platform/reportengine/layout/Page.h"

namespace quorvane::report {

/// What a page is drawn with besides itself.
struct PageContext {
    const Definition* definition = nullptr;
    RegionalSettings regional;
    int pageCount = 0;                                      ///< 0 while it is not known yet: "Página 3"
    const std::vector<struct GroupEntry>* groups = nullptr; ///< for charts
    Date printDate;                                         ///< empty: today
};

/// The text that an object of a band shows: fields as their format says, texts as they are with the formulas
/// in them filled in, "" for the rest and for an object that its condition hides.
QString fieldText(const PageContext& context, const Page& page, const Band& band, int object);

/// A number as a format writes it: halves to the even neighbour, the format's own symbols, below zero
/// decimals the general form without grouping.
QString numberText(double value, const NumberFormat& format);

/// False when the object's condition hides it on this band.
bool isShown(const ReportObject& object, const Band& band, int position);
/// The style that the object has on this band: its condition's where that holds.
int styleOf(const ReportObject& object, const Band& band, int position);
/// Where an object lies on the page, in points from the page's upper left corner.
QRectF objectRect(const Definition& definition, const Band& band, const ReportObject& object);
/// True for a value that is a number (not a date, not a truth value).
bool isNumber(const Value& value);

} // namespace quorvane::report
