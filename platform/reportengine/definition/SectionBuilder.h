#pragma once

#include "platform/reportengine/definition/DefinitionBuilder.h"

namespace quorvane::report {

/// Makes the sections of a definition whose page, styles, columns, formulas and groups stand already, and
/// checks that everything fits: objects in their section, sections on the page.
class SectionBuilder {
public:
    /// The arguments outlive the builder; it fills the definition's sections.
    SectionBuilder(const Damage& damage, const DefinitionNames& names, Definition& definition)
        : m_damage(damage), m_names(names), m_definition(definition) {}

    void build(const Element& sections);

private:
    Section sectionOf(const Element& element) const;
    void addObjects(const Element& element, Section& section);
    void checkPlace(const Element& element, const ReportObject& object, const Section& section) const;
    void rememberName(const Element& element, const QString& name);
    void checkGroupSections(const Element& sections) const;
    void checkFormatOf(const Element& element) const;
    void takeFormats();
    void checkHeights(const Element& sections) const;
    void putInOrder();

    const Damage& m_damage;
    const DefinitionNames& m_names;
    Definition& m_definition;
    QHash<QString, const Element*> m_objects; ///< by name in small letters
};

} // namespace quorvane::report
