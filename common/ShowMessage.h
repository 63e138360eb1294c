#pragma once

#include "platform/quorvane32/base/RunTimeError.h"
#include <QString>

namespace dalvora {

/// Caption of every message box that names no title of its own.
inline constexpr QStringView messageTitle = u"Quorvane ERP - Dalvora";

enum MessageStyle : int {
    MessagePlain = 0, ///< no picture
    MessageError = 16,
    MessageQuestion = 36, ///< question mark, buttons Yes and No
    MessageWarning = 48,
    MessageInformation = 64,
};

enum MessageButton : qint16 {
    ButtonOk = 1,
    ButtonYes = 6,
    ButtonNo = 7,
};

/// Shows message boxes. The program installs one that opens windows; tests install a recorder.
class MessagePresenter {
public:
    virtual ~MessagePresenter() = default;
    /// Shows the text until it is answered and returns the button. The title is never empty.
    virtual qint16 show(const QString& text, int style, const QString& title) = 0;
};

/// Makes the presenter (not owned) the one that ShowMessage uses and returns the previous one. Without a
/// presenter messages go to the standard error stream and every question is answered with No.
MessagePresenter* installMessagePresenter(MessagePresenter* presenter);

/// Shows a message box and returns the button pressed; an empty title means `messageTitle`.
qint16 ShowMessage(const QString& text, int style, const QString& title = {});

/// The number, " - " and the description of an error.
QString numberedText(const quorvane::RunTimeError& error);

/// The way every trapped error is told: the fixed text, a line break and the numbered text.
void ShowRunTimeError(const QString& text, const quorvane::RunTimeError& error);

} // namespace dalvora
