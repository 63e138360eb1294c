#include "platform/quorvane32/core/odbc/OdbcAddress.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/ConnectString.h"
#include <algorithm>

namespace quorvane::odbc {

namespace {

bool isControl(QChar c) {
    return c.unicode() < 0x20 || c.unicode() == 0x7f;
}

bool isPlain(const QString& value) {
    return value == value.trimmed() &&
           std::ranges::none_of(value, [](QChar c) { return QStringView(u"[]{}(),;?*=!@").contains(c); });
}

[[noreturn]] void refuse(const QString& keyword) {
    throw RunTimeError(
        ErrorInvalidCall,
        QStringLiteral("El controlador ODBC no admite el valor de %1 del perfil").arg(keyword));
}

} // namespace

void OdbcAddress::add(const QString& keyword, const QString& value) {
    if (value.isEmpty())
        return;
    const auto unusual = [](QChar c) { return !c.isLetterOrNumber() && c != u'_' && c != u' '; };
    const bool ends = m_braces == Braces::Plain && value.contains(QLatin1String("};"));
    if (keyword.isEmpty() || std::ranges::any_of(keyword, unusual) || ends ||
        std::ranges::any_of(value, isControl))
        refuse(keyword);
    for (Pair& pair : m_pairs)
        if (pair.keyword.compare(keyword, Qt::CaseInsensitive) == 0) {
            pair.value = value;
            return;
        }
    m_pairs.push_back({keyword, value});
}

void OdbcAddress::addAll(const QString& text) {
    const ConnectString further = ConnectString::parse(text);
    for (const QString& keyword : further.keys()) {
        constexpr QStringView ours[] = {u"driver", u"dsn", u"filedsn", u"uid", u"pwd", u"savefile"};
        if (std::ranges::find(ours, keyword) == std::end(ours))
            add(keyword, further.value(keyword));
    }
}

QString OdbcAddress::written(const Pair& pair) const {
    if (isPlain(pair.value))
        return pair.keyword + u'=' + pair.value;
    QString value = pair.value;
    if (m_braces == Braces::Doubled)
        value.replace(u'}', QLatin1String("}}"));
    return pair.keyword + QLatin1String("={") + value + u'}';
}

QString OdbcAddress::text() const {
    QString text;
    for (const Pair& pair : m_pairs)
        text += written(pair) + u';';
    return text;
}

} // namespace quorvane::odbc
