#pragma once

#include <QStringView>

namespace dalvora {

/// The text without the blanks at both ends; tabs and line breaks stay, they are no blanks.
inline QStringView withoutOuterBlanks(QStringView text) {
    while (text.startsWith(u' '))
        text = text.mid(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

} // namespace dalvora
