#include "platform/quorvane32/grid/XDate.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/grid/FocusLoss.h"
#include "platform/quorvane32/grid/XDateCalendar.h"
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolButton>
#include <optional>

namespace quorvane {

namespace {

constexpr int roomAroundText = 6;
constexpr QRgb markColor = 0xFFC01C28;

std::optional<Date> readDate(const RegionalSettings& regional, const QString& text) {
    try {
        return regional.parseDate(text);
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

bool isSeparator(QChar c) {
    return c == u'/' || c == u'-' || c == u'.';
}

bool isOpeningKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    return (event.key() == Qt::Key_F4 && held == Qt::NoModifier) ||
           (event.key() == Qt::Key_Down && held == Qt::AltModifier);
}

} // namespace

XDate::XDate(QWidget* parent) : QLineEdit(parent) {
    makeButton();
    connect(this, &QLineEdit::textChanged, this, &XDate::textReplaced);
}

void XDate::makeButton() {
    m_button = new QToolButton(this);
    m_button->setFocusPolicy(Qt::NoFocus);
    m_button->setCursor(Qt::ArrowCursor);
    m_button->setAutoRaise(true);
    m_button->setToolTip(tr("Abrir el calendario (F4)"));
    m_button->setAccessibleName(tr("Abrir el calendario"));
    connect(m_button, &QToolButton::clicked, this, &XDate::openCalendar);
    drawButtonIcon();
}

void XDate::setRegional(const RegionalSettings& regional) {
    m_regional = regional;
}

bool XDate::isValid() const {
    const QString typed = text().trimmed();
    return typed.isEmpty() || readDate(m_regional, typed);
}

/// The typed text as the short date; unchanged when it is no date.
QString XDate::completed(const QString& typed) const {
    QString text = typed.trimmed();
    if (text.isEmpty())
        return {};
    if (text.size() > 1 && isSeparator(text.back()))
        text.chop(1);
    if (std::count_if(text.cbegin(), text.cend(), isSeparator) == 1)
        text += u'/' + QString::number(QDate::currentDate().year());
    const std::optional<Date> date = readDate(m_regional, text);
    return date ? m_regional.dateText(*date) : typed;
}

void XDate::commit() {
    const QString entered = completed(text());
    const QString before = m_committed;
    if (entered != text())
        setText(entered);
    m_committed = entered;
    setMarked(!isValid());
    if (entered != before)
        Q_EMIT changed();
}

void XDate::textReplaced() {
    // A text that the program puts in is the new starting point; one being typed is judged when it is done.
    if (!isModified())
        m_committed = text();
    setMarked(false);
}

void XDate::setMarked(bool marked) {
    if (m_marked == marked)
        return;
    m_marked = marked;
    update();
}

void XDate::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (!m_marked)
        return;
    QPainter painter(this);
    painter.setPen(QPen(QColor(markColor), 2));
    const int left = 4;
    painter.drawLine(left, height() - 4, m_button->x() - 2, height() - 4);
}

bool XDate::isCalendarOpen() const {
    return m_calendar && m_calendar->isVisible();
}

void XDate::openCalendar() {
    if (!isEnabled() || isReadOnly() || isCalendarOpen())
        return;
    setFocus(Qt::MouseFocusReason);
    if (!m_calendar) {
        m_calendar = new XDateCalendar(this);
        connect(m_calendar, &XDateCalendar::chosen, this, &XDate::choose);
    }
    const std::optional<Date> date = readDate(m_regional, completed(text()));
    m_calendar->openBelow(*this, *m_button, date ? date->toQDate() : QDate());
}

void XDate::choose(const QDate& day) {
    setFocus(Qt::OtherFocusReason);
    // Put in as if typed, so that the change is told.
    selectAll();
    insert(m_regional.dateText(Date::fromQDate(day)));
    commit();
    selectAll();
}

void XDate::keyPressEvent(QKeyEvent* event) {
    if (isOpeningKey(*event)) {
        openCalendar();
        event->accept();
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        commit();
    QLineEdit::keyPressEvent(event);
}

bool XDate::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && isOpeningKey(static_cast<const QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void XDate::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (endsEntry(*this, *event))
        commit();
}

void XDate::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    layOut();
}

void XDate::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::StyleChange ||
        event->type() == QEvent::FontChange)
        drawButtonIcon();
}

void XDate::layOut() {
    const int frame = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
    const int side = height() - 2 * frame;
    m_button->setGeometry(width() - frame - side, frame, side, side);
    setTextMargins(0, 0, side, 0);
}

/// A small calendar sheet in the text's colour, drawn so that it is sharp at every scale.
void XDate::drawButtonIcon() {
    const int side = qMax(12, fontMetrics().height() * 7 / 8);
    const qreal ratio = devicePixelRatioF();
    QPixmap sheet(QSize(side, side) * ratio);
    sheet.setDevicePixelRatio(ratio);
    sheet.fill(Qt::transparent);
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink =
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
    painter.setPen(QPen(ink, 1));
    const QRectF page(0.5, 1.5, side - 1, side - 2);
    painter.drawRoundedRect(page, 1, 1);
    painter.fillRect(QRectF(page.left(), page.top(), page.width(), page.height() / 4), ink);
    const qreal step = page.width() / 4;
    for (int day = 0; day < 6; ++day) {
        const qreal x = page.left() + step * (1 + day % 3);
        const qreal y = page.top() + page.height() * (day < 3 ? 0.5 : 0.75);
        painter.fillRect(QRectF(x - 0.75, y - 0.75, 1.5, 1.5), ink);
    }
    painter.end();
    m_button->setIcon(QIcon(sheet));
    m_button->setIconSize({side, side});
}

QSize XDate::sizeHint() const {
    // Wide enough for the widest short date and the button.
    const QSize line = QLineEdit::sizeHint();
    const int text = fontMetrics().horizontalAdvance(QStringLiteral("00/00/0000"));
    return {text + 2 * roomAroundText + line.height(), line.height()};
}

QSize XDate::minimumSizeHint() const {
    return {sizeHint().width(), QLineEdit::minimumSizeHint().height()};
}

} // namespace quorvane
