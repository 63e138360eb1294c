#include "app/CommandLine.h"
#include "platform/quorvane32/base/RunTimeError.h"

namespace dalvora {

QString ParseKeyValues(const QString& text, const QString& key) {
    constexpr int lastPosition = 32767;
    if (text.size() > lastPosition)
        quorvane::raise(quorvane::ErrorOverflow);
    const QString sought = u';' + key + u'=';
    const auto found = (u';' + text).indexOf(sought, 0, Qt::CaseInsensitive);
    if (found < 0)
        return {};
    // Both texts begin with the added ";", so positions in `text` are one less.
    const auto start = found + sought.size() - 1;
    const auto end = text.indexOf(u';', start);
    return text.mid(start, end < 0 ? -1 : end - start);
}

QString FormateaVersion(int major, int minor, int revision) {
    const QString digits = QString::number(revision);
    const QString build = digits.left(digits.size() > 3 ? 2 : 1);
    return QStringLiteral("%1.%2.%3").arg(major).arg(minor).arg(build.toInt(), 2, 10, QLatin1Char('0'));
}

} // namespace dalvora
