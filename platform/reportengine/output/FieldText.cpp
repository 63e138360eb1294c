#include "platform/reportengine/output/FieldText.h"
#include "platform/quorvane32/base/NumberText.h"
#include <QDate>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane::report {

namespace {

QString dateText(Date date, DateForm form, const RegionalSettings& regional) {
    const QDate day = date.toQDate();
    if (form == DateForm::Short || !day.isValid())
        return regional.dateText(date);
    return form == DateForm::Month ? regional.monthText(date) : QString::number(day.year());
}

/// A formula's text without the one pair of quotes around it. What stands between them is taken as it is: the
/// company "El Sol" keeps its own quotes.
QString formulaText(const Formula& formula) {
    const QString& text = formula.text;
    if (text.size() >= 2 && text.startsWith(u'"') && text.endsWith(u'"'))
        return text.mid(1, text.size() - 2);
    return text;
}

/// Formulas' names in a text give way to their texts; a text that came in so is not searched again.
QString filled(const QString& text, const std::vector<Formula>& formulas) {
    qsizetype open = text.indexOf("{@"_L1);
    if (open < 0)
        return text;
    QString result;
    qsizetype done = 0;
    for (; open >= 0; open = text.indexOf("{@"_L1, done)) {
        const qsizetype close = text.indexOf(u'}', open);
        if (close < 0)
            break;
        const QStringView name = QStringView(text).mid(open, close + 1 - open);
        const auto formula = std::find_if(formulas.begin(), formulas.end(), [&](const Formula& candidate) {
            return name.compare(candidate.name, Qt::CaseInsensitive) == 0;
        });
        result += QStringView(text).mid(done, open - done);
        result += formula == formulas.end() ? name.toString() : formulaText(*formula);
        done = close + 1;
    }
    result += QStringView(text).mid(done);
    return result;
}

QString valueText(const Value& value, const ReportObject& object, const RegionalSettings& regional) {
    if (const QString* text = value.get<QString>())
        return *text;
    if (const Date* date = value.get<Date>())
        return dateText(*date, object.dateForm, regional);
    if (isNumber(value))
        return numberText(value.toNumber(regional), object.format);
    if (const bool* truth = value.get<bool>())
        return *truth ? u"Sí"_s : u"No"_s;
    return {};
}

QString pageText(FieldSource::Kind kind, const PageContext& context, const Page& page) {
    QString number = QString::number(page.number);
    switch (kind) {
    case FieldSource::Kind::PageNumber:
        return number;
    case FieldSource::Kind::PageCount:
        return context.pageCount > 0 ? QString::number(context.pageCount) : QString();
    default:
        return context.pageCount > 0 ? u"Página "_s + number + u" de "_s + QString::number(context.pageCount)
                                     : u"Página "_s + number;
    }
}

QString printDateText(const PageContext& context, const ReportObject& object) {
    const Date day = context.printDate.isEmpty() ? Date::fromQDate(QDate::currentDate()) : context.printDate;
    return dateText(day, object.dateForm, context.regional);
}

} // namespace

QString numberText(double value, const NumberFormat& format) {
    if (!std::isfinite(value))
        return std::isnan(value) ? QString() : value < 0 ? u"-∞"_s : u"∞"_s;
    const bool oneEach = format.decimal.size() == 1 && format.thousands.size() == 1;
    if (oneEach && format.decimals >= 0)
        return groupedNumber(value, format.decimals, format.decimal[0], format.thousands[0]);
    // Symbols may be longer than one character, or none: marks that no number has keep their places.
    constexpr QChar group(u'\x1f');
    QString text =
        format.decimals < 0 ? generalNumber(value, u'.') : groupedNumber(value, format.decimals, u'.', group);
    // Without any symbol 12.5 would read 125.
    text.replace(u'.', format.decimal.isEmpty() ? u","_s : format.decimal);
    return text.replace(group, format.thousands);
}

bool isNumber(const Value& value) {
    switch (value.kind()) {
    case Kind::Integer:
    case Kind::Long:
    case Kind::Single:
    case Kind::Double:
    case Kind::Currency:
    case Kind::Decimal:
    case Kind::Byte:
        return true;
    default:
        return false;
    }
}

bool isShown(const ReportObject& object, const Band& band, int position) {
    if (object.condition.test == Condition::Test::None || !object.condition.hide)
        return true;
    return static_cast<size_t>(position) < band.condition.size() && band.condition[position];
}

int styleOf(const ReportObject& object, const Band& band, int position) {
    const bool holds = object.condition.test != Condition::Test::None && !object.condition.hide &&
                       static_cast<size_t>(position) < band.condition.size() && band.condition[position];
    return holds ? object.condition.style : object.style;
}

QRectF objectRect(const Definition& definition, const Band& band, const ReportObject& object) {
    return object.rect.translated(definition.margins.left(), band.top);
}

QString fieldText(const PageContext& context, const Page& page, const Band& band, int object) {
    const ReportObject& shown = context.definition->sections[band.section].objects[object];
    if (!isShown(shown, band, object))
        return {};
    if (shown.kind == ObjectKind::Text)
        return filled(shown.text, context.definition->formulas);
    if (shown.kind != ObjectKind::Field)
        return {};
    switch (shown.source.kind) {
    case FieldSource::Kind::Formula:
        return formulaText(context.definition->formulas[shown.source.index]);
    case FieldSource::Kind::PageNumber:
    case FieldSource::Kind::PageCount:
    case FieldSource::Kind::PageNofM:
        return pageText(shown.source.kind, context, page);
    case FieldSource::Kind::PrintDate:
        return printDateText(context, shown);
    default:
        if (static_cast<size_t>(object) >= band.values.size())
            return {};
        return valueText(band.values[object], shown, context.regional);
    }
}

} // namespace quorvane::report
