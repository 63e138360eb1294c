#pragma once

#include <QString>

namespace dalvora {

/// A field of a clicked report line: the name of its report object and the text that it shows.
struct ClickedField {
    QString name;
    QString text;
};

} // namespace dalvora
