#pragma once

// What the style draws by itself, one function for each kind of part. All take the style's values, the option
// that Qt describes the control with, and the painter in logical coordinates.

#include "platform/skin/SkinValues.h"

class QPainter;
class QProxyStyle;
class QStyle;
class QStyleOption;
class QStyleOptionButton;
class QStyleOptionComboBox;
class QStyleOptionFrame;
class QStyleOptionGroupBox;
class QStyleOptionHeader;
class QStyleOptionMenuItem;
class QStyleOptionSlider;
class QStyleOptionSpinBox;
class QStyleOptionTab;
class QStyleOptionTabWidgetFrame;
class QStyleOptionToolBar;
class QRect;
class QWidget;

namespace skin {

/// Where an arrow points.
enum class Pointing { Up, Down, Left, Right };

// Buttons.cpp
void paintButtonFace(const SkinValues& values, const QStyleOptionButton& option, QPainter& painter);
void paintToolFace(const SkinValues& values, const QStyleOption& option, QPainter& painter);
void paintCheckBox(const SkinValues& values, const QStyleOption& option, QPainter& painter);
void paintRadioButton(const SkinValues& values, const QStyleOption& option, QPainter& painter);
void paintFocusRect(const SkinValues& values, const QStyleOption& option, QPainter& painter);

// Fields.cpp
void paintFieldFrame(const SkinValues& values, const QStyleOption& option, QPainter& painter);
void paintComboBox(const SkinValues& values, const QStyle& style, const QStyleOptionComboBox& option,
                   QPainter& painter, const QWidget* widget);
void paintSpinBox(const SkinValues& values, const QStyle& style, const QStyleOptionSpinBox& option,
                  QPainter& painter, const QWidget* widget);
void paintArrow(const SkinValues& values, Pointing pointing, const QRect& rect, bool enabled,
                QPainter& painter);

// Frames.cpp
void paintPanelFrame(const SkinValues& values, const QStyleOption& option, QPainter& painter);
void paintGroupBox(const SkinValues& values, const QStyle& style, const QStyleOptionGroupBox& option,
                   QPainter& painter, const QWidget* widget);
void paintTabPane(const SkinValues& values, const QStyleOptionTabWidgetFrame& option, QPainter& painter);
void paintTab(const SkinValues& values, const QStyleOptionTab& option, QPainter& painter);
void paintHeaderSection(const SkinValues& values, const QStyleOptionHeader& option, QPainter& painter);
void paintToolTip(const SkinValues& values, const QStyleOption& option, QPainter& painter);

// Bars.cpp
void paintToolBar(const SkinValues& values, const QStyleOption& option, QPainter& painter);
void paintToolSeparator(const SkinValues& values, const QStyleOption& option, QPainter& painter);
void paintStatusBar(const SkinValues& values, const QStyleOption& option, QPainter& painter);
void paintStatusItem(const SkinValues& values, const QStyleOption& option, QPainter& painter);
void paintMenuBar(const SkinValues& values, const QStyleOption& option, QPainter& painter);
void paintHotFace(const SkinValues& values, const QStyleOption& option, bool pressed, QPainter& painter);
void paintMenuPanel(const SkinValues& values, const QStyleOption& option, QPainter& painter);
void paintMenuSeparator(const SkinValues& values, const QStyleOption& option, QPainter& painter);

// ScrollBars.cpp
void paintScrollBar(const SkinValues& values, const QStyle& style, const QStyleOptionSlider& option,
                    QPainter& painter, const QWidget* widget);

} // namespace skin
