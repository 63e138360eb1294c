#include "common/ShowMessage.h"
#include <cstdio>
#include <utility>

namespace dalvora {

using namespace Qt::StringLiterals;

namespace {

// The one process-wide hook: messages are called for in operations that have no window to hand down.
MessagePresenter* installedPresenter = nullptr;

/// Answers for a program without windows: told on the error stream, and nothing is ever agreed to.
qint16 tellOnErrorStream(const QString& text, int style, const QString& title) {
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(title), qUtf8Printable(text));
    return style == MessageQuestion ? ButtonNo : ButtonOk;
}

} // namespace

MessagePresenter* installMessagePresenter(MessagePresenter* presenter) {
    return std::exchange(installedPresenter, presenter);
}

qint16 ShowMessage(const QString& text, int style, const QString& title) {
    const QString caption = title.isEmpty() ? messageTitle.toString() : title;
    if (installedPresenter == nullptr)
        return tellOnErrorStream(text, style, caption);
    return installedPresenter->show(text, style, caption);
}

QString numberedText(const quorvane::RunTimeError& error) {
    return QString::number(error.number()) + u" - "_s + error.description();
}

void ShowRunTimeError(const QString& text, const quorvane::RunTimeError& error) {
    ShowMessage(text + u'\n' + numberedText(error), MessageError);
}

} // namespace dalvora
