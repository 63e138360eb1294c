// The part of SkinStyle that answers questions: sizes, places, habits, icons and the palette.

#include "platform/skin/ImageList.h"
#include "platform/skin/SkinStyle.h"

#include <QCalendarWidget>
#include <QDialogButtonBox>
#include <QStyleOption>

#include <algorithm>

namespace skin {

using namespace Qt::StringLiterals;

namespace {

/// Where the title of a group box starts, pixels at 96 dpi.
constexpr int titleIndent = 12;
constexpr int titleGap = 4;
/// Height that a list's line has beyond its text, and that of a separator in a menu.
constexpr int itemRoom = 4;
constexpr int separatorHeight = 7;
/// Room on both sides of the sign in a small button.
constexpr int signMargin = 6;

/// Sizes of the two things that stand on the upper edge of a group box.
struct GroupTitle {
    QSize text;
    int indicator;

    int height() const { return std::max(text.height(), indicator); }
};

GroupTitle groupTitle(const QStyleOptionGroupBox& box, int indicator) {
    GroupTitle title{{0, 0}, 0};
    if (box.subControls & QStyle::SC_GroupBoxCheckBox)
        title.indicator = indicator;
    if (!box.text.isEmpty()) {
        title.text = {box.fontMetrics.size(Qt::TextShowMnemonic | Qt::TextSingleLine, box.text).width() + 2,
                      box.fontMetrics.height()};
    }
    return title;
}

/// "?" or "...", as buttons beside a field carry it.
bool isSign(const QString& text) {
    return std::none_of(text.begin(), text.end(), [](QChar c) { return c.isLetterOrNumber(); });
}

QRect groupBoxRect(const QStyleOptionGroupBox& box, QStyle::SubControl part, int indicator) {
    const GroupTitle title = groupTitle(box, indicator);
    const QRect& all = box.rect;
    const int boxWidth = title.indicator > 0 ? title.indicator + titleGap : 0;
    const int left = all.left() + titleIndent;
    const auto mirrored = [&](const QRect& rect) { return QStyle::visualRect(box.direction, all, rect); };
    switch (part) {
    case QStyle::SC_GroupBoxFrame:
        return all.adjusted(0, title.height() / 2, 0, 0);
    case QStyle::SC_GroupBoxContents:
        return all.adjusted(1, std::max(1, title.height()), -1, -1);
    case QStyle::SC_GroupBoxCheckBox:
        return mirrored(
            {left, all.top() + (title.height() - title.indicator) / 2, title.indicator, title.indicator});
    default:
        return mirrored({left + boxWidth, all.top(), title.text.width(), title.height()});
    }
}

} // namespace

QPalette paletteOf(const SkinValues& values) {
    const auto c = [&values](Colour role) { return values.colour(role); };
    QPalette palette(c(Colour::Window));
    const auto everywhere = [&palette](QPalette::ColorRole role, const QColor& colour) {
        palette.setColor(QPalette::All, role, colour);
    };
    everywhere(QPalette::Window, c(Colour::Window));
    everywhere(QPalette::WindowText, c(Colour::WindowText));
    everywhere(QPalette::Base, c(Colour::FieldBase));
    everywhere(QPalette::AlternateBase, c(Colour::FieldAlternate));
    everywhere(QPalette::Text, c(Colour::FieldText));
    everywhere(QPalette::PlaceholderText, c(Colour::PlaceholderText));
    everywhere(QPalette::Button, c(Colour::Window));
    everywhere(QPalette::ButtonText, c(Colour::ButtonText));
    everywhere(QPalette::BrightText, c(Colour::SelectionText));
    everywhere(QPalette::Highlight, c(Colour::Selection));
    everywhere(QPalette::HighlightedText, c(Colour::SelectionText));
    everywhere(QPalette::Link, c(Colour::Link));
    everywhere(QPalette::LinkVisited, c(Colour::Link));
    everywhere(QPalette::ToolTipBase, c(Colour::ToolTipBase));
    everywhere(QPalette::ToolTipText, c(Colour::ToolTipText));
    everywhere(QPalette::Light, c(Colour::BarLight));
    everywhere(QPalette::Midlight, c(Colour::GridLine));
    everywhere(QPalette::Mid, c(Colour::FrameBorder));
    everywhere(QPalette::Dark, c(Colour::FieldBorder));
    palette.setColor(QPalette::Inactive, QPalette::Highlight, c(Colour::IdleSelection));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, c(Colour::IdleSelectionText));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, c(Colour::IdleSelection));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, c(Colour::IdleSelectionText));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, c(Colour::DisabledText));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, c(Colour::DisabledText));
    palette.setColor(QPalette::Disabled, QPalette::Text, c(Colour::LockedText));
    palette.setColor(QPalette::Disabled, QPalette::Base, c(Colour::LockedBase));
    return palette;
}

