#include "platform/reportengine/definition/ObjectBuilder.h"

#include "platform/reportengine/definition/Measure.h"
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <array>
#include <utility>

namespace quorvane::report {

namespace {

using namespace Qt::StringLiterals;

/// The value that goes with a word; the grammar has let only these words through.
template<class Value, std::size_t Count>
Value valueOf(const std::array<std::pair<const char16_t*, Value>, Count>& values, const QString& word) {
    for (const auto& [candidate, value] : values)
        if (word == QStringView(candidate))
            return value;
    return values.front().second;
}

constexpr std::array<std::pair<const char16_t*, Condition::Test>, 5> tests{{
    {u"negative", Condition::Test::Negative},
    {u"positive", Condition::Test::Positive},
    {u"zero", Condition::Test::Zero},
    {u"empty", Condition::Test::Empty},
    {u"filled", Condition::Test::Filled},
}};

constexpr std::array<std::pair<const char16_t*, DateForm>, 3> dateForms{{
    {u"short", DateForm::Short},
    {u"month", DateForm::Month},
    {u"year", DateForm::Year},
}};

constexpr std::array<std::pair<const char16_t*, FieldSource::Kind>, 4> specials{{
    {u"page", FieldSource::Kind::PageNumber},
    {u"pages", FieldSource::Kind::PageCount},
    {u"pageOfPages", FieldSource::Kind::PageNofM},
    {u"printDate", FieldSource::Kind::PrintDate},
}};

} // namespace

const ObjectBuilder::KindRule ObjectBuilder::kinds[] = {
    {u"field", ObjectKind::Field, &ObjectBuilder::addField},
    {u"formulaField", ObjectKind::Field, &ObjectBuilder::addFormulaField},
    {u"sum", ObjectKind::Field, &ObjectBuilder::addSum},
    {u"count", ObjectKind::Field, &ObjectBuilder::addCount},
    {u"special", ObjectKind::Field, &ObjectBuilder::addSpecial},
    {u"text", ObjectKind::Text, &ObjectBuilder::addText},
    {u"line", ObjectKind::Line, &ObjectBuilder::addLine},
    {u"box", ObjectKind::Box, &ObjectBuilder::addBox},
    {u"image", ObjectKind::Image, &ObjectBuilder::addImage},
    {u"chart", ObjectKind::Chart, &ObjectBuilder::addChart},
};

ReportObject ObjectBuilder::build(const Element& element) const {
    ReportObject object;
    object.name = element.text(u"name"_s);
    object.rect = {points(element.number(u"left"_s)), points(element.number(u"top"_s)),
                   points(element.number(u"width"_s)), points(element.number(u"height"_s))};
    if (element.has(u"style"_s))
        object.style = m_names.styles.position(element, u"style"_s);
    addCondition(element, object);
    for (const KindRule& rule : kinds) {
        if (!element.is(rule.element))
            continue;
        object.kind = rule.kind;
        (this->*rule.add)(element, object);
    }
    return object;
}

void ObjectBuilder::addCondition(const Element& element, ReportObject& object) const {
    if (element.children.empty())
        return;
    const Element& condition = element.children.front();
    object.condition.column = columnOf(condition);
    object.condition.test = valueOf(tests, condition.text(u"is"_s));
    object.condition.hide = condition.is(u"showWhen");
    if (!object.condition.hide)
        object.condition.style = m_names.styles.position(condition, u"style"_s);
    using enum Condition::Test;
    if (object.condition.test != Empty && object.condition.test != Filled)
        numberColumnOf(condition);
}

void ObjectBuilder::addField(const Element& element, ReportObject& object) const {
    object.source = {FieldSource::Kind::Column, columnOf(element), FieldSource::WholeReport};
    const ColumnType type = m_definition.columns[static_cast<std::size_t>(object.source.index)].type;
    if (element.has(u"dateForm"_s) && type != ColumnType::Date)
        m_damage.raise(element.line,
                       u"la columna %1 no es de fechas"_s.arg(quoted(element.text(u"column"_s))));
    object.dateForm = valueOf(dateForms, element.text(u"dateForm"_s));
    for (const QString& attribute : {u"decimals"_s, u"thousands"_s, u"decimal"_s, u"formatOf"_s})
        if (element.has(attribute))
            numberColumnOf(element);
    addNumberFormat(element, object);
}

void ObjectBuilder::addFormulaField(const Element& element, ReportObject& object) const {
    object.source = {FieldSource::Kind::Formula, m_names.formulas.position(element, u"formula"_s),
                     FieldSource::WholeReport};
}

void ObjectBuilder::addSum(const Element& element, ReportObject& object) const {
    object.source = {FieldSource::Kind::Sum, numberColumnOf(element), scopeOf(element)};
    addNumberFormat(element, object);
}

void ObjectBuilder::addCount(const Element& element, ReportObject& object) const {
    object.source = {FieldSource::Kind::Count, 0, scopeOf(element)};
    addNumberFormat(element, object);
    if (!element.has(u"decimals"_s)) {
        object.format.decimals = 0;
        object.ownDecimals = true;
    }
}

void ObjectBuilder::addSpecial(const Element& element, ReportObject& object) const {
    object.source = {valueOf(specials, element.text(u"show"_s)), 0, FieldSource::WholeReport};
}

void ObjectBuilder::addText(const Element& element, ReportObject& object) const {
    object.text = element.text(u"text"_s);
}

void ObjectBuilder::addLine(const Element& element, ReportObject& object) const {
    if (object.rect.width() <= 0 && object.rect.height() <= 0)
        m_damage.raise(element.line, u"la línea no tiene largo"_s);
    addBox(element, object);
}

void ObjectBuilder::addBox(const Element& element, ReportObject& object) const {
    object.stroke = element.number(u"stroke"_s, object.stroke);
}

void ObjectBuilder::addImage(const Element& element, ReportObject& object) const {
    constexpr qint64 largestFile = 4'194'304;
    constexpr int largestSide = 4'000;
    const QString name = element.text(u"file"_s);
    const QString path = QFileInfo(m_definition.file).dir().filePath(name);
    if (QFileInfo(path).size() > largestFile)
        m_damage.raise(element.line, u"la imagen %1 pasa de 4 MB"_s.arg(quoted(name)));
    QImageReader reader(path);
    if (reader.size().width() > largestSide || reader.size().height() > largestSide)
        m_damage.raise(element.line, u"la imagen %1 es demasiado grande"_s.arg(quoted(name)));
    object.image = reader.read();
    if (object.image.isNull())
        m_damage.raise(element.line, u"la imagen %1 no se puede leer"_s.arg(quoted(name)));
}

void ObjectBuilder::addChart(const Element& element, ReportObject& object) const {
    object.chart = {m_names.groups.position(element, u"group"_s), numberColumnOf(element),
                    element.text(u"title"_s)};
}

void ObjectBuilder::addNumberFormat(const Element& element, ReportObject& object) const {
    object.format.thousands = element.text(u"thousands"_s);
    object.format.decimal = element.text(u"decimal"_s, object.format.decimal);
    object.ownDecimals = element.has(u"decimals"_s);
    if (object.ownDecimals)
        object.format.decimals = element.text(u"decimals"_s).trimmed().toInt();
    object.formatOf = element.text(u"formatOf"_s);
}

int ObjectBuilder::columnOf(const Element& element) const {
    return m_names.columns.position(element, u"column"_s);
}

int ObjectBuilder::numberColumnOf(const Element& element) const {
    const int column = columnOf(element);
    if (m_definition.columns[static_cast<std::size_t>(column)].type != ColumnType::Number)
        m_damage.raise(element.line,
                       u"la columna %1 no es de números"_s.arg(quoted(element.text(u"column"_s))));
    return column;
}

int ObjectBuilder::scopeOf(const Element& element) const {
    return element.has(u"group"_s) ? m_names.groups.position(element, u"group"_s) : FieldSource::WholeReport;
}

} // namespace quorvane::report
