#include "platform/help/SystemHelp.h"
#include "tests/support/ErrorOf.h"
#include <QCoreApplication>
#include <QString>
#include <gtest/gtest.h>
#include <windows.h>

using quorvane::test::errorOf;

namespace {

/// The system's own viewer over the program's manual.
class SystemViewerTest : public testing::Test {
protected:
    static QString viewerTitle() {
        QCoreApplication::processEvents();
        QString title;
        EnumThreadWindows(GetCurrentThreadId(), readTitle, reinterpret_cast<LPARAM>(&title));
        return title;
    }

    const QString manual = QStringLiteral(DALVORA_HELP_FILE);

private:
    static BOOL CALLBACK readTitle(HWND window, LPARAM title) {
        wchar_t name[64] = L"";
        GetClassNameW(window, name, 64);
        if (QString::fromWCharArray(name) != QStringLiteral("HH Parent") || !IsWindowVisible(window))
            return TRUE;
        wchar_t text[256] = L"";
        GetWindowTextW(window, text, 256);
        *reinterpret_cast<QString*>(title) = QString::fromWCharArray(text);
        return FALSE;
    }
};

} // namespace

TEST_F(SystemViewerTest, ShowsTheManualAndClosesIt) {
    auto help = help::systemHelp();
    EXPECT_EQ(viewerTitle(), QString());
    help->htmlHelp(manual, help::DisplayContents);
    EXPECT_FALSE(viewerTitle().isEmpty());
    help.reset();
    EXPECT_EQ(viewerTitle(), QString());
}

TEST_F(SystemViewerTest, OpensByContext) {
    const auto help = help::systemHelp();
    help->htmlHelp(manual, help::ShowContext, 138);
    EXPECT_FALSE(viewerTitle().isEmpty());
}

TEST_F(SystemViewerTest, TellsOfAContextThatTheManualHasNot) {
    const auto help = help::systemHelp();
    EXPECT_EQ(errorOf([&] { help->htmlHelp(manual, help::ShowContext, 987654); }), 3265);
}
