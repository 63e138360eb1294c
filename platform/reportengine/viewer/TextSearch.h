#pragma once

#include "platform/reportengine/viewer/TextMarks.h"
#include <QBasicTimer>
#include <QObject>
#include <optional>

namespace quorvane::report {

/// Looks for a text through the pages of a report, in slices so that the window stays alive, past the end and
/// on from the beginning. Pages that are still being laid out are waited for.
class TextSearch : public QObject {
    Q_OBJECT
public:
    explicit TextSearch(QObject* parent = nullptr) : QObject(parent) {}

    /// Looks for a folded text (see sought) from a hit on, that one included when `inclusive`; the pages
    /// outlive the search. An unfinished search is given up.
    void find(ReportPages& pages, const QString& folded, bool forward, const TextHit& from, bool inclusive);
    void stop();
    bool isRunning() const { return m_timer.isActive() || m_waiting; }
    int page() const { return m_page; }
    /// More pages are known, or it is known that there are no more.
    void pagesAdded(bool moreToCome);

Q_SIGNALS:
    void found(const quorvane::report::TextHit& hit, bool wrapped);
    void notFound();
    /// Errors of the pages end the search.
    void failed(const QString& reason);
    void progressed(int page);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Step { Found, Ended, Next, Wait };
    Step lookOnPage();
    Step turnPage();
    std::optional<TextHit> choose(const std::vector<TextHit>& hits) const;
    void run();

    ReportPages* m_pages = nullptr;
    QString m_folded;
    bool m_forward = true;
    bool m_inclusive = true;
    TextHit m_from;
    int m_page = 0;
    bool m_wrapped = false;
    bool m_moreToCome = false;
    bool m_waiting = false;
    TextHit m_hit;
    QBasicTimer m_timer;
};

} // namespace quorvane::report
