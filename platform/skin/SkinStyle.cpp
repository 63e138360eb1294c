#include "platform/skin/SkinStyle.h"

#include "platform/skin/paint/Painting.h"

#include <QCalendarWidget>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPainter>
#include <QStatusBar>
#include <QStyleOption>
#include <QTabBar>
#include <QTextCharFormat>
#include <QToolButton>

namespace skin {

using namespace Qt::StringLiterals;

namespace {

/// Room between a status panel's edge and its text, pixels at 96 dpi.
constexpr int statusIndent = 6;
/// What the toolkit's status bar adds to the height of its panels.
constexpr int statusMargins = 5;

/// The toolkit's own weekends are too bright a red to be read on white; a colour that the program chose
/// stays.
void polishCalendar(const SkinValues& values, QCalendarWidget& calendar) {
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
        QTextCharFormat format = calendar.weekdayTextFormat(day);
        if (format.foreground().color() == QColor(Qt::red)) {
            format.setForeground(values.colour(Colour::WeekEnd));
            calendar.setWeekdayTextFormat(day, format);
        }
    }
}

} // namespace

SkinStyle::SkinStyle(SkinValues values) : QProxyStyle(u"Fusion"_s), m_values(std::move(values)) {}

void SkinStyle::polish(QPalette& palette) {
    palette = paletteOf(m_values);
}

void SkinStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QLineEdit*>(widget) || qobject_cast<QTabBar*>(widget) ||
        qobject_cast<QHeaderView*>(widget) || qobject_cast<QToolButton*>(widget))
        widget->setAttribute(Qt::WA_Hover);
    else if (auto* calendar = qobject_cast<QCalendarWidget*>(widget))
        polishCalendar(m_values, *calendar);
    else if (auto* label = qobject_cast<QLabel*>(widget);
             label && qobject_cast<QStatusBar*>(label->parent())) {
        // The bar takes its height from its panels.
        label->setIndent(statusIndent);
        label->setMinimumHeight(m_values.measure(Measure::StatusHeight) - statusMargins);
    }
}

bool SkinStyle::drawPart(PrimitiveElement element, const QStyleOption& option, QPainter& painter,
                         const QWidget* widget) const {
    const bool enabled = option.state & State_Enabled;
    switch (element) {
    case PE_PanelButtonCommand:
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option))
            return paintButtonFace(m_values, *button, painter), true;
        return false;
    case PE_PanelButtonTool:
        return paintToolFace(m_values, option, painter), true;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        return paintCheckBox(m_values, option, painter), true;
    case PE_IndicatorRadioButton:
        return paintRadioButton(m_values, option, painter), true;
    case PE_FrameFocusRect:
        return paintFocusRect(m_values, option, painter), true;
    case PE_FrameLineEdit:
        return paintFieldFrame(m_values, option, painter), true;
    case PE_PanelLineEdit: {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
        if (!frame || frame->lineWidth <= 0)
            return false;
        return paintFieldFrame(m_values, option, painter), true;
    }
    case PE_Frame:
        return paintPanelFrame(m_values, option, painter), true;
    case PE_FrameTabWidget:
        if (const auto* pane = qstyleoption_cast<const QStyleOptionTabWidgetFrame*>(&option))
            return paintTabPane(m_values, *pane, painter), true;
        return false;
    case PE_PanelTipLabel:
        return paintToolTip(m_values, option, painter), true;
    case PE_IndicatorToolBarSeparator:
        return paintToolSeparator(m_values, option, painter), true;
    case PE_PanelStatusBar:
        return paintStatusBar(m_values, option, painter), true;
    case PE_FrameStatusBarItem:
        return paintStatusItem(m_values, option, painter), true;
    case PE_PanelMenu:
        return paintMenuPanel(m_values, option, painter), true;
    case PE_FrameMenu: // the panel has drawn it
        return true;
    case PE_IndicatorArrowUp:
        return paintArrow(m_values, Pointing::Up, option.rect, enabled, painter), true;
    case PE_IndicatorArrowDown:
        return paintArrow(m_values, Pointing::Down, option.rect, enabled, painter), true;
    case PE_IndicatorArrowLeft:
        return paintArrow(m_values, Pointing::Left, option.rect, enabled, painter), true;
    case PE_IndicatorArrowRight:
        return paintArrow(m_values, Pointing::Right, option.rect, enabled, painter), true;
    default:
        Q_UNUSED(widget);
        return false;
    }
}

void SkinStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    if (!option || !painter || !drawPart(element, *option, *painter, widget))
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void SkinStyle::drawMenuItem(const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (!item)
        return;
    if (item->menuItemType == QStyleOptionMenuItem::Separator && item->text.isEmpty()) {
        paintMenuSeparator(m_values, *item, *painter);
        return;
    }
    const bool enabled = item->state & State_Enabled;
    const bool selected = enabled && (item->state & State_Selected);
    if (selected)
        paintHotFace(m_values, *item, false, *painter);
    // Fusion sets text, icon and shortcut; it is told that nothing is selected, the face is drawn already.
    QStyleOptionMenuItem plain(*item);
    plain.state &= ~State_Selected;
    const QColor text = m_values.colour(!enabled   ? Colour::MenuDisabledText
                                        : selected ? Colour::HotText
                                                   : Colour::MenuText);
    for (const auto role : {QPalette::ButtonText, QPalette::Text, QPalette::WindowText})
        plain.palette.setColor(role, text);
    QProxyStyle::drawControl(CE_MenuItem, &plain, painter, widget);
}

void SkinStyle::drawMenuBarItem(const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (!item)
        return;
    painter->save();
    painter->setClipRect(item->rect, Qt::IntersectClip);
    QStyleOption bar(*item);
    if (widget)
        bar.rect = widget->rect();
    paintMenuBar(m_values, bar, *painter);
    painter->restore();
    const bool enabled = item->state & State_Enabled;
    const bool open = item->state & State_Sunken;
    if (enabled && (item->state & State_Selected))
        paintHotFace(m_values, *item, open, *painter);
    int flags = Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextDontClip | Qt::TextSingleLine;
    if (!styleHint(SH_UnderlineShortcut, item, widget, nullptr))
        flags |= Qt::TextHideMnemonic;
    painter->setPen(m_values.colour(enabled ? Colour::MenuText : Colour::MenuDisabledText));
    painter->drawText(item->rect, flags, item->text);
}

void SkinStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    if (!option || !painter)
        return;
    switch (element) {
    case CE_TabBarTabShape: {
        const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
        if (tab && tab->shape == QTabBar::RoundedNorth)
            return paintTab(m_values, *tab, *painter);
        break;
    }
    case CE_HeaderSection:
        if (const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option))
            return paintHeaderSection(m_values, *header, *painter);
        break;
    case CE_HeaderEmptyArea: {
        QStyleOptionHeader empty;
        empty.rect = option->rect;
        return paintHeaderSection(m_values, empty, *painter);
    }
    case CE_ToolBar:
        return paintToolBar(m_values, *option, *painter);
    case CE_MenuItem:
        return drawMenuItem(option, painter, widget);
    case CE_MenuBarItem:
        return drawMenuBarItem(option, painter, widget);
    case CE_MenuBarEmptyArea:
        return paintMenuBar(m_values, *option, *painter);
    default:
        break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void SkinStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    switch (control) {
    case CC_ComboBox:
        if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option))
            return paintComboBox(m_values, *this, *combo, *painter, widget);
        break;
    case CC_SpinBox:
        if (const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option))
            return paintSpinBox(m_values, *this, *spin, *painter, widget);
        break;
    case CC_GroupBox:
        if (const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option))
            return paintGroupBox(m_values, *this, *box, *painter, widget);
        break;
    case CC_ScrollBar:
        if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option))
            return paintScrollBar(m_values, *this, *bar, *painter, widget);
        break;
    default:
        break;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

} // namespace skin
