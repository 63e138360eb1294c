#include "platform/quorvane32/grid/FocusLoss.h"
#include <QApplication>

namespace quorvane {

bool holdsFocusWithin(const QWidget& outer) {
    for (const QWidget* inner = QApplication::focusWidget(); inner; inner = inner->parentWidget()) {
        if (inner == &outer)
            return true;
    }
    return false;
}

bool endsEntry(const QWidget& entry, const QFocusEvent& event) {
    if (holdsFocusWithin(entry))
        return false;
    switch (event.reason()) {
    case Qt::PopupFocusReason:
        return false;
    case Qt::ActiveWindowFocusReason:
        return QApplication::activeWindow() != nullptr;
    default:
        return true;
    }
}

} // namespace quorvane
