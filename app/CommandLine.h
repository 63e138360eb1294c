#pragma once

#include <QString>

namespace dalvora {

/// The value of a key in a text of pairs key=value separated by ";": everything between the "=" and the next
/// ";" or the end, blanks included; "" when the key is not there. Keys are found without regard to case.
/// Positions are 16-bit numbers: error 6 for a text of more than 32,767 characters.
QString ParseKeyValues(const QString& text, const QString& key);

/// Major and minor number and, as two digits, the build that leads the revision number: its first two digits
/// when it has more than three, else its first one. 7.13 with revision 1203 is "7.13.12".
QString FormateaVersion(int major, int minor, int revision);

} // namespace dalvora
