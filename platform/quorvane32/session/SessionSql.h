#pragma once

#include <QString>

namespace quorvane {

/// A text as an SQL literal, quotes included.
inline QString sqlText(QString text) {
    return u'\'' + text.replace(u'\'', QStringLiteral("''")) + u'\'';
}

} // namespace quorvane
