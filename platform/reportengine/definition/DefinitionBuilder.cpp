#include "platform/reportengine/definition/DefinitionBuilder.h"

#include "platform/reportengine/definition/Measure.h"
#include "platform/reportengine/definition/SectionBuilder.h"
#include <utility>

namespace quorvane::report {

namespace {

using namespace Qt::StringLiterals;

Period periodOf(const Element& group) {
    const QString word = group.text(u"period"_s);
    return word == u"month"_s ? Period::Month : word == u"year"_s ? Period::Year : Period::None;
}

ColumnType columnTypeOf(const Element& column) {
    const QString word = column.text(u"type"_s);
    return word == u"number"_s ? ColumnType::Number : word == u"date"_s ? ColumnType::Date : ColumnType::Text;
}

Qt::Alignment alignmentOf(const Element& style, Qt::Alignment otherwise) {
    const QString across = style.text(u"align"_s);
    const QString down = style.text(u"valign"_s);
    Qt::Alignment horizontal = otherwise & Qt::AlignHorizontal_Mask;
    Qt::Alignment vertical = otherwise & Qt::AlignVertical_Mask;
    if (!across.isEmpty())
        horizontal = across == u"right"_s    ? Qt::AlignRight
                     : across == u"center"_s ? Qt::AlignHCenter
                                             : Qt::AlignLeft;
    if (!down.isEmpty())
        vertical = down == u"top"_s ? Qt::AlignTop : down == u"bottom"_s ? Qt::AlignBottom : Qt::AlignVCenter;
    return horizontal | vertical;
}

} // namespace

void NameList::add(const QString& name, qint64 line) {
    if (m_positions.contains(name))
        m_damage.raise(line, u"%1 %2 está repetida"_s.arg(m_what, quoted(name)));
    m_positions.insert(name, static_cast<int>(m_positions.size()));
}

int NameList::position(const Element& element, const QString& attribute) const {
    const QString name = element.text(attribute);
    const auto found = m_positions.constFind(name);
    if (found == m_positions.constEnd())
        m_damage.raise(element.line, u"%1 %2 no se conoce"_s.arg(m_what, quoted(name)));
    return *found;
}

DefinitionNames::DefinitionNames(const Damage& damage)
    : columns(damage, u"la columna"_s)
    , styles(damage, u"la apariencia"_s)
    , groups(damage, u"la agrupación"_s)
    , formulas(damage, u"la fórmula"_s) {}

DefinitionBuilder::DefinitionBuilder(const Damage& damage, QString file) : m_damage(damage), m_names(damage) {
    m_definition.file = std::move(file);
}

Definition DefinitionBuilder::build(const Element& root) {
    m_definition.title = root.text(u"title"_s);
    addPage(*root.child(u"page"));
    for (const Element& style : root.child(u"styles")->children)
        addStyle(style);
    addColumns(*root.child(u"columns"));
    if (const Element* formulas = root.child(u"formulas"))
        addFormulas(*formulas);
    if (const Element* groups = root.child(u"groups"))
        addGroups(*groups);
    if (const Element* sort = root.child(u"sort"))
        addSort(*sort);
    SectionBuilder(m_damage, m_names, m_definition).build(*root.child(u"sections"));
    return std::move(m_definition);
}

void DefinitionBuilder::addPage(const Element& page) {
    m_definition.pageSize = {points(page.number(u"width"_s)), points(page.number(u"height"_s))};
    m_definition.margins = {points(page.number(u"left"_s)), points(page.number(u"top"_s)),
                            points(page.number(u"right"_s)), points(page.number(u"bottom"_s))};
    const double smallest = points(10);
    if (m_definition.margins.left() + m_definition.margins.right() + smallest >
            m_definition.pageSize.width() ||
        m_definition.margins.top() + m_definition.margins.bottom() + smallest >
            m_definition.pageSize.height())
        m_damage.raise(page.line, u"los márgenes no dejan lugar en la página"_s);
}

/// What a style does not say is as in the first one.
void DefinitionBuilder::addStyle(const Element& element) {
    m_names.styles.add(element.text(u"name"_s), element.line);
    Style style = m_definition.styles.empty() ? Style{} : m_definition.styles.front();
    style.family = element.text(u"font"_s, style.family);
    style.size = element.number(u"size"_s, style.size);
    if (element.has(u"bold"_s))
        style.bold = element.truth(u"bold"_s);
    if (element.has(u"italic"_s))
        style.italic = element.truth(u"italic"_s);
    if (element.has(u"colour"_s))
        style.colour = QColor(element.text(u"colour"_s));
    if (element.has(u"background"_s))
        style.background = QColor(element.text(u"background"_s));
    style.alignment = alignmentOf(element, style.alignment);
    m_definition.styles.push_back(style);
}

void DefinitionBuilder::addColumns(const Element& columns) {
    m_definition.sortedBySource = columns.truth(u"sortedBySource"_s);
    for (const Element& element : columns.children) {
        Column column;
        column.name = element.text(u"name"_s);
        column.type = columnTypeOf(element);
        if (!element.is(u"column"))
            addWorkedOutColumn(element, column);
        // Only now: a column cannot be worked out from itself.
        m_names.columns.add(column.name, element.line);
        m_definition.columns.push_back(std::move(column));
    }
}

void DefinitionBuilder::addWorkedOutColumn(const Element& element, Column& column) const {
    column.type = ColumnType::Number;
    if (element.is(u"countColumn")) {
        column.origin = Column::Origin::CountOf;
        column.operands = {columnOf(element)};
        column.wanted = element.text(u"equals"_s);
        return;
    }
    column.origin = Column::Origin::SumOf;
    for (const Element& term : element.children) {
        const int operand = columnOf(term);
        if (m_definition.columns[static_cast<std::size_t>(operand)].type != ColumnType::Number)
            m_damage.raise(term.line,
                           u"la columna %1 no es de números"_s.arg(quoted(term.text(u"column"_s))));
        column.operands.push_back(operand);
    }
}

void DefinitionBuilder::addFormulas(const Element& formulas) {
    for (const Element& element : formulas.children) {
        const QString name = element.text(u"name"_s);
        m_names.formulas.add(name, element.line);
        m_definition.formulas.push_back({name, u"\"%1\""_s.arg(element.text(u"text"_s))});
    }
}

void DefinitionBuilder::addGroups(const Element& groups) {
    for (const Element& element : groups.children) {
        m_names.groups.add(element.text(u"name"_s), element.line);
        Group group;
        group.column = columnOf(element);
        group.period = periodOf(element);
        group.caption = element.text(u"caption"_s);
        group.captionColumn = element.has(u"captionColumn"_s)
                                  ? m_names.columns.position(element, u"captionColumn"_s)
                                  : group.column;
        const ColumnType type = m_definition.columns[static_cast<std::size_t>(group.column)].type;
        if (group.period != Period::None && type != ColumnType::Date)
            m_damage.raise(element.line,
                           u"la columna %1 no es de fechas"_s.arg(quoted(element.text(u"column"_s))));
        // A group within itself would never begin or end.
        for (const Group& outer : m_definition.groups)
            if (outer.column == group.column && outer.period == group.period)
                m_damage.raise(element.line,
                               u"ya se agrupa por la columna %1"_s.arg(quoted(element.text(u"column"_s))));
        m_definition.groups.push_back(group);
    }
}

void DefinitionBuilder::addSort(const Element& sort) {
    if (m_definition.sortedBySource)
        m_damage.raise(sort.line,
                       u"no puede haber <sort> cuando las filas llegan ordenadas (sortedBySource)"_s);
    for (const Element& key : sort.children)
        m_definition.sort.push_back({columnOf(key), key.truth(u"descending"_s)});
}

} // namespace quorvane::report
