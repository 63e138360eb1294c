#pragma once

#include "platform/reportengine/definition/DefinitionBuilder.h"

namespace quorvane::report {

/// Makes the objects of a section: one small function a kind of object.
class ObjectBuilder {
public:
    /// The arguments outlive the builder.
    ObjectBuilder(const Damage& damage, const DefinitionNames& names, const Definition& definition)
        : m_damage(damage), m_names(names), m_definition(definition) {}

    ReportObject build(const Element& element) const;

private:
    void addCondition(const Element& element, ReportObject& object) const;
    void addField(const Element& element, ReportObject& object) const;
    void addFormulaField(const Element& element, ReportObject& object) const;
    void addSum(const Element& element, ReportObject& object) const;
    void addCount(const Element& element, ReportObject& object) const;
    void addSpecial(const Element& element, ReportObject& object) const;
    void addText(const Element& element, ReportObject& object) const;
    void addLine(const Element& element, ReportObject& object) const;
    void addBox(const Element& element, ReportObject& object) const;
    void addImage(const Element& element, ReportObject& object) const;
    void addChart(const Element& element, ReportObject& object) const;

    void addNumberFormat(const Element& element, ReportObject& object) const;
    int columnOf(const Element& element) const;
    int numberColumnOf(const Element& element) const;
    int scopeOf(const Element& element) const;

    struct KindRule {
        const char16_t* element;
        ObjectKind kind;
        void (ObjectBuilder::*add)(const Element&, ReportObject&) const;
    };
    static const KindRule kinds[];

    const Damage& m_damage;
    const DefinitionNames& m_names;
    const Definition& m_definition;
};

} // namespace quorvane::report
