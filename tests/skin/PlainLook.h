#pragma once

#include <QApplication>
#include <QFont>
#include <QStyleFactory>

/// Leaves the application in the toolkit's own look when a test that skins it ends.
class PlainLook {
public:
    PlainLook() = default;
    ~PlainLook() {
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        QApplication::setFont(m_font);
    }
    Q_DISABLE_COPY_MOVE(PlainLook)

private:
    QFont m_font = QApplication::font();
};
