#pragma once

#include "platform/reportengine/viewer/LineField.h"
#include "platform/reportengine/viewer/PageGeometry.h"
#include "platform/reportengine/viewer/PageImages.h"
#include "platform/reportengine/viewer/PageMouse.h"
#include "platform/reportengine/viewer/TextMarks.h"
#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <limits>
#include <memory>
#include <optional>

namespace quorvane::report {

/// The pages of a report under one another, to scroll, zoom and mark texts on. Any number of them: only those
/// that are to be seen are made.
class PageView : public QAbstractScrollArea {
    Q_OBJECT
public:
    enum class Fit { None, Width, Page };
    static constexpr double smallestZoom = 0.25;
    static constexpr double largestZoom = 4;
    static constexpr int lastPage = std::numeric_limits<int>::max();

    explicit PageView(QWidget* parent = nullptr);
    ~PageView() override;

    /// Shows pages, which outlive the view or are taken away with a null pointer.
    void setPages(ReportPages* pages);
    /// More pages are known.
    void pagesAdded();
    /// The pages look different from now on, since their number is known.
    void pagesChanged();
    /// What stands where pages would, as long as there are none.
    void setEmptyText(const QString& text);

    /// 1 is the size on paper. A zoom outside of the limits becomes the nearest one.
    double zoom() const { return m_zoom; }
    void setZoom(double zoom);
    Fit fit() const { return m_fit; }
    void setFit(Fit fit);
    /// The next larger or smaller zoom of the usual ones.
    void zoomStep(bool larger);

    int currentPage() const { return m_current; }
    /// Brings a page's upper edge to the top; the nearest known page.
    void goToPage(int page);
    /// The same with a place on a page: what stands there comes to the top, or near it.
    void goToPlace(const PagePlace& place);
    /// Scrolls as little as shows the place.
    void reveal(const TextHit& hit, int length);

    /// Marks every place of a folded text on the pages, and one of them as the current one.
    void setMarks(const QString& folded, const std::optional<TextHit>& current);

    /// Lines can be clicked: the pointer shows it over detail lines.
    void setLinesClickable(bool clickable, const QString& toolTip = {});
    bool linesClickable() const { return m_mouse.linesClickable(); }

    bool hasSelection() const { return !m_mouse.selection().isEmpty(); }
    /// Errors are those of ReportPages::make.
    QString selectedText() const;
    void selectCurrentPage();
    void clearSelection();

    ReportPages* pages() const { return m_pages; }
    const PageGeometry& geometryOfPages() const { return m_geometry; }
    QPoint scroll() const;
    /// Screen pixels of a point of the viewport.
    QPoint toPixels(const QPoint& point) const;
    QRect toViewport(const QRect& pixels) const;

Q_SIGNALS:
    void currentPageChanged(int page);
    /// A key asks for a page; `lastPage` for the last one, known or not.
    void pageRequested(int page);
    void zoomChanged();
    void selectionChanged();
    /// The user scrolls, zooms or marks.
    void used();
    void lineClicked(const std::vector<quorvane::report::LineField>& fields);

protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override { m_mouse.press(*event); }
    void mouseMoveEvent(QMouseEvent* event) override { m_mouse.move(*event); }
    void mouseReleaseEvent(QMouseEvent* event) override { m_mouse.release(*event); }
    void timerEvent(QTimerEvent* event) override;

private:
    int inPixels(int length) const;
    double pixelsPerPoint(double zoom) const;
    void relayout();
    /// Another zoom, with the place under a point of the viewport staying where it is.
    void zoomAround(double zoom, const QPoint& fixed);
    void fitAgain();
    void updateCurrentPage();
    void tellCurrentPage(int page);
    bool scrollKey(int key, Qt::KeyboardModifiers modifiers);
    void paintPage(QPainter& painter, int page, const QRect& area);
    void paintMarks(QPainter& painter, int page, const ShownPage& shown);
    void paintEmpty(QPainter& painter);
    /// The window may have come to a screen of another scale.
    void followScreen();
    /// Makes tiles that scrolling will want next; false when they are all there.
    bool makeAhead();

    ReportPages* m_pages = nullptr;
    std::unique_ptr<PageImages> m_images;
    PageGeometry m_geometry;
    PageMouse m_mouse;
    TextMarks m_texts;
    QString m_sought;
    std::optional<TextHit> m_hit;
    QString m_emptyText;
    double m_zoom = 1;
    Fit m_fit = Fit::None;
    int m_current = 0;
    bool m_forward = true; ///< the last scrolling went down
    QBasicTimer m_ahead;
};

} // namespace quorvane::report
