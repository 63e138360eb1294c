#include "app/Regional.h"

namespace dalvora {

quorvane::RegionalSettings regionalSettings(const QLocale& locale) {
    quorvane::RegionalSettings settings;
    if (locale.language() != QLocale::Spanish)
        return settings;
    const auto only = [](const QString& text, QChar fallback) {
        return text.size() == 1 ? text[0] : fallback;
    };
    settings.decimalSeparator = only(locale.decimalPoint(), settings.decimalSeparator);
    settings.groupSeparator = only(locale.groupSeparator(), settings.groupSeparator);
    if (settings.groupSeparator == settings.decimalSeparator)
        settings.groupSeparator = settings.decimalSeparator == u',' ? u'.' : u',';
    for (const QChar c : locale.dateFormat(QLocale::ShortFormat)) {
        if (c == u'/' || c == u'-' || c == u'.') {
            settings.dateSeparator = c;
            break;
        }
    }
    return settings;
}

} // namespace dalvora
