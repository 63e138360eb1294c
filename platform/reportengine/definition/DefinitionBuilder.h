#pragma once

#include "platform/reportengine/definition/Definition.h"
#include "platform/reportengine/definition/ElementReader.h"
#include <QHash>

namespace quorvane::report {

/// What the names in a definition file stand for: positions in the lists of the definition. A name that
/// stands for nothing, or is given twice, is damage.
class NameList {
public:
    /// What the list holds, as a message says it: "la columna".
    NameList(const Damage& damage, QString what) : m_damage(damage), m_what(std::move(what)) {}

    /// The position is the number of names so far.
    void add(const QString& name, qint64 line);
    /// The position of the name that the attribute gives.
    int position(const Element& element, const QString& attribute) const;

private:
    const Damage& m_damage;
    QString m_what;
    QHash<QString, int> m_positions;
};

/// The names of one file.
struct DefinitionNames {
    explicit DefinitionNames(const Damage& damage);

    NameList columns;
    NameList styles;
    NameList groups;
    NameList formulas;
};

/// Makes a definition of a file whose form is right, and checks what form alone cannot show: that names
/// stand for something, that columns are of the type they are used for; SectionBuilder goes on with the
/// sections.
class DefinitionBuilder {
public:
    DefinitionBuilder(const Damage& damage, QString file);

    Definition build(const Element& root);

private:
    void addPage(const Element& page);
    void addStyle(const Element& element);
    void addColumns(const Element& columns);
    void addWorkedOutColumn(const Element& element, Column& column) const;
    void addFormulas(const Element& formulas);
    void addGroups(const Element& groups);
    void addSort(const Element& sort);

    int columnOf(const Element& element) const {
        return m_names.columns.position(element, QStringLiteral("column"));
    }

    const Damage& m_damage;
    DefinitionNames m_names;
    Definition m_definition;
};

} // namespace quorvane::report
