#pragma once

#include <QFrame>
#include <QString>
#include <functional>

class QLabel;
class QPushButton;

namespace quorvane::report {

/// A message above the pages that stays until it is closed or another one comes: what went wrong, or where a
/// file was written. It does not stand in the way of reading on.
class NoticeBar : public QFrame {
    Q_OBJECT
public:
    enum class Kind { Done, Warning };

    explicit NoticeBar(QWidget* parent = nullptr);

    void showNotice(Kind kind, const QString& text);
    /// With a button that does something about it.
    void showNotice(Kind kind, const QString& text, const QString& button, std::function<void()> action);
    QString text() const;

private:
    QLabel* m_icon;
    QLabel* m_text;
    QPushButton* m_button;
    std::function<void()> m_action;
};

} // namespace quorvane::report
