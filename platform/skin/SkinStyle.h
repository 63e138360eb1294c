#pragma once

#include "platform/skin/SkinValues.h"

#include <QPalette>
#include <QProxyStyle>

namespace skin {

/// The palette that goes with the values: what controls draw that paint themselves with palette colours.
QPalette paletteOf(const SkinValues& values);

/// Draws the controls of a program from the values of a skin. Sizes, layout and all that is not listed here
/// stay with the toolkit's Fusion style, so that a control nobody thought of still works and looks related.
class SkinStyle : public QProxyStyle {
    Q_OBJECT

public:
    explicit SkinStyle(SkinValues values);

    const SkinValues& values() const { return m_values; }

    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
    void polish(QWidget* widget) override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;

private:
    bool drawPart(PrimitiveElement element, const QStyleOption& option, QPainter& painter,
                  const QWidget* widget) const;
    void drawMenuItem(const QStyleOption* option, QPainter* painter, const QWidget* widget) const;
    void drawMenuBarItem(const QStyleOption* option, QPainter* painter, const QWidget* widget) const;

    SkinValues m_values;
};

} // namespace skin
