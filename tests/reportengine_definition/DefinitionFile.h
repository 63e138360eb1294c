#pragma once

#include "platform/reportengine/definition/DefinitionReader.h"
#include <QTemporaryDir>
#include <optional>

namespace quorvane::report::test {

/// What a reading ends with: the definition, or the error's number and description.
struct Outcome {
    std::optional<Definition> definition;
    int error = 0;
    QString description;
};

/// Definition files in a folder that goes away with the test.
class DefinitionFolder {
public:
    /// The path of a new file "name.rpt" with this content.
    QString write(const QString& name, const QByteArray& content) const;
    /// Writes the file and reads it as a definition.
    Outcome read(const QByteArray& content, const QString& name = QStringLiteral("prueba")) const;

private:
    QTemporaryDir m_folder;
};

/// A definition that holds every element and every attribute.
QByteArray fullDefinition();
/// The least that is a definition.
QByteArray smallDefinition();
/// The text with the first place of one part replaced; the test fails when the part is not in it.
QByteArray with(QByteArray text, const QByteArray& part, const QByteArray& replacement);
/// The shipped definitions' paths.
QStringList shippedDefinitions();

Outcome outcomeOf(const QString& path);

} // namespace quorvane::report::test
