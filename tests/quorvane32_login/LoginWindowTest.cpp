#include "platform/quorvane32/login/LoginWindow.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

namespace {

using namespace quorvane;

class LoginWindowTest : public testing::Test {
protected:
    LoginWindowTest() {
        question.companies = {{QStringLiteral("001"), QStringLiteral("Viento Norte")},
                              {QStringLiteral("002"), QStringLiteral("Bebidas del Sur")}};
        question.company = QStringLiteral("002");
    }

    void open() {
        window = std::make_unique<LoginWindow>(QStringLiteral("Dalvora"), question,
                                               [this](const LoginAnswer& given) {
                                                   answers.push_back(given);
                                                   return refusal;
                                               });
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        window->activateWindow();
    }
    template<class Control> Control* control(const char* name) {
        auto* found = window->findChild<Control*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    /// Types into whatever has the focus, as a person does; the text may hold any letter.
    void type(const QString& text) {
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, window->focusWidget(), Qt::Key_unknown, QString(letter),
                                Qt::NoModifier);
    }
    void press(Qt::Key key) { QTest::keyClick(window->focusWidget(), key); }
    QString message() {
        auto* label = control<QLabel>("lblMensaje");
        return label->isVisible() ? label->text() : QString();
    }

    LoginQuestion question;
    QString refusal;
    std::vector<LoginAnswer> answers;
    std::unique_ptr<LoginWindow> window;
};

TEST_F(LoginWindowTest, IsFilledInByKeyboardAlone) {
    open();
    type(QStringLiteral("ana"));
    press(Qt::Key_Tab);
    type(QStringLiteral("Contraseña €"));
    press(Qt::Key_Return);
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_EQ(answers[0].company, QStringLiteral("002"));
    EXPECT_EQ(answers[0].user, QStringLiteral("ana"));
    EXPECT_EQ(answers[0].password, QStringLiteral("Contraseña €"));
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->result(), QDialog::Accepted);
}

TEST_F(LoginWindowTest, TellsARefusalInsideAndStaysOpenForTheNextAttempt) {
    open();
    EXPECT_EQ(message(), QString());
    refusal = QStringLiteral("Usuario o contraseña incorrectos.");
    type(QStringLiteral("ana"));
    control<QLineEdit>("txtClave")->setFocus();
    type(QStringLiteral("mala"));
    QTest::mouseClick(control<QPushButton>("coAceptar"), Qt::LeftButton);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(message(), refusal);
    EXPECT_EQ(control<QLineEdit>("txtClave")->text(), QString());
    EXPECT_EQ(window->focusWidget(), control<QLineEdit>("txtClave"));
    EXPECT_EQ(control<QLineEdit>("txtUsuario")->text(), QStringLiteral("ana"));
    refusal.clear();
    type(QStringLiteral("buena"));
    press(Qt::Key_Return);
    EXPECT_EQ(answers.back().password, QStringLiteral("buena"));
    EXPECT_FALSE(window->isVisible());
}

TEST_F(LoginWindowTest, AsksForTheUserBeforeItTries) {
    open();
    press(Qt::Key_Return);
    EXPECT_TRUE(answers.empty());
    EXPECT_EQ(message(), QStringLiteral("Debe ingresar el usuario."));
    EXPECT_EQ(window->focusWidget(), control<QLineEdit>("txtUsuario"));
}

TEST_F(LoginWindowTest, ShowsTheReasonOfTheQuestionFromTheStart) {
    question.message = QStringLiteral("La empresa «9» no existe o no está en el perfil.");
    open();
    EXPECT_EQ(message(), question.message);
    EXPECT_EQ(window->focusWidget(), control<QComboBox>("cboEmpresa"));
    press(Qt::Key_Up);
    EXPECT_EQ(control<QComboBox>("cboEmpresa")->currentText(), QStringLiteral("001 - Viento Norte"));
}

TEST_F(LoginWindowTest, ShowsAGivenCompanyWithoutAskingForIt) {
    question.askCompany = false;
    question.user = QStringLiteral("ana");
    open();
    EXPECT_EQ(window->findChild<QComboBox*>(), nullptr);
    EXPECT_EQ(control<QLabel>("lblEmpresa")->text(), QStringLiteral("002 - Bebidas del Sur"));
    EXPECT_EQ(window->focusWidget(), control<QLineEdit>("txtClave"));
    press(Qt::Key_Return);
    EXPECT_EQ(answers.at(0).company, QStringLiteral("002"));
}

TEST_F(LoginWindowTest, EscapeGivesUp) {
    open();
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->result(), QDialog::Rejected);
    EXPECT_TRUE(answers.empty());
}

TEST_F(LoginWindowTest, HidesThePasswordAndKeepsTenThousandCharactersOut) {
    open();
    auto* field = control<QLineEdit>("txtClave");
    EXPECT_EQ(field->echoMode(), QLineEdit::Password);
    field->insert(QString(10000, u'x'));
    EXPECT_EQ(field->text().size(), 256);
}

TEST_F(LoginWindowTest, EveryFieldHasANameForThoseWhoDoNotSee) {
    open();
    for (const char* name : {"txtUsuario", "txtClave"})
        EXPECT_FALSE(control<QLineEdit>(name)->accessibleName().isEmpty());
    EXPECT_FALSE(control<QComboBox>("cboEmpresa")->accessibleDescription().isEmpty());
}

TEST(LoginWindowPrompt, AnswersWithWhatThePersonDid) {
    LoginQuestion question;
    question.companies = {{QStringLiteral("001"), QStringLiteral("Viento Norte")}};
    question.user = QStringLiteral("ana");
    LoginWindowPrompt prompt(QStringLiteral("Dalvora"));
    const auto answerWith = [&](const char* button) {
        QTimer::singleShot(0, [button] {
            auto* window = QApplication::activeModalWidget();
            QTest::mouseClick(window->findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
        });
        return prompt.ask(question, [](const LoginAnswer&) { return QString(); });
    };
    EXPECT_TRUE(answerWith("coAceptar"));
    EXPECT_FALSE(answerWith("coCancelar"));
}

} // namespace
