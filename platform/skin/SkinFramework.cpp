#include "platform/skin/SkinFramework.h"

#include "platform/skin/SkinStyle.h"
#include "platform/skin/StyleFile.h"
#include "platform/skin/UiFont.h"

#include <QApplication>
#include <QToolTip>
#include <QWidget>

namespace skin {

void SkinFramework::loadSkin(const QString& styleFile, const QString& iniName) {
    m_values = readStyleFile(styleFile, iniName);
    m_style = nullptr; // windows that have the old one keep it until they are applied again
    if (m_options & ApplyToNewWindows)
        applyToApplication();
}

SkinStyle* SkinFramework::style() {
    if (!m_style) {
        m_style = new SkinStyle(*m_values);
        m_style->setParent(qApp);
    }
    return m_style;
}

void SkinFramework::applyWindow(QWidget& window) {
    window.setFont(uiFont());
    // A program that leaves the desktop's settings alone would be of the toolkit's dark grey without a skin.
    if (!m_values && !QApplication::desktopSettingsAware())
        QApplication::setPalette(QColor(0xf0, 0xf0, 0xf0));
    if (!m_values || QApplication::style() == m_style)
        return;
    window.setPalette(paletteOf(*m_values));
    window.setStyle(style());
    const QList<QWidget*> children = window.findChildren<QWidget*>();
    for (QWidget* child : children)
        child->setStyle(style());
}

void SkinFramework::setApplyOptions(int options) {
    m_options = options;
    if (m_values && (m_options & ApplyToNewWindows))
        applyToApplication();
}

void SkinFramework::applyToApplication() {
    if (QApplication::style() == style())
        return;
    QApplication::setFont(uiFont());
    QApplication::setStyle(style());
    QToolTip::setPalette(paletteOf(*m_values));
    QToolTip::setFont(uiFont());
}

} // namespace skin
