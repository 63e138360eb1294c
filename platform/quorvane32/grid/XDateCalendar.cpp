#include "platform/quorvane32/grid/XDateCalendar.h"
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTextCharFormat>
#include <QVBoxLayout>

namespace quorvane {

XDateCalendar::XDateCalendar(QWidget* parent)
    : QFrame(parent, Qt::Popup), m_month(new QCalendarWidget(this)) {
    setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    setUpMonth();
    auto* today = new QPushButton(tr("&Hoy"), this);
    today->setAutoDefault(false);
    connect(today, &QPushButton::clicked, this, [this] { choose(QDate::currentDate()); });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(m_month);
    layout->addWidget(today, 0, Qt::AlignHCenter);
}

void XDateCalendar::setUpMonth() {
    m_month->setLocale(QLocale(QLocale::Spanish, QLocale::Spain));
    m_month->setFirstDayOfWeek(Qt::Monday);
    m_month->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_month->setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
    m_month->setDateEditEnabled(false);
    m_month->setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
    m_month->setAccessibleName(tr("Calendario"));
    connect(m_month, &QCalendarWidget::clicked, this, &XDateCalendar::choose);
    connect(m_month, &QCalendarWidget::activated, this, &XDateCalendar::choose);
}

void XDateCalendar::openBelow(const QWidget& entry, const QWidget& button, const QDate& day) {
    m_month->setSelectedDate(day.isValid() ? day : QDate::currentDate());
    m_buttonOnScreen = QRect(button.mapToGlobal(QPoint(0, 0)), button.size());
    setAttribute(Qt::WA_NoMouseReplay, false);
    const QSize size = sizeHint();
    const QRect room = entry.screen()->availableGeometry();
    QPoint place = entry.mapToGlobal(QPoint(0, entry.height()));
    if (place.y() + size.height() > room.bottom())
        place.setY(entry.mapToGlobal(QPoint(0, 0)).y() - size.height());
    place.setX(qBound(room.left(), place.x(), qMax(room.left(), room.right() - size.width())));
    place.setY(qMax(room.top(), place.y()));
    setGeometry(QRect(place, size));
    show();
    m_month->setFocus(Qt::PopupFocusReason);
}

void XDateCalendar::choose(const QDate& day) {
    if (!isVisible())
        return; // a double click chooses once
    hide();
    Q_EMIT chosen(day);
}

void XDateCalendar::mousePressEvent(QMouseEvent* event) {
    // The press that closes the calendar is given on to what lies below; on the button it would open it
    // again.
    if (m_buttonOnScreen.contains(event->globalPosition().toPoint()))
        setAttribute(Qt::WA_NoMouseReplay);
    QFrame::mousePressEvent(event);
    if (!rect().contains(event->pos()))
        hide();
}

void XDateCalendar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_F4 ||
        (event->key() == Qt::Key_Up && event->modifiers() & Qt::AltModifier))
        hide();
    else
        QFrame::keyPressEvent(event);
}

} // namespace quorvane
