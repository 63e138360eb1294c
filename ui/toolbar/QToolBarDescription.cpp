#include "ui/toolbar/QToolBarDescription.h"
#include <QActionGroup>
#include <QApplication>
#include <QFontInfo>
#include <QLayout>
#include <QMenu>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>

namespace dalvora::toolbar {

namespace {

/// The toolkit's own button for what does not fit into the toolbar.
const QLatin1String extensionButton("qt_toolbar_ext_button");

bool isExclusive(const QToolButton& button) {
    const QActionGroup* group = button.defaultAction() ? button.defaultAction()->actionGroup() : nullptr;
    return button.autoExclusive() || (group && group->isExclusive());
}

quint8 styleOf(const QToolButton& button) {
    if (button.popupMode() == QToolButton::MenuButtonPopup)
        return StyleDropDown;
    if (!button.isCheckable())
        return StyleButton;
    return isExclusive(button) ? StyleCheckGroup : StyleCheck;
}

quint8 stateOf(const QToolButton& button) {
    quint8 state = button.isEnabled() ? StateEnabled : 0;
    if (button.isChecked())
        state |= StateChecked;
    if (button.isDown())
        state |= StatePressed;
    return state;
}

Qt::ToolButtonStyle shownParts(const QToolButton& button) {
    if (button.toolButtonStyle() != Qt::ToolButtonFollowStyle)
        return button.toolButtonStyle();
    return static_cast<Qt::ToolButtonStyle>(
        button.style()->styleHint(QStyle::SH_ToolButtonStyle, nullptr, &button));
}

ToolbarButton describeButton(const QToolButton& source, IconImages& images) {
    ToolbarButton button;
    button.style = styleOf(source);
    button.state = stateOf(source);
    button.rect = source.geometry();
    const Qt::ToolButtonStyle parts = shownParts(source);
    if (parts != Qt::ToolButtonTextOnly && !source.icon().isNull())
        button.image = images.add(source.icon());
    if (parts != Qt::ToolButtonIconOnly || button.image < 0)
        button.caption = source.text();
    return button;
}

} // namespace

int IconImages::add(const QIcon& icon) {
    m_icons.push_back(icon);
    return static_cast<int>(m_icons.size()) - 1;
}

QPixmap IconImages::image(ImageListKind list, int index) const {
    const QIcon& icon = m_icons.at(static_cast<std::size_t>(index));
    switch (list) {
    case ImageListKind::Normal:
        break;
    case ImageListKind::Hot:
        return icon.pixmap(m_size, m_scale, QIcon::Active);
    case ImageListKind::Disabled:
        return icon.availableSizes(QIcon::Disabled).isEmpty() ? QPixmap()
                                                              : icon.pixmap(m_size, m_scale, QIcon::Disabled);
    }
    return icon.pixmap(m_size, m_scale, QIcon::Normal);
}

bool isPaintedChild(const QWidget& child) {
    if (child.inherits("QToolBarSeparator"))
        return true;
    return qobject_cast<const QToolButton*>(&child) && child.objectName() != extensionButton;
}

QFont pixelFont(const QFont& font) {
    QFont result = font;
    result.setPixelSize(QFontInfo(font).pixelSize());
    return result;
}

ToolbarDescription describeToolbar(const QToolBar& toolbar, bool textOnRight, IconImages& images) {
    ToolbarDescription bar;
    bar.size = toolbar.size();
    bar.iconSize = toolbar.iconSize();
    bar.font = pixelFont(toolbar.font());
    bar.textOnRight = textOnRight;
    bar.cursor = toolbar.mapFromGlobal(QCursor::pos());
    bar.menuOpen = qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr;
    const QLayout& layout = *toolbar.layout();
    for (int i = 0; i < layout.count(); ++i) {
        const QWidget* child = layout.itemAt(i)->widget();
        if (!child || !child->isVisible() || !isPaintedChild(*child))
            continue;
        if (const auto* button = qobject_cast<const QToolButton*>(child))
            bar.buttons.push_back(describeButton(*button, images));
        else
            bar.buttons.push_back({StyleSeparator, StateEnabled, child->geometry(), -1, {}});
    }
    return bar;
}

} // namespace dalvora::toolbar
