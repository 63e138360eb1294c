#pragma once

#include <QByteArray>
#include <QString>

namespace quorvane {

/// The text of a DDE command as it arrives: UTF-16, or the system's 8-bit code page from an older program,
/// with or without a NUL and padding behind it. DDE does not say which; text in Western letters has a zero in
/// the upper half of most of its characters.
QString ddeCommandText(const QByteArray& bytes);

} // namespace quorvane
