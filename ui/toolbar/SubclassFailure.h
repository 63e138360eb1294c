#pragma once

#include <QString>

namespace dalvora::toolbar {

/// Style of the failure messages: the exclamation icon.
inline constexpr int failureMessageStyle = 48;

/// Tells failures of the interception: each goes to the application event log and to the user.
class FailureReporter {
public:
    virtual ~FailureReporter() = default;
    virtual void writeEventLog(const QString& entry) = 0;
    /// Shows a message box until it is answered.
    virtual void showMessage(const QString& text, int style) = 0;
};

/// The event log of the system (the system log outside Windows) and a message box.
class SystemFailureReporter final : public FailureReporter {
public:
    void writeEventLog(const QString& entry) override;
    void showMessage(const QString& text, int style) override;
};

/// Tells a failure both ways; the routine is the one that failed.
void reportFailure(FailureReporter& reporter, const QString& routine, const QString& text);

// The texts of the failures.
QString invalidHandleText();
QString foreignProcessText();
QString alreadySubclassedText();
QString setWindowLongText(quint32 systemError);
QString callbackMissingText();
QString notInitializedText();
QString messageNotFoundText(quint32 message);
QString tableOverflowText();

} // namespace dalvora::toolbar
