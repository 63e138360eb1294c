#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
#ifndef Q_OS_WIN
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    QApplication application(argc, argv);
    // Where the program's own folder has them, which is not the tests'.
    QCoreApplication::addLibraryPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../../bin"));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
