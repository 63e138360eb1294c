#pragma once

#include "platform/reportengine/viewer/PageView.h"
#include <QToolBar>

class QComboBox;
class QLabel;
class QLineEdit;

namespace quorvane::report {

/// The viewer's bar: its commands as actions under their names, the page on the screen, the zoom.
class ViewerBar : public QToolBar {
    Q_OBJECT
public:
    explicit ViewerBar(QWidget* parent);

    /// A command by its name: "print", "first", "zoomIn", ... Error 9 for an unknown one.
    QAction& action(QStringView name) const;

    /// `page` is counted from 0; `complete` tells that `count` is all of them.
    void showPage(int page, int count, bool complete);
    void showZoom(double zoom, PageView::Fit fit);
    /// Marks the page's number, ready to type another.
    void editPage();

Q_SIGNALS:
    /// A page's position, counted from 0.
    void pageEntered(int page);
    void zoomEntered(double zoom);
    /// An entry is over; the keyboard goes back to the pages.
    void left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addCommands();
    void addPageControls();
    void addZoomControls();
    QString pageText() const;
    void takePage();
    void takeZoom(const QString& text);

    QLineEdit* m_page;
    QLabel* m_count;
    QComboBox* m_zoom;
    int m_shownPage = 0;
    QString m_shownZoom;
};

} // namespace quorvane::report
