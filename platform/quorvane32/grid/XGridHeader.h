#pragma once

#include <QHeaderView>

namespace quorvane {

struct XGridState;

/// The caption row: flat, in the tint that row 0's cell colours give it, with captions that wrap to as many
/// lines as their column's width needs, so that none is cut.
class XGridHeader : public QHeaderView {
    Q_OBJECT
public:
    XGridHeader(const XGridState& state, QWidget* parent);

    QSize sizeHint() const override;
    /// Width and colours in keeping with the state after a change of captions, widths or font.
    void captionsChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
    QSize sectionSizeFromContents(int section) const override;

private:
    QColor background(int section) const;

    const XGridState& m_state;
};

} // namespace quorvane
