#pragma once

#include "platform/quorvane32/session/LoginPrompt.h"
#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QVBoxLayout;

namespace quorvane {

/// The window in which a person signs in. It stays open until an attempt succeeds or the person gives up, and
/// tells inside why an attempt was refused.
class LoginWindow : public QDialog {
    Q_OBJECT

public:
    /// `program` is the name under the heading.
    LoginWindow(const QString& program, const LoginQuestion& question, LoginAttempt attempt,
                QWidget* parent = nullptr);

    /// Tries to sign in with what was entered; closes the window when it succeeds.
    void accept() override;

private:
    QWidget* banner(const QString& program);
    QWidget* fields(const LoginQuestion& question);
    QWidget* companyField(const LoginQuestion& question);
    QWidget* messageField();
    QWidget* buttons();
    QString chosenCompany() const;
    void showMessage(const QString& text);

    LoginAttempt m_attempt;
    QString m_fixedCompany;
    QComboBox* m_company = nullptr;
    QLineEdit* m_user = nullptr;
    QLineEdit* m_password = nullptr;
    QWidget* m_messagePanel = nullptr;
    QLabel* m_message = nullptr;
};

/// Asks with a LoginWindow over the active window.
class LoginWindowPrompt final : public LoginPrompt {
public:
    explicit LoginWindowPrompt(QString program) : m_program(std::move(program)) {}
    bool ask(const LoginQuestion& question, const LoginAttempt& attempt) override;

private:
    QString m_program;
};

} // namespace quorvane
