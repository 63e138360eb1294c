#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QTimer;

namespace quorvane::report {

/// The bar in which a text to be looked for is typed. Hidden until it is asked for; Esc hides it again.
class FindBar : public QWidget {
    Q_OBJECT
public:
    explicit FindBar(QWidget* parent = nullptr);

    /// Shows the bar with its text marked, ready to type.
    void open();
    QString text() const;
    /// What stands beside the text: how the search is going. `alarming` tells that nothing was found.
    void showMessage(const QString& message, bool alarming = false);

Q_SIGNALS:
    /// Another text, a moment after the last key.
    void textEntered(const QString& text);
    void nextWanted(bool forward);
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLineEdit* m_text;
    QLabel* m_message;
    QTimer* m_pause;
};

} // namespace quorvane::report
