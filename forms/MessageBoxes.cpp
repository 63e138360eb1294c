#include "forms/MessageBoxes.h"
#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

namespace dalvora {

namespace {

/// Parts of a message box style: which buttons (low four bits) and which picture.
constexpr int buttonsMask = 0x0F;
constexpr int pictureMask = 0xF0;
constexpr int buttonsYesNo = 4;
/// What a screen can show and a person read.
constexpr qsizetype longestText = 2000;

QMessageBox::Icon pictureOf(int style) {
    switch (style & pictureMask) {
    case 16:
        return QMessageBox::Critical;
    case 32:
        return QMessageBox::Question;
    case 48:
        return QMessageBox::Warning;
    case 64:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

QString readable(const QString& text) {
    QString shown = text.size() > longestText ? text.left(longestText) + QChar(0x2026) : text;
    return shown.remove(QChar(u'\0'));
}

/// In Spanish whatever translations are installed.
void nameButtons(QMessageBox& box) {
    const std::pair<QMessageBox::StandardButton, QString> names[] = {
        {QMessageBox::Ok, QStringLiteral("Aceptar")},
        {QMessageBox::Yes, QStringLiteral("&Sí")},
        {QMessageBox::No, QStringLiteral("&No")},
    };
    for (const auto& [which, name] : names)
        if (QAbstractButton* button = box.button(which))
            button->setText(name);
}

} // namespace

qint16 MessageBoxes::show(const QString& text, int style, const QString& title) {
    const bool question = (style & buttonsMask) == buttonsYesNo;
    QMessageBox box(pictureOf(style), title, QString(),
                    question ? QMessageBox::Yes | QMessageBox::No
                             : QMessageBox::StandardButtons(QMessageBox::Ok),
                    QApplication::activeWindow());
    nameButtons(box);
    box.setTextFormat(Qt::PlainText);
    box.setText(readable(text));
    box.setDefaultButton(question ? QMessageBox::Yes : QMessageBox::Ok);
    if (question)
        box.setEscapeButton(QMessageBox::No);
    // A command at work shows the hourglass; the question it asks can be answered at once.
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    const int answer = box.exec();
    QGuiApplication::restoreOverrideCursor();
    if (!question)
        return ButtonOk;
    return answer == QMessageBox::Yes ? ButtonYes : ButtonNo;
}

} // namespace dalvora
