#pragma once

#include <QColor>
#include <QFont>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPointF>
#include <QString>
#include <memory>
#include <vector>

namespace bench {

/// A text as it was drawn.
struct DrawnText {
    QPointF place; ///< of its baseline, in the painter's units
    QString text;
    int look = 0; ///< position in TextRecorder::looks()
};

/// A device that draws nothing and remembers the texts, so that they can be drawn again without anybody who
/// works out where they go.
class TextRecorder final : public QPaintDevice {
public:
    struct Look {
        QFont font;
        QColor colour;
    };

    explicit TextRecorder(int dotsPerInch);
    ~TextRecorder() override;

    void newPage() { m_pages.emplace_back(); }
    const std::vector<std::vector<DrawnText>>& pages() const { return m_pages; }
    const std::vector<Look>& looks() const { return m_looks; }
    QPaintEngine* paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    class Engine;
    int lookOf(const QFont& font, const QColor& colour);

    int m_resolution;
    std::vector<std::vector<DrawnText>> m_pages;
    std::vector<Look> m_looks;
    std::unique_ptr<Engine> m_engine;
};

} // namespace bench
