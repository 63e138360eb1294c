#pragma once

#include <QDate>
#include <QFrame>

class QCalendarWidget;

namespace quorvane {

/// The drop-down of a date entry: a month in Spanish, weeks from Monday, and today at a key's reach. Enter or
/// a click chooses a day, Esc or a click elsewhere closes it.
class XDateCalendar : public QFrame {
    Q_OBJECT
public:
    explicit XDateCalendar(QWidget* parent);

    /// Opens below the entry (above, where there is no room) with the given day, or today, selected. A press
    /// on the button while it is open closes it.
    void openBelow(const QWidget& entry, const QWidget& button, const QDate& day);
    QCalendarWidget* month() const { return m_month; }

Q_SIGNALS:
    void chosen(const QDate& day);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void choose(const QDate& day);
    void setUpMonth();
    void setUpArrows();

    QCalendarWidget* m_month;
    QRect m_buttonOnScreen;
};

} // namespace quorvane
