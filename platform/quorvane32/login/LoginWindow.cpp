#include "platform/quorvane32/login/LoginWindow.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontInfo>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace quorvane {

namespace {

constexpr int margin = 18;
constexpr int windowWidth = 400;
constexpr int iconSize = 48;
constexpr int signSize = 20;
constexpr int longestEntry = 256;

QLabel* plainLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

/// The programs' font is measured in pixels, the toolkit's own in points: QFontInfo knows both.
QFont headingFont(QFont font) {
    font.setPixelSize(QFontInfo(font).pixelSize() * 8 / 5);
    font.setBold(true);
    return font;
}

QFrame* line(QWidget* parent) {
    auto* frame = new QFrame(parent);
    frame->setFrameShape(QFrame::HLine);
    frame->setFrameShadow(QFrame::Sunken);
    return frame;
}

QLineEdit* entry(const QString& name, const QString& accessibleName, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    edit->setAccessibleName(accessibleName);
    edit->setMaxLength(longestEntry);
    return edit;
}

/// The hourglass as long as it lives: a password takes a tenth of a second to check.
class WaitPointer {
public:
    WaitPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitPointer() { QApplication::restoreOverrideCursor(); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
};

} // namespace

LoginWindow::LoginWindow(const QString& program, const LoginQuestion& question, LoginAttempt attempt,
                         QWidget* parent)
    : QDialog(parent), m_attempt(std::move(attempt)) {
    setObjectName(QStringLiteral("LoginWindow"));
    setWindowTitle(QStringLiteral("Iniciar sesión"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(banner(program));
    layout->addWidget(line(this));
    layout->addWidget(fields(question));
    layout->addWidget(messageField());
    layout->addWidget(buttons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    showMessage(question.message);
    if (m_company && !question.message.isEmpty())
        m_company->setFocus();
    else if (question.user.isEmpty())
        m_user->setFocus();
    else
        m_password->setFocus();
}

QWidget* LoginWindow::banner(const QString& program) {
    auto* panel = new QWidget(this);
    panel->setBackgroundRole(QPalette::Base);
    panel->setAutoFillBackground(true);
    panel->setMinimumWidth(windowWidth);
    auto* words = new QVBoxLayout;
    words->setSpacing(4);
    auto* title = plainLabel(QStringLiteral("Quorvane ERP"), panel);
    title->setFont(headingFont(title->font()));
    words->addWidget(title);
    words->addWidget(plainLabel(program, panel));
    auto* layout = new QHBoxLayout(panel);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    const QIcon icon = QApplication::windowIcon();
    if (!icon.isNull()) {
        auto* picture = new QLabel(panel);
        picture->setPixmap(icon.pixmap({iconSize, iconSize}, devicePixelRatio()));
        layout->addWidget(picture);
    }
    layout->addLayout(words, 1);
    return panel;
}

QWidget* LoginWindow::fields(const LoginQuestion& question) {
    auto* panel = new QWidget(this);
    auto* form = new QFormLayout(panel);
    form->setContentsMargins(margin, margin, margin, margin / 2);
    form->setHorizontalSpacing(margin);
    form->setVerticalSpacing(margin / 2);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(QStringLiteral("&Empresa"), companyField(question));
    m_user = entry(QStringLiteral("txtUsuario"), QStringLiteral("Usuario"), panel);
    m_user->setText(question.user);
    form->addRow(QStringLiteral("&Usuario"), m_user);
    m_password = entry(QStringLiteral("txtClave"), QStringLiteral("Contraseña"), panel);
    m_password->setEchoMode(QLineEdit::Password);
    form->addRow(QStringLiteral("C&ontraseña"), m_password);
    return panel;
}

QWidget* LoginWindow::companyField(const LoginQuestion& question) {
    const auto caption = [](const Company& company) {
        return company.code + QStringLiteral(" - ") + company.name;
    };
    if (!question.askCompany) {
        m_fixedCompany = question.company;
        QString text = question.company;
        for (const Company& company : question.companies)
            if (company.code == question.company)
                text = caption(company);
        auto* label = plainLabel(text, this);
        label->setObjectName(QStringLiteral("lblEmpresa"));
        return label;
    }
    m_company = new QComboBox(this);
    m_company->setObjectName(QStringLiteral("cboEmpresa"));
    m_company->setAccessibleDescription(QStringLiteral("Empresa en la que se inicia la sesión"));
    for (const Company& company : question.companies)
        m_company->addItem(caption(company), company.code);
    m_company->setCurrentIndex(std::max(0, m_company->findData(question.company)));
    return m_company;
}

QWidget* LoginWindow::messageField() {
    m_messagePanel = new QFrame(this);
    m_messagePanel->setObjectName(QStringLiteral("fraMensaje"));
    static_cast<QFrame*>(m_messagePanel)->setFrameShape(QFrame::StyledPanel);
    m_messagePanel->setBackgroundRole(QPalette::ToolTipBase);
    m_messagePanel->setAutoFillBackground(true);
    auto* sign = new QLabel(m_messagePanel);
    sign->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap({signSize, signSize}, devicePixelRatio()));
    m_message = plainLabel(QString(), m_messagePanel);
    m_message->setObjectName(QStringLiteral("lblMensaje"));
    m_message->setForegroundRole(QPalette::ToolTipText);
    m_message->setWordWrap(true);
    auto* inside = new QHBoxLayout(m_messagePanel);
    inside->addWidget(sign, 0, Qt::AlignTop);
    inside->addWidget(m_message, 1);
    auto* around = new QWidget(this);
    auto* layout = new QHBoxLayout(around);
    layout->setContentsMargins(margin, 0, margin, 0);
    layout->addWidget(m_messagePanel);
    return around;
}

QWidget* LoginWindow::buttons() {
    auto* panel = new QWidget(this);
    auto* box = new QDialogButtonBox(panel);
    auto* ok = box->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
    ok->setObjectName(QStringLiteral("coAceptar"));
    ok->setDefault(true);
    auto* cancel = box->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("coCancelar"));
    connect(box, &QDialogButtonBox::accepted, this, &LoginWindow::accept);
    connect(box, &QDialogButtonBox::rejected, this, &LoginWindow::reject);
    auto* layout = new QHBoxLayout(panel);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(box);
    return panel;
}

QString LoginWindow::chosenCompany() const {
    return m_company ? m_company->currentData().toString() : m_fixedCompany;
}

void LoginWindow::showMessage(const QString& text) {
    m_message->setText(text);
    m_messagePanel->setVisible(!text.isEmpty());
    if (text.isEmpty())
        return;
    QAccessibleEvent told(m_message, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}

void LoginWindow::accept() {
    if (m_user->text().trimmed().isEmpty()) {
        showMessage(QStringLiteral("Debe ingresar el usuario."));
        m_user->setFocus();
        return;
    }
    QString refusal;
    {
        const WaitPointer waiting;
        refusal = m_attempt({chosenCompany(), m_user->text(), m_password->text()});
    }
    m_password->clear();
    if (refusal.isEmpty()) {
        QDialog::accept();
        return;
    }
    showMessage(refusal);
    m_password->setFocus();
}

bool LoginWindowPrompt::ask(const LoginQuestion& question, const LoginAttempt& attempt) {
    LoginWindow window(m_program, question, attempt, QApplication::activeWindow());
    return window.exec() == QDialog::Accepted;
}

} // namespace quorvane
