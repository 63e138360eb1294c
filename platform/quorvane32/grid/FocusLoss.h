#pragma once

#include <QFocusEvent>
#include <QWidget>

namespace quorvane {

/// True when the widget with the focus is the given one or within it, also in a popup that belongs to it.
bool holdsFocusWithin(const QWidget& outer);

/// True when losing the focus ends an entry: it went to another control or window of the program. A popup
/// (a context menu, the entry's own list) or a switch to another program and back does not end it.
bool endsEntry(const QWidget& entry, const QFocusEvent& event);

} // namespace quorvane
