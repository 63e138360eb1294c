#include "platform/reportengine/definition/SectionBuilder.h"

#include "platform/reportengine/definition/Measure.h"
#include "platform/reportengine/definition/ObjectBuilder.h"
#include <QSet>
#include <algorithm>

namespace quorvane::report {

namespace {

using namespace Qt::StringLiterals;

/// Measures are given in thousandths of a millimetre at most; less is a matter of rounding.
constexpr double rounding = points(0.001);

struct KindName {
    const char16_t* element;
    SectionKind kind;
};

constexpr KindName kindNames[] = {
    {u"reportHeader", SectionKind::ReportHeader}, {u"pageHeader", SectionKind::PageHeader},
    {u"groupHeader", SectionKind::GroupHeader},   {u"details", SectionKind::Details},
    {u"groupFooter", SectionKind::GroupFooter},   {u"reportFooter", SectionKind::ReportFooter},
    {u"pageFooter", SectionKind::PageFooter},
};

SectionKind kindOf(const Element& element) {
    const auto* found = std::find_if(std::begin(kindNames), std::end(kindNames),
                                     [&](const KindName& name) { return element.is(name.element); });
    return found->kind;
}

bool isOfGroup(const Section& section) {
    return section.kind == SectionKind::GroupHeader || section.kind == SectionKind::GroupFooter;
}

/// Headers go from the outermost group inward, footers back outward.
int rankInKind(const Section& section) {
    return section.kind == SectionKind::GroupFooter ? -section.group : section.group;
}

} // namespace

void SectionBuilder::build(const Element& sections) {
    for (const Element& element : sections.children) {
        Section section = sectionOf(element);
        addObjects(element, section);
        m_definition.sections.push_back(std::move(section));
    }
    checkGroupSections(sections);
    for (const Element& section : sections.children)
        for (const Element& object : section.children)
            if (object.has(u"formatOf"_s))
                checkFormatOf(object);
    takeFormats();
    checkHeights(sections);
    putInOrder();
}

Section SectionBuilder::sectionOf(const Element& element) const {
    Section section;
    section.kind = kindOf(element);
    section.name = element.text(u"name"_s);
    section.height = points(element.number(u"height"_s));
    section.newPageBefore = element.truth(u"newPage"_s);
    section.repeatOnPage = element.truth(u"repeat"_s);
    section.shaded = element.truth(u"shaded"_s);
    if (isOfGroup(section))
        section.group = m_names.groups.position(element, u"group"_s);
    return section;
}

void SectionBuilder::addObjects(const Element& element, Section& section) {
    const ObjectBuilder builder(m_damage, m_names, m_definition);
    for (const Element& child : element.children) {
        ReportObject object = builder.build(child);
        checkPlace(child, object, section);
        rememberName(child, object.name);
        section.objects.push_back(std::move(object));
    }
}

void SectionBuilder::checkPlace(const Element& element, const ReportObject& object,
                                const Section& section) const {
    const QMarginsF& margins = m_definition.margins;
    const double width = m_definition.pageSize.width() - margins.left() - margins.right();
    if (object.rect.right() > width + rounding)
        m_damage.raise(element.line, u"el objeto se sale de la página por la derecha"_s);
    if (object.rect.bottom() > section.height + rounding)
        m_damage.raise(element.line, u"el objeto se sale de su sección por abajo"_s);
}

/// Programs ask for objects by name in any letter case.
void SectionBuilder::rememberName(const Element& element, const QString& name) {
    if (name.isEmpty())
        return;
    if (m_objects.contains(name.toLower()))
        m_damage.raise(element.line, u"el objeto %1 está repetido"_s.arg(quoted(name)));
    m_objects.insert(name.toLower(), &element);
}

void SectionBuilder::checkGroupSections(const Element& sections) const {
    QSet<std::pair<int, int>> seen;
    for (std::size_t i = 0; i < m_definition.sections.size(); ++i) {
        const Section& section = m_definition.sections[i];
        const std::pair key(static_cast<int>(section.kind), section.group);
        if (isOfGroup(section) && seen.contains(key))
            m_damage.raise(sections.children[i].line,
                           u"la agrupación tiene más de un <%1>"_s.arg(
                               QString::fromUtf16(sections.children[i].rule->name)));
        seen.insert(key);
    }
}

void SectionBuilder::checkFormatOf(const Element& element) const {
    const QString name = element.text(u"formatOf"_s);
    const Element* other = m_objects.value(name.toLower());
    if (other == nullptr || other->text(u"name"_s) != name)
        m_damage.raise(element.line, u"el objeto %1 no se conoce"_s.arg(quoted(name)));
    if (other->rule->attribute(u"decimals") == nullptr || other->has(u"formatOf"_s))
        m_damage.raise(element.line, u"el objeto %1 no tiene un formato propio"_s.arg(quoted(name)));
}

void SectionBuilder::takeFormats() {
    QHash<QString, NumberFormat> formats;
    for (const Section& section : m_definition.sections)
        for (const ReportObject& object : section.objects)
            if (!object.name.isEmpty())
                formats.insert(object.name, object.format);
    for (Section& section : m_definition.sections)
        for (ReportObject& object : section.objects) {
            if (object.formatOf.isEmpty())
                continue;
            const int decimals = object.format.decimals;
            object.format = formats.value(object.formatOf);
            if (object.ownDecimals)
                object.format.decimals = decimals;
        }
}

/// Every section must fit on a page under what stands there anyway, and a group's first row together with
/// the headers above it: a layout that never finds room would never end.
void SectionBuilder::checkHeights(const Element& sections) const {
    const QMarginsF& margins = m_definition.margins;
    double room = m_definition.pageSize.height() - margins.top() - margins.bottom();
    double headers = 0;
    for (const Section& section : m_definition.sections) {
        if (section.kind == SectionKind::PageHeader || section.kind == SectionKind::PageFooter)
            room -= section.height;
        if (section.kind == SectionKind::GroupHeader)
            headers += section.height;
    }
    for (std::size_t i = 0; i < m_definition.sections.size(); ++i) {
        const Section& section = m_definition.sections[i];
        const bool underHeaders =
            section.kind == SectionKind::Details || section.kind == SectionKind::GroupFooter;
        if (section.height + (underHeaders ? headers : 0) > room + rounding)
            m_damage.raise(sections.children[i].line,
                           u"la sección <%1> no cabe en la página"_s.arg(
                               QString::fromUtf16(sections.children[i].rule->name)));
    }
}

void SectionBuilder::putInOrder() {
    std::stable_sort(m_definition.sections.begin(), m_definition.sections.end(),
                     [](const Section& left, const Section& right) {
                         return left.kind != right.kind ? left.kind < right.kind
                                                        : rankInKind(left) < rankInKind(right);
                     });
}

} // namespace quorvane::report
