#include "platform/quorvane32/base/NumberText.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/engine/Report.h"
#include <algorithm>

namespace quorvane::report {

namespace {

enum class Property { Kind, Name, DecimalPlaces, ThousandSymbol, DecimalSymbol };

struct PropertyName {
    QStringView name;
    Property property;
};
constexpr PropertyName propertyNames[] = {
    {u"Kind", Property::Kind},
    {u"Name", Property::Name},
    {u"DecimalPlaces", Property::DecimalPlaces},
    {u"ThousandSymbol", Property::ThousandSymbol},
    {u"DecimalSymbol", Property::DecimalSymbol},
};

constexpr int mostDecimals = 9;

Property propertyOf(QStringView name) {
    const auto* const found = std::ranges::find_if(propertyNames, [name](const PropertyName& known) {
        return known.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    if (found == std::end(propertyNames))
        raise(ErrorNoSuchProperty);
    return found->property;
}

/// Below zero is the general form, whatever the number.
int decimalsOf(const Value& value, const RegionalSettings& regional) {
    const double number = roundHalfEven(value.toNumber(regional), 0);
    if (!(number <= mostDecimals))
        raise(ErrorPropertyValue);
    return number < 0 ? -1 : static_cast<int>(number);
}

} // namespace

ObjectHandle::ObjectHandle(Report& report, int section, int object)
    : m_report(&report), m_section(section), m_object(object) {}

ReportObject& ObjectHandle::object() const {
    return m_report->m_definition.sections[m_section - 1].objects[m_object - 1];
}

NumberFormat& ObjectHandle::format() const {
    if (object().kind != ObjectKind::Field)
        raise(ErrorNoSuchProperty);
    return object().format;
}

Value ObjectHandle::property(QStringView name) const {
    switch (propertyOf(name)) {
    case Property::Kind:
        return qint32(object().kind);
    case Property::Name:
        return object().name;
    case Property::DecimalPlaces:
        return qint32(format().decimals);
    case Property::ThousandSymbol:
        return format().thousands;
    case Property::DecimalSymbol:
        return format().decimal;
    }
    raise(ErrorNoSuchProperty);
}

void ObjectHandle::setProperty(QStringView name, const Value& value) {
    const Property property = propertyOf(name);
    if (property == Property::Kind || property == Property::Name)
        raise(ErrorReadOnlyProperty);
    const RegionalSettings& regional = m_report->regional();
    NumberFormat changed = format();
    switch (property) {
    case Property::DecimalPlaces:
        changed.decimals = decimalsOf(value, regional);
        break;
    case Property::ThousandSymbol:
        changed.thousands = value.toText(regional);
        break;
    default:
        changed.decimal = value.toText(regional);
        break;
    }
    format() = changed;
    m_report->followFormat(object());
}

} // namespace quorvane::report
