#pragma once

#include "platform/quorvane32/base/RegionalSettings.h"
#include <QLineEdit>

class QToolButton;

namespace quorvane {

class XDateCalendar;

/// A date entry: a line to type in and a calendar to choose from. What is typed is completed to the regional
/// short date when the entry ends ("5/3" takes the current year, "5-3-06" becomes 05/03/2006). A text that is
/// no date stays as typed, is marked, and is passed on like any other: whoever owns the value refuses it with
/// a message of its own and puts the old text back. The control shows no message itself.
class XDate : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(QString mask READ mask WRITE setMask)
public:
    explicit XDate(QWidget* parent = nullptr);

    /// "short date" is the one mask there is.
    const QString& mask() const { return m_mask; }
    void setMask(const QString& mask) { m_mask = mask; }
    void setRegional(const RegionalSettings& regional);

    /// True when the text is empty or a date.
    bool isValid() const;
    bool isCalendarOpen() const;
    void openCalendar();
    /// Completes the text and tells a change, as leaving the control does.
    void commit();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The entry ended (Enter, focus lost, a day chosen) with a text other than before. Not raised by
    /// setText.
    void changed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void makeButton();
    void layOut();
    void drawButtonIcon();
    void textReplaced();
    void setMarked(bool marked);
    QString completed(const QString& typed) const;
    void choose(const QDate& day);

    RegionalSettings m_regional;
    QString m_mask = QStringLiteral("short date");
    QString m_committed;
    QToolButton* m_button = nullptr;
    XDateCalendar* m_calendar = nullptr;
    bool m_marked = false;
};

} // namespace quorvane
