#include "platform/quorvane32/lookup/AboutWindow.h"
#include <QApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

namespace quorvane {

namespace {

constexpr int iconSize = 64;
constexpr int margin = 18;
/// The title's size against that of the other texts.
constexpr double titleScale = 1.8;

QLabel* plainLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* factLabel(const QString& name, const QString& text, QWidget* parent) {
    auto* label = plainLabel(text, parent);
    label->setObjectName(name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

AboutWindow::AboutWindow(const AboutText& text, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("AboutWindow"));
    setWindowTitle(QStringLiteral("Acerca de %1").arg(text.title));

    auto* buttons = new QDialogButtonBox(this);
    auto* close = buttons->addButton(QStringLiteral("Aceptar"), QDialogButtonBox::AcceptRole);
    close->setObjectName(QStringLiteral("coAceptar"));
    close->setDefault(true);
    close->setFocus();
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* foot = new QHBoxLayout;
    foot->setContentsMargins(margin, 0, margin, margin);
    foot->addWidget(buttons);

    auto* line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(banner(text));
    layout->addWidget(line);
    layout->addWidget(facts(text));
    layout->addLayout(foot);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QWidget* AboutWindow::banner(const AboutText& text) {
    auto* panel = new QWidget(this);
    panel->setBackgroundRole(QPalette::Base);
    panel->setAutoFillBackground(true);
    panel->setMinimumWidth(380);

    const QIcon program = QApplication::windowIcon();
    auto* icon = new QLabel(panel);
    icon->setObjectName(QStringLiteral("lblIcono"));
    // A program without an icon of its own shows the usual sign of information.
    icon->setPixmap((program.isNull() ? style()->standardIcon(QStyle::SP_MessageBoxInformation) : program)
                        .pixmap({iconSize, iconSize}, devicePixelRatio()));

    auto* title = plainLabel(text.title, panel);
    title->setObjectName(QStringLiteral("lblTitulo"));
    QFont large = title->font();
    // A font is measured either in points or in pixels.
    if (large.pixelSize() > 0)
        large.setPixelSize(qRound(large.pixelSize() * titleScale));
    else
        large.setPointSizeF(large.pointSizeF() * titleScale);
    large.setBold(true);
    title->setFont(large);
    auto* description = plainLabel(text.description, panel);
    description->setObjectName(QStringLiteral("lblDescripcion"));

    auto* words = new QVBoxLayout;
    words->setSpacing(4);
    words->addStretch();
    words->addWidget(title);
    words->addWidget(description);
    words->addStretch();
    auto* layout = new QHBoxLayout(panel);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addWidget(icon);
    layout->addLayout(words, 1);
    return panel;
}

QWidget* AboutWindow::facts(const AboutText& text) {
    auto* panel = new QWidget(this);
    auto* form = new QFormLayout(panel);
    form->setContentsMargins(margin, margin, margin, margin);
    form->setLabelAlignment(Qt::AlignLeft);
    form->setHorizontalSpacing(margin);
    const auto add = [&](const QString& caption, const QString& name, const QString& fact) {
        form->addRow(plainLabel(caption, panel), factLabel(name, fact, panel));
    };
    add(QStringLiteral("Versión"), QStringLiteral("lblVersion"), text.version);
    add(QStringLiteral("Producto"), QStringLiteral("lblProducto"), QStringLiteral("Quorvane ERP"));
    add(QStringLiteral("Licencia"), QStringLiteral("lblLicencia"),
        QStringLiteral("MIT: puede usarse, cambiarse y entregarse libremente"));
    add(QStringLiteral("Hecho con"), QStringLiteral("lblQt"),
        QStringLiteral("Qt %1").arg(QString::fromLatin1(qVersion())));
    return panel;
}

} // namespace quorvane
