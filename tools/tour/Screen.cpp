#include "tools/tour/Screen.h"
#include <QApplication>
#include <QPainter>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace tour {

namespace {

constexpr int titleHeight = 30;
constexpr int margin = 12;
const QColor desk(0xE6, 0xEB, 0xF2);
const QColor titleBar(0x2F, 0x5D, 0x92);

bool hasTitle(const QWidget& window) {
    return window.windowType() == Qt::Window || window.windowType() == Qt::Dialog;
}

/// The window's place with its title bar.
QRect outerRect(const QWidget& window) {
    const QRect inner(window.pos(), window.size());
    return hasTitle(window) ? inner.adjusted(-1, -titleHeight, 1, 1) : inner;
}

void paintWindow(QPainter& painter, QWidget& window) {
    if (hasTitle(window)) {
        const QRect outer = outerRect(window);
        painter.fillRect(outer, titleBar);
        painter.setPen(Qt::white);
        QFont font = window.font();
        font.setBold(true);
        painter.setFont(font);
        painter.drawText(QRect(outer.left() + margin, outer.top(), outer.width(), titleHeight),
                         Qt::AlignLeft | Qt::AlignVCenter, window.windowTitle());
    }
    painter.drawPixmap(window.pos(), window.grab());
}

} // namespace

QList<QWidget*> otherWindows(const QWidget& mainWindow) {
    // The toolkit's list of widgets is in no order; that of the system's windows is the order of their
    // making, in which they lie over each other here.
    const QList<QWindow*> made = QGuiApplication::topLevelWindows();
    QList<QWidget*> windows;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window != &mainWindow && window->isVisible() && window->windowType() != Qt::ToolTip)
            windows << window;
    std::sort(windows.begin(), windows.end(), [&made](const QWidget* first, const QWidget* second) {
        return made.indexOf(first->windowHandle()) < made.indexOf(second->windowHandle());
    });
    return windows;
}

bool bringToFront(QWidget& window) {
    if (!window.isActiveWindow())
        window.activateWindow();
    return window.isActiveWindow();
}

QPixmap pictureOfScreen(QWidget& mainWindow) {
    const QList<QWidget*> windows = QList<QWidget*>{&mainWindow} + otherWindows(mainWindow);
    QRect all;
    for (const QWidget* window : windows)
        all |= outerRect(*window);
    all.adjust(-margin, -margin, margin, margin);
    const qreal scale = mainWindow.devicePixelRatio();
    QPixmap picture(all.size() * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(desk);
    QPainter painter(&picture);
    painter.translate(-all.topLeft());
    for (QWidget* window : windows)
        paintWindow(painter, *window);
    return picture;
}

} // namespace tour
