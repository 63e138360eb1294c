#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace dalvora {

/// The hourglass pointer for as long as this object lives.
class HourGlass {
public:
    HourGlass() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~HourGlass() { QGuiApplication::restoreOverrideCursor(); }
    HourGlass(const HourGlass&) = delete;
    HourGlass& operator=(const HourGlass&) = delete;
};

} // namespace dalvora
