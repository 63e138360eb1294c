#include "ui/toolbar/SubclassFailure.h"
#include <QCoreApplication>
#include <QMessageBox>

namespace dalvora::toolbar {

using namespace Qt::StringLiterals;

void SystemFailureReporter::showMessage(const QString& text, int style) {
    const auto icon = style == failureMessageStyle ? QMessageBox::Warning : QMessageBox::NoIcon;
    QMessageBox box(icon, QCoreApplication::applicationName(), text, QMessageBox::Ok);
    box.exec();
}

void reportFailure(FailureReporter& reporter, const QString& routine, const QString& text) {
    const QString place = QCoreApplication::applicationName() + u'.' + routine;
    reporter.writeEventLog(place + u": "_s + text);
    reporter.showMessage(u"Error in "_s + place + u"\n\n"_s + text, failureMessageStyle);
}

QString invalidHandleText() {
    return u"Invalid window handle"_s;
}

QString foreignProcessText() {
    return u"Window handle belongs to another process"_s;
}

QString alreadySubclassedText() {
    return u"Window handle is already subclassed"_s;
}

QString setWindowLongText(quint32 systemError) {
    return u"SetWindowLong failed, error #"_s + QString::number(systemError);
}

QString callbackMissingText() {
    return u"Callback method not found"_s;
}

QString notInitializedText() {
    return u"Thunk hasn't been initialized"_s;
}

QString messageNotFoundText(quint32 message) {
    return u"Message &H"_s + QString::number(message, 16).toUpper() + u" not found in table"_s;
}

QString tableOverflowText() {
    return u"Message table overflow. Either increase the value of Const MSG_ENTRIES or use ALL_MESSAGES "
           u"instead of specific message values"_s;
}

} // namespace dalvora::toolbar
