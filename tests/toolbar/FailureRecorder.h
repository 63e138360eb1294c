#pragma once

#include "ui/toolbar/SubclassFailure.h"
#include <QStringList>
#include <vector>

namespace toolbar_test {

/// Keeps what would be written and shown.
class FailureRecorder final : public dalvora::toolbar::FailureReporter {
public:
    void writeEventLog(const QString& entry) override { log << entry; }
    void showMessage(const QString& text, int style) override {
        shown << text;
        styles.push_back(style);
    }

    QStringList log;
    QStringList shown;
    std::vector<int> styles;
};

} // namespace toolbar_test
