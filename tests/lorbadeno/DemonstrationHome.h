#pragma once

#include "demo/Demonstration.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/support/QtPrinters.h"
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace dalvora::test {

using namespace Qt::StringLiterals;

/// Tests over one demonstration, which they only read.
class DemonstrationHome : public testing::Test {
protected:
    static void SetUpTestSuite() {
        s_home = std::make_unique<QTemporaryDir>();
        demo::createDemonstration(s_home->path());
    }
    static void TearDownTestSuite() { s_home.reset(); }

    /// What an operation says when it fails, "" when it does not.
    template<class Operation> static QString refusal(Operation&& operation) {
        try {
            operation();
            return {};
        } catch (const quorvane::RunTimeError& error) {
            return error.description();
        }
    }

    static inline std::unique_ptr<QTemporaryDir> s_home;
};

} // namespace dalvora::test
