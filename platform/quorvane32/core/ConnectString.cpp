#include "platform/quorvane32/core/ConnectString.h"

namespace quorvane {

namespace {

/// The value that starts at `from`, which is moved behind the ";" that ends it.
QString takeValue(const QString& text, qsizetype& from) {
    QString value;
    while (from < text.size() && text[from].isSpace())
        ++from;
    if (from < text.size() && text[from] == u'{') {
        ++from;
        while (from < text.size()) {
            if (text[from] == u'}') {
                if (from + 1 >= text.size() || text[from + 1] != u'}')
                    break;
                ++from;
            }
            value += text[from++];
        }
        const auto end = text.indexOf(u';', from);
        from = end < 0 ? text.size() : end + 1;
        return value;
    }
    const auto end = text.indexOf(u';', from);
    value = text.mid(from, end < 0 ? -1 : end - from).trimmed();
    from = end < 0 ? text.size() : end + 1;
    return value;
}

} // namespace

ConnectString ConnectString::parse(const QString& text) {
    ConnectString result;
    qsizetype at = 0;
    while (at < text.size()) {
        const auto equals = text.indexOf(u'=', at);
        if (equals < 0)
            break;
        const QString key = text.mid(at, equals - at).trimmed();
        at = equals + 1;
        result.setValue(key, takeValue(text, at));
    }
    return result;
}

QString ConnectString::value(const QString& key, const QString& fallback) const {
    return m_values.value(key.toLower(), fallback);
}

int ConnectString::number(const QString& key, int fallback) const {
    bool ok = false;
    const int number = value(key).toInt(&ok);
    return ok ? number : fallback;
}

void ConnectString::setValue(const QString& key, const QString& value) {
    m_values.insert(key.toLower(), value);
}

QString ConnectString::toString() const {
    QString text;
    for (auto pair = m_values.begin(); pair != m_values.end(); ++pair) {
        QString value = pair.value();
        if (value.contains(u';') || value.startsWith(u'{') || value != value.trimmed())
            value = u'{' + value.replace(QStringLiteral("}"), QStringLiteral("}}")) + u'}';
        text += pair.key() + u'=' + value + u';';
    }
    return text;
}

} // namespace quorvane