QRect SkinStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                const QWidget* widget) const {
    if (control == CC_GroupBox) {
        if (const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option))
            return groupBoxRect(*box, part, m_values.measure(Measure::Indicator));
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize SkinStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    const QSize base = QProxyStyle::sizeFromContents(type, option, size, widget);
    const auto atLeast = [this, &base](Measure height) {
        return base.expandedTo(QSize(0, m_values.measure(height)));
    };
    switch (type) {
    case CT_PushButton: {
        // A command has a size people can hit; a button with one sign beside a field stays small.
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        const int height = m_values.measure(Measure::ButtonHeight);
        if (button && isSign(button->text))
            return {std::max(size.width() + 2 * signMargin, height), height};
        return base.expandedTo({m_values.measure(Measure::ButtonWidth), height});
    }
    case CT_ToolButton: {
        const int padding = 2 * m_values.measure(Measure::ToolPadding);
        return size + QSize(padding, padding);
    }
    case CT_LineEdit:
    case CT_ComboBox:
    case CT_SpinBox:
        return atLeast(Measure::FieldHeight);
    case CT_MenuItem: {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (item && item->menuItemType == QStyleOptionMenuItem::Separator && item->text.isEmpty())
            return {base.width(), separatorHeight};
        return atLeast(Measure::MenuItemHeight);
    }
    case CT_ItemViewItem:
        return base + QSize(0, itemRoom);
    case CT_TabBarTab:
        return atLeast(Measure::TabHeight);
    case CT_HeaderSection:
        return atLeast(Measure::HeaderHeight);
    default:
        return base;
    }
}

int SkinStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_ToolBarIconSize:
        return m_values.measure(Measure::ToolIcon);
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return m_values.measure(Measure::Indicator);
    case PM_ScrollBarExtent:
        return m_values.measure(Measure::ScrollBar);
    case PM_TabBarTabHSpace:
        return 2 * m_values.measure(Measure::TabPadding);
    case PM_TabBarTabShiftVertical:
    case PM_TabBarTabShiftHorizontal:
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_ToolBarFrameWidth:
    case PM_MenuBarPanelWidth:
        return 0;
    case PM_ToolBarItemMargin:
    case PM_MenuBarVMargin:
        return 2;
    case PM_ToolBarItemSpacing:
    case PM_MenuBarItemSpacing:
        return 1;
    case PM_MenuBarHMargin:
        return 4;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return 6;
    case PM_MenuPanelWidth:
        return 1;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return 2;
    case PM_DefaultFrameWidth:
        return 1;
    case PM_MessageBoxIconSize:
        return 32;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int SkinStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* result) const {
    switch (hint) {
    case SH_ComboBox_Popup:
    case SH_EtchDisabledText:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_Widget_Animation_Duration:
        return 0;
    case SH_UnderlineShortcut:
        return 1;
    case SH_DialogButtonLayout:
        return QDialogButtonBox::WinLayout;
    case SH_Table_GridLineColor:
        return static_cast<int>(m_values.colour(Colour::GridLine).rgba());
    case SH_ToolTipLabel_Opacity:
        return 255;
    default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

QIcon SkinStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    switch (icon) {
    case SP_MessageBoxInformation:
        return messageIcon(u"informacion"_s);
    case SP_MessageBoxQuestion:
        return messageIcon(u"pregunta"_s);
    case SP_MessageBoxWarning:
        return messageIcon(u"advertencia"_s);
    case SP_MessageBoxCritical:
        return messageIcon(u"error"_s);
    case SP_ArrowLeft:
        if (qobject_cast<const QCalendarWidget*>(widget))
            return arrowIcon(u"anterior"_s);
        break;
    case SP_ArrowRight:
        if (qobject_cast<const QCalendarWidget*>(widget))
            return arrowIcon(u"siguiente"_s);
        break;
    // Every menu bar and toolbar makes this button when it is made: the toolkit's own picture would load all
    // readers of image formats into each start of the program.
    case SP_ToolBarHorizontalExtensionButton:
        return arrowIcon(u"mas"_s);
    case SP_ToolBarVerticalExtensionButton:
        return arrowIcon(u"masabajo"_s);
    default:
        break;
    }
    return QProxyStyle::standardIcon(icon, option, widget);
}

} // namespace skin
