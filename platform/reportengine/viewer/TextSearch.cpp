#include "platform/reportengine/viewer/TextSearch.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QElapsedTimer>
#include <QTimerEvent>
#include <algorithm>
#include <tuple>

namespace quorvane::report {

namespace {

constexpr int sliceTime = 20; // milliseconds

bool isBefore(const TextHit& one, const TextHit& other) {
    return std::tie(one.page, one.text, one.from) < std::tie(other.page, other.text, other.from);
}

} // namespace

void TextSearch::find(ReportPages& pages, const QString& folded, bool forward, const TextHit& from,
                      bool inclusive) {
    m_pages = &pages;
    m_folded = folded;
    m_forward = forward;
    m_from = from;
    m_inclusive = inclusive;
    m_page = from.page;
    m_wrapped = false;
    m_waiting = false;
    m_timer.start(0, this);
    // What stands near by is found at once.
    run();
}

void TextSearch::stop() {
    m_timer.stop();
    m_waiting = false;
}

void TextSearch::pagesAdded(bool moreToCome) {
    m_moreToCome = moreToCome;
    if (m_waiting) {
        m_waiting = false;
        m_timer.start(0, this);
    }
}

void TextSearch::timerEvent(QTimerEvent* event) {
    if (event->timerId() == m_timer.timerId())
        run();
    else
        QObject::timerEvent(event);
}

void TextSearch::run() {
    QElapsedTimer clock;
    clock.start();
    Step step = Step::Next;
    try {
        while (step == Step::Next && clock.elapsed() < sliceTime)
            step = lookOnPage();
    } catch (const RunTimeError& error) {
        stop();
        Q_EMIT failed(error.description());
        return;
    }
    if (step != Step::Next)
        stop();
    m_waiting = step == Step::Wait;
    if (step == Step::Found)
        Q_EMIT found(m_hit, m_wrapped);
    else if (step == Step::Ended)
        Q_EMIT notFound();
    else
        Q_EMIT progressed(m_page);
}

TextSearch::Step TextSearch::lookOnPage() {
    if (m_page < m_pages->count()) {
        const ShownPage shown = m_pages->make(m_page);
        if (const std::optional<TextHit> hit = choose(hitsOn(shown, m_page, m_folded))) {
            m_hit = *hit;
            return Step::Found;
        }
    }
    return turnPage();
}

/// The first hit that counts: on the page where the search began, one on the right side of the beginning.
std::optional<TextHit> TextSearch::choose(const std::vector<TextHit>& hits) const {
    const auto counts = [this](const TextHit& hit) {
        if (m_page != m_from.page || m_wrapped)
            return true;
        if (hit == m_from)
            return m_inclusive;
        return isBefore(hit, m_from) != m_forward;
    };
    if (m_forward) {
        const auto hit = std::find_if(hits.begin(), hits.end(), counts);
        return hit == hits.end() ? std::nullopt : std::optional(*hit);
    }
    const auto hit = std::find_if(hits.rbegin(), hits.rend(), counts);
    return hit == hits.rend() ? std::nullopt : std::optional(*hit);
}

TextSearch::Step TextSearch::turnPage() {
    // Back at the page of the beginning, the whole of it has been looked at.
    if (m_wrapped && m_page == m_from.page)
        return Step::Ended;
    const int last = m_pages->count() - 1;
    const bool atEnd = m_forward ? m_page >= last : m_page <= 0;
    if (!atEnd) {
        m_page += m_forward ? 1 : -1;
        return Step::Next;
    }
    if (m_moreToCome)
        return Step::Wait;
    if (last < 0)
        return Step::Ended;
    m_wrapped = true;
    m_page = m_forward ? 0 : last;
    return Step::Next;
}

} // namespace quorvane::report
