#include "benchmarks/TextRecorder.h"
#include <algorithm>

namespace bench {

class TextRecorder::Engine final : public QPaintEngine {
public:
    explicit Engine(TextRecorder& recorder) : QPaintEngine(AllFeatures), m_recorder(recorder) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawTextItem(const QPointF& place, const QTextItem& item) override {
        m_recorder.m_pages.back().push_back(
            {place, item.text(), m_recorder.lookOf(item.font(), state->pen().color())});
    }

private:
    TextRecorder& m_recorder;
};

TextRecorder::TextRecorder(int dotsPerInch)
    : m_resolution(dotsPerInch), m_engine(std::make_unique<Engine>(*this)) {}

TextRecorder::~TextRecorder() = default;

QPaintEngine* TextRecorder::paintEngine() const {
    return m_engine.get();
}

int TextRecorder::metric(PaintDeviceMetric metric) const {
    constexpr int inches = 12;
    constexpr double millimetres = 25.4;
    switch (metric) {
    case PdmWidth:
    case PdmHeight:
        return inches * m_resolution;
    case PdmWidthMM:
    case PdmHeightMM:
        return static_cast<int>(inches * millimetres);
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return m_resolution;
    case PdmDepth:
        return 32;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    default:
        return QPaintDevice::metric(metric);
    }
}

int TextRecorder::lookOf(const QFont& font, const QColor& colour) {
    const auto found = std::find_if(m_looks.begin(), m_looks.end(), [&](const Look& look) {
        return look.font == font && look.colour == colour;
    });
    if (found != m_looks.end())
        return static_cast<int>(found - m_looks.begin());
    m_looks.push_back({font, colour});
    return static_cast<int>(m_looks.size()) - 1;
}

} // namespace bench
