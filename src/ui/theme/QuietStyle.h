#pragma once

#include <QtWidgets/QProxyStyle>

namespace driftbox {

/// The style of Qt's own controls in this program: flat, with rounded corners, in the colors of the
/// palette; scroll bars are a thin thumb without buttons. Everything else is left to Fusion.
class QuietStyle final : public QProxyStyle
{
    Q_OBJECT

public:
    QuietStyle();

    void polish(QWidget* widget) override;
    using QProxyStyle::polish;

    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* returnData) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& size, const QWidget* widget) const override;
    [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                       const QWidget* widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl subControl, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;

private:
    void drawScrollBar(const QStyleOptionComplex& option, QPainter& painter,
                       const QWidget* widget) const;
    void drawSlider(const QStyleOptionComplex& option, QPainter& painter,
                    const QWidget* widget) const;
    void drawComboBox(const QStyleOptionComplex& option, QPainter& painter,
                      const QWidget* widget) const;
    void drawSpinBox(const QStyleOptionComplex& option, QPainter& painter,
                     const QWidget* widget) const;
};

} // namespace driftbox
