#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QTimer;

namespace quorvane::report {

/// What the viewer is working on, how far it is, and a button that stops it. It shows after a moment only, so
/// that short work does not flicker.
class WorkBar : public QWidget {
    Q_OBJECT
public:
    explicit WorkBar(QWidget* parent = nullptr);

    /// `total` 0: nobody knows how much there is.
    void showWork(const QString& text, qint64 done, qint64 total);
    void done();

Q_SIGNALS:
    void stopWanted();

private:
    QLabel* m_text;
    QProgressBar* m_progress;
    QTimer* m_delay;
};

} // namespace quorvane::report
