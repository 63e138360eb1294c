#pragma once

#include "platform/reportengine/definition/Damage.h"
#include "platform/reportengine/definition/Grammar.h"
#include <QByteArray>
#include <QHash>
#include <QXmlStreamReader>
#include <vector>

namespace quorvane::report {

/// An element of a definition file whose form is right: known, in its place, with the attributes that it
/// must have and none that it may not.
struct Element {
    const ElementRule* rule = nullptr;
    qint64 line = 0;
    QHash<QString, QString> attributes;
    std::vector<Element> children;

    bool is(QStringView name) const { return name == QStringView(rule->name); }
    bool has(const QString& attribute) const { return attributes.contains(attribute); }
    QString text(const QString& attribute, const QString& otherwise = {}) const {
        return attributes.value(attribute, otherwise);
    }
    double number(const QString& attribute, double otherwise = 0) const;
    bool truth(const QString& attribute) const { return text(attribute) == QLatin1String("true"); }
    /// The first child of that name, null without one.
    const Element* child(QStringView name) const;
};

/// Reads the XML of a definition and holds it against the grammar as it goes, so that a wrong file is given
/// up at its first wrong element, however long it is. Only what the grammar knows is ever kept, and it is
/// four elements deep at most, so neither size nor nesting can be blown up.
class ElementReader {
public:
    ElementReader(const QByteArray& xml, const Damage& damage) : m_bytes(xml), m_xml(xml), m_damage(damage) {}

    /// The root element. Error 321 for anything that is not a definition in form.
    Element read();

private:
    void nextToken();
    void openRoot();
    Element readElement(qint64 line);
    void readAttributes(Element& element);
    void readContent(Element& element);
    void refuseUnexpected(const Element& parent);
    [[noreturn]] void raiseMalformed() const;
    void raiseWrongBytes() const;

    QByteArray m_bytes;
    QXmlStreamReader m_xml;
    const Damage& m_damage;
    qint64 m_line = 1; ///< where the token begins
};

} // namespace quorvane::report
