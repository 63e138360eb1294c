#include "platform/reportengine/viewer/WorkBar.h"
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

namespace quorvane::report {

using namespace Qt::StringLiterals;

namespace {

constexpr int showAfter = 400; // milliseconds
constexpr int progressWidth = 180;
constexpr int progressHeight = 12;
constexpr int whole = 1000;

} // namespace

WorkBar::WorkBar(QWidget* parent)
    : QWidget(parent)
    , m_text(new QLabel(this))
    , m_progress(new QProgressBar(this))
    , m_delay(new QTimer(this)) {
    setObjectName(u"work"_s);
    m_text->setObjectName(u"workText"_s);
    m_text->setTextFormat(Qt::PlainText);
    m_progress->setFixedSize(progressWidth, progressHeight);
    m_progress->setTextVisible(false);
    m_progress->setAccessibleName(u"Avance"_s);
    auto* stop = new QPushButton(u"&Detener"_s, this);
    stop->setObjectName(u"workStop"_s);
    stop->setToolTip(u"Detener; lo que está listo se conserva (Esc)"_s);
    stop->setFocusPolicy(Qt::TabFocus);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(10, 4, 8, 4);
    row->setSpacing(12);
    row->addWidget(m_text, 1);
    row->addWidget(m_progress);
    row->addWidget(stop);
    m_delay->setSingleShot(true);
    m_delay->setInterval(showAfter);
    connect(m_delay, &QTimer::timeout, this, &QWidget::show);
    connect(stop, &QPushButton::clicked, this, &WorkBar::stopWanted);
    setVisible(false);
}

void WorkBar::showWork(const QString& text, qint64 done, qint64 total) {
    m_text->setText(text);
    m_progress->setRange(0, total > 0 ? whole : 0);
    if (total > 0)
        m_progress->setValue(static_cast<int>(done * whole / total));
    if (isHidden() && !m_delay->isActive())
        m_delay->start();
}

void WorkBar::done() {
    m_delay->stop();
    hide();
}

} // namespace quorvane::report
