#pragma once

#include "platform/reportengine/definition/ValueRule.h"
#include <QStringView>
#include <array>
#include <span>

namespace quorvane::report {

struct AttributeRule {
    const char16_t* name;
    const ValueRule* value;
    bool required;
};

/// A place in an element's contents: any of these elements, as often as told.
struct Step {
    std::span<const char16_t* const> names;
    int least;
    int most;
};

/// What an element of a definition may hold.
struct ElementRule {
    static constexpr int unlimited = 1'000'000;

    const char16_t* name;
    std::array<std::span<const AttributeRule>, 3> attributes; ///< sets that elements share, and its own
    std::span<const Step> content;

    /// Null when the element has no such attribute.
    const AttributeRule* attribute(QStringView wanted) const;
};

/// The rule of an element, null for a name that no element has.
const ElementRule* elementRule(QStringView name);

} // namespace quorvane::report
