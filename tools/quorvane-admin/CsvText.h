#pragma once

#include <QString>
#include <QStringList>

namespace quorvane::admin {

/// A field of comma-separated values (RFC 4180). Names and texts in the trail come from people: one that a
/// spreadsheet would run as a formula gets an apostrophe in front, since quotes keep no spreadsheet from
/// running it.
inline QString csvField(QString text) {
    if (!text.isEmpty() && QStringLiteral("=+-@\t\r").contains(text.front()))
        text.prepend(u'\'');
    if (text.contains(u',') || text.contains(u'"') || text.contains(u'\n') || text.contains(u'\r'))
        return u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"';
    return text;
}

inline QString csvLine(const QStringList& fields) {
    QStringList quoted;
    for (const QString& field : fields)
        quoted.append(csvField(field));
    return quoted.join(u',') + QStringLiteral("\r\n");
}

} // namespace quorvane::admin
