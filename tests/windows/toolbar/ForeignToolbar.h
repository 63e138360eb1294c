#pragma once

#include "ui/toolbar/NativeWindows.h"
#include <QProcess>
#include <QString>

namespace toolbar_test {

QString holdOption();

/// Shows a toolbar in a window, writes the window's handle and waits until its input ends; exit code.
int holdToolbar();

/// A toolbar in a window of another process: this program, started once more.
class ForeignToolbar {
public:
    ForeignToolbar();
    ~ForeignToolbar();
    Q_DISABLE_COPY_MOVE(ForeignToolbar)

    /// 0 when the process did not come up.
    dalvora::toolbar::NativeHandle container() const { return m_container; }

private:
    QProcess m_process;
    dalvora::toolbar::NativeHandle m_container = 0;
};

} // namespace toolbar_test
