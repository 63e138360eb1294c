#include "tests/windows/toolbar/ForeignToolbar.h"
#include "tests/windows/toolbar/NativeToolbarFixture.h"
#include <QApplication>
#include <QDir>

// The tests of native toolbars; with the option --hold-toolbar the other process that one of them needs.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "windows");
    QApplication application(argc, argv);
    if (application.arguments().contains(toolbar_test::holdOption()))
        return toolbar_test::holdToolbar();
    testing::InitGoogleTest(&argc, argv);
    if (!testing::GTEST_FLAG(list_tests) && testing::GTEST_FLAG(filter) == "*")
        QDir(toolbar_test::scenesFolder()).removeRecursively();
    return RUN_ALL_TESTS();
}
