#include "platform/quorvane32/grid/XDateCalendar.h"
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

namespace quorvane {

namespace {

constexpr QRgb sundayColor = 0xFFB3261E;

/// An arrowhead in the given colour, to the left or to the right.
QIcon arrowIcon(const QWidget& on, bool left, const QColor& ink) {
    constexpr int side = 16;
    const qreal ratio = on.devicePixelRatioF();
    QPixmap picture(QSize(side, side) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const qreal tip = left ? 6 : 10;
    const qreal back = left ? 10 : 6;
    painter.drawPolyline(QPolygonF({QPointF(back, 4), QPointF(tip, 8), QPointF(back, 12)}));
    return {picture};
}

} // namespace

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
    QTextCharFormat workday;
    workday.setForeground(palette().color(QPalette::Text));
    m_month->setWeekdayTextFormat(Qt::Saturday, workday);
    QTextCharFormat sunday;
    sunday.setForeground(QColor(sundayColor));
    m_month->setWeekdayTextFormat(Qt::Sunday, sunday);
    setUpArrows();
    connect(m_month, &QCalendarWidget::clicked, this, &XDateCalendar::choose);
    connect(m_month, &QCalendarWidget::activated, this, &XDateCalendar::choose);
}

void XDateCalendar::setUpArrows() {
    const QColor ink = palette().color(QPalette::HighlightedText);
    if (auto* previous = m_month->findChild<QToolButton*>(QStringLiteral("qt_calendar_prevmonth"))) {
        previous->setIcon(arrowIcon(*this, true, ink));
        previous->setToolTip(tr("Mes anterior"));
    }
    if (auto* next = m_month->findChild<QToolButton*>(QStringLiteral("qt_calendar_nextmonth"))) {
        next->setIcon(arrowIcon(*this, false, ink));
        next->setToolTip(tr("Mes siguiente"));
    }
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
