#include "platform/reportengine/definition/ElementReader.h"

#include <QStringDecoder>
#include <algorithm>

namespace quorvane::report {

namespace {

using namespace Qt::StringLiterals;

QString tag(QStringView name) {
    return u"<%1>"_s.arg(quoted(name.toString()).mid(1).chopped(1));
}

bool holds(const Step& step, QStringView name) {
    return std::any_of(step.names.begin(), step.names.end(),
                       [name](const char16_t* candidate) { return name == QStringView(candidate); });
}

/// Counts an element's children along the steps that its rule allows.
class StepWalker {
public:
    StepWalker(const Element& parent, const Damage& damage) : m_parent(parent), m_damage(damage) {}

    void take(QStringView name, qint64 line) {
        const std::span<const Step> steps = m_parent.rule->content;
        for (std::size_t step = m_step; step < steps.size(); ++step) {
            if (!holds(steps[step], name))
                continue;
            leaveUntil(step, line);
            if (++m_taken > steps[step].most)
                m_damage.raise(line, u"hay más elementos %1 de los que admite %2"_s.arg(
                                         tag(name), tag(m_parent.rule->name)));
            return;
        }
        m_damage.raise(line,
                       u"el elemento %1 no va aquí, dentro de %2"_s.arg(tag(name), tag(m_parent.rule->name)));
    }

    void finish(qint64 line) { leaveUntil(m_parent.rule->content.size(), line); }

private:
    void leaveUntil(std::size_t next, qint64 line) {
        for (; m_step < next; ++m_step) {
            const Step& step = m_parent.rule->content[m_step];
            if (m_taken < step.least)
                m_damage.raise(line, u"falta el elemento %1 dentro de %2"_s.arg(tag(step.names.front()),
                                                                                tag(m_parent.rule->name)));
            m_taken = 0;
        }
    }

    const Element& m_parent;
    const Damage& m_damage;
    std::size_t m_step = 0;
    int m_taken = 0;
};

} // namespace

double Element::number(const QString& attribute, double otherwise) const {
    const auto found = attributes.constFind(attribute);
    return found == attributes.constEnd() ? otherwise : found->toDouble();
}

const Element* Element::child(QStringView name) const {
    const auto found = std::find_if(children.begin(), children.end(),
                                    [name](const Element& element) { return element.is(name); });
    return found == children.end() ? nullptr : &*found;
}

Element ElementReader::read() {
    openRoot();
    Element root = readElement(m_line);
    while (!m_xml.atEnd())
        nextToken();
    return root;
}

void ElementReader::openRoot() {
    do
        nextToken();
    while (!m_xml.isStartElement() && !m_xml.atEnd());
    m_line = m_xml.lineNumber();
    if (m_xml.qualifiedName() != u"report"_s || !m_xml.namespaceUri().isEmpty())
        m_damage.raise(m_line,
                       u"el primer elemento debe ser <report> y es %1"_s.arg(tag(m_xml.qualifiedName())));
}

void ElementReader::nextToken() {
    m_line = m_xml.lineNumber();
    m_xml.readNext();
    if (m_xml.hasError())
        raiseMalformed();
    // Whatever a document type could declare, from defaults to bombs of entities, a definition needs none.
    if (m_xml.tokenType() == QXmlStreamReader::DTD || m_xml.isEntityReference())
        m_damage.raise(m_xml.lineNumber(), u"no se admiten declaraciones DOCTYPE ni entidades"_s);
}

Element ElementReader::readElement(qint64 line) {
    Element element;
    element.rule = elementRule(m_xml.name());
    element.line = line;
    readAttributes(element);
    readContent(element);
    return element;
}

void ElementReader::readAttributes(Element& element) {
    const QXmlStreamAttributes attributes = m_xml.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString name = attribute.qualifiedName().toString();
        // Where an editor finds the schema.
        if (attribute.namespaceUri() == u"http://www.w3.org/2001/XMLSchema-instance"_s &&
            attribute.name() == u"noNamespaceSchemaLocation"_s && element.is(u"report"))
            continue;
        const AttributeRule* rule = element.rule->attribute(name);
        if (rule == nullptr)
            m_damage.raise(element.line,
                           u"el atributo %1 de %2 no se conoce"_s.arg(quoted(name), tag(element.rule->name)));
        const QString value = attribute.value().toString();
        if (!rule->value->accepts(value))
            m_damage.raise(element.line, u"el atributo %1 de %2 debe ser %3 y dice %4"_s.arg(
                                             quoted(name), tag(element.rule->name),
                                             rule->value->description(), quoted(value)));
        element.attributes.insert(name, value);
    }
    for (const std::span<const AttributeRule>& set : element.rule->attributes)
        for (const AttributeRule& rule : set)
            if (rule.required && !element.has(QString::fromUtf16(rule.name)))
                m_damage.raise(element.line,
                               u"falta el atributo %1 de %2"_s.arg(quoted(QString::fromUtf16(rule.name)),
                                                                   tag(element.rule->name)));
}

void ElementReader::readContent(Element& element) {
    StepWalker steps(element, m_damage);
    for (nextToken(); !m_xml.isEndElement(); nextToken()) {
        if (m_xml.isStartElement()) {
            refuseUnexpected(element);
            steps.take(m_xml.name(), m_line);
            element.children.push_back(readElement(m_line));
        } else if (m_xml.isCharacters() && !m_xml.isWhitespace()) {
            m_damage.raise(m_line, u"hay texto donde no corresponde, dentro de %1: %2"_s.arg(
                                       tag(element.rule->name), quoted(m_xml.text().toString().trimmed())));
        }
    }
    steps.finish(m_line);
}

void ElementReader::refuseUnexpected(const Element& parent) {
    if (!m_xml.namespaceUri().isEmpty() || elementRule(m_xml.name()) == nullptr)
        m_damage.raise(m_line, u"el elemento %1 no se conoce (dentro de %2)"_s.arg(tag(m_xml.qualifiedName()),
                                                                                   tag(parent.rule->name)));
}

/// The XML reader notices wrong bytes when it takes in the file and then names the first line.
void ElementReader::raiseWrongBytes() const {
    if (!m_xml.documentEncoding().isEmpty() &&
        m_xml.documentEncoding().compare(u"UTF-8"_s, Qt::CaseInsensitive) != 0)
        return;
    const QList<QByteArray> lines = m_bytes.split('\n');
    for (qsizetype line = 0; line < lines.size(); ++line) {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString decoded = decoder(lines[line]);
        if (decoder.hasError())
            m_damage.raise(line + 1, u"hay bytes que no son UTF-8"_s);
    }
}

void ElementReader::raiseMalformed() const {
    raiseWrongBytes();
    const QString reason = m_xml.error() == QXmlStreamReader::PrematureEndOfDocumentError
                               ? u"el documento termina antes de tiempo"_s
                               : u"el XML está mal formado"_s;
    m_damage.raise(m_xml.lineNumber(), u"%1 (columna %2)"_s.arg(reason).arg(m_xml.columnNumber()));
}

} // namespace quorvane::report
