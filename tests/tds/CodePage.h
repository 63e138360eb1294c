#pragma once

#include <QByteArray>
#include <QString>

namespace dalvora::test::tds {

/// A text in code page 1252, that of the Spanish collation; a letter that it does not have becomes "?".
QByteArray toCodePage(const QString& text);
/// What is left of a text that has passed the code page.
QString throughCodePage(const QString& text);

} // namespace dalvora::test::tds
