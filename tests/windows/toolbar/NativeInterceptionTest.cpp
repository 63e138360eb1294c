#include "tests/windows/toolbar/ForeignToolbar.h"
#include "tests/windows/toolbar/NativeToolbarFixture.h"
#include "ui/toolbar/WindowSubclass.h"
#include <QCoreApplication>
#include <vector>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

constexpr UINT probe = WM_APP + 1;
constexpr LRESULT probeAnswer = 4711;

WNDPROC procedureOf(HWND window) {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

WNDPROC replaceProcedure(HWND window, WNDPROC procedure) {
    return reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

/// The procedure below one that another part of a program has laid over the toolbar.
WNDPROC belowForeign = nullptr;
/// The window still had what the interception keeps with it when it had received its last message.
bool keptToTheEnd = false;

bool keepsInterception(HWND window) {
    return GetPropW(window, L"DalvoraToolbarInterception") != nullptr;
}

LRESULT CALLBACK foreignProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == probe)
        return probeAnswer;
    const LRESULT result = CallWindowProcW(belowForeign, window, message, wParam, lParam);
    if (message == WM_NCDESTROY)
        keptToTheEnd = keepsInterception(window);
    return result;
}

LRESULT CALLBACK foreignSubclass(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                 DWORD_PTR) {
    if (message == probe)
        return probeAnswer;
    return DefSubclassProc(window, message, wParam, lParam);
}

class NativeInterception : public NativeToolbarFixture {
protected:
    NativeInterception() { bar->addUsualButtons(); }

    bool intercepts() { return subclass.subclass(bar->toolbarHandle(), callback()); }

    MessageCallback callback() {
        return [this](quint32 message, MessageTime time, quintptr, qintptr) {
            calls.emplace_back(message, time);
            return answer;
        };
    }

    /// True when the toolbar shows the skin and not its own look.
    bool isPainted() const {
        InvalidateRect(bar->toolbar(), nullptr, TRUE);
        UpdateWindow(bar->toolbar());
        const ToolbarDescription now = bar->description(textOnRight);
        return bar->shown() ==
               ToolbarPainter(ToolbarSkin(testSkin())).paint(now, bar->images(), QRect({}, now.size));
    }

    void expectFailure(const QString& routine, const QString& text) {
        const QString place = QCoreApplication::applicationName() + u'.' + routine;
        ASSERT_FALSE(recorder.log.isEmpty());
        EXPECT_EQ(recorder.log.back(), place + u": "_s + text);
        EXPECT_EQ(recorder.shown.back(), u"Error in "_s + place + u"\n\n"_s + text);
        EXPECT_EQ(recorder.styles.back(), 48);
    }

    std::unique_ptr<NativeBar> bar = std::make_unique<NativeBar>();
    std::vector<std::pair<quint32, MessageTime>> calls;
    std::optional<qintptr> answer;
    WindowSubclass subclass{*system, recorder};
};

} // namespace

TEST_F(NativeInterception, ListedMessagesComeBeforeAndAfterTheToolbar) {
    ASSERT_TRUE(intercepts());
    EXPECT_TRUE(subclass.addMessage(TB_BUTTONCOUNT, MessageTime::Before));
    EXPECT_TRUE(subclass.addMessage(TB_GETSTYLE, MessageTime::After));
    EXPECT_EQ(SendMessageW(bar->toolbar(), TB_BUTTONCOUNT, 0, 0), 9);
    SendMessageW(bar->toolbar(), TB_GETSTYLE, 0, 0);
    SendMessageW(bar->toolbar(), TB_GETSTATE, firstCommand, 0);
    using Call = std::pair<quint32, MessageTime>;
    EXPECT_EQ(calls, (std::vector{Call(TB_BUTTONCOUNT, MessageTime::Before),
                                  Call(TB_GETSTYLE, MessageTime::After)}));
    answer = 77;
    EXPECT_EQ(SendMessageW(bar->toolbar(), TB_BUTTONCOUNT, 0, 0), 77);
    EXPECT_EQ(SendMessageW(bar->toolbar(), TB_GETSTYLE, 0, 0), 77);
    EXPECT_TRUE(subclass.removeMessage(TB_BUTTONCOUNT, MessageTime::Before));
    EXPECT_EQ(SendMessageW(bar->toolbar(), TB_BUTTONCOUNT, 0, 0), 9);
}

TEST_F(NativeInterception, AllMessagesComeWhenAllAreAskedFor) {
    ASSERT_TRUE(intercepts());
    EXPECT_TRUE(subclass.addMessage(ALL_MESSAGES, MessageTime::Before));
    SendMessageW(bar->toolbar(), TB_BUTTONCOUNT, 0, 0);
    SendMessageW(bar->toolbar(), probe, 0, 0);
    EXPECT_EQ(calls.size(), 2U);
}

TEST_F(NativeInterception, FailuresOfTheTableAreTold) {
    ASSERT_TRUE(intercepts());
    EXPECT_FALSE(subclass.removeMessage(0x2A3, MessageTime::Before));
    expectFailure(u"RemoveMessage"_s, u"Message &H2A3 not found in table"_s);
    for (quint32 message = 0; message < MSG_ENTRIES; ++message)
        EXPECT_TRUE(subclass.addMessage(WM_APP + 100 + message, MessageTime::Before));
    EXPECT_FALSE(subclass.addMessage(WM_APP + 99, MessageTime::Before));
    expectFailure(u"AddMessage"_s,
                  u"Message table overflow. Either increase the value of Const MSG_ENTRIES or use "
                  u"ALL_MESSAGES instead of specific message values"_s);
    EXPECT_TRUE(subclass.addMessage(WM_APP + 99, MessageTime::After)) << "the other list has room";
}

TEST_F(NativeInterception, AHandleOfNoWindowIsRefused) {
    EXPECT_FALSE(subclass.subclass(0x7FFE, callback()));
    expectFailure(u"SubclassWindow"_s, u"Invalid window handle"_s);
    const NativeHandle gone = bar->toolbarHandle();
    bar.reset();
    EXPECT_FALSE(subclass.subclass(gone, callback()));
    EXPECT_EQ(recorder.log.size(), 2);
}

TEST_F(NativeInterception, AToolbarOfAnotherProcessIsRefused) {
    const ForeignToolbar other;
    ASSERT_NE(other.container(), 0U);
    HWND toolbar =
        FindWindowExW(reinterpret_cast<HWND>(other.container()), nullptr, TOOLBARCLASSNAMEW, nullptr);
    ASSERT_NE(toolbar, nullptr);
    skin.SetSkinPicture(testSkin());
    EXPECT_FALSE(skin.SubClassToolBar(*system, other.container()));
    expectFailure(u"SubclassWindow"_s, u"Window handle belongs to another process"_s);
    EXPECT_EQ(SendMessageW(toolbar, TB_BUTTONCOUNT, 0, 0), 9) << "it goes on by itself";
}

TEST_F(NativeInterception, ASecondInstanceOnOneToolbarIsRefused) {
    ASSERT_TRUE(take(*bar));
    cSubclassToolBar second(recorder);
    EXPECT_FALSE(second.SubClassToolBar(*system, bar->containerHandle()));
    expectFailure(u"SubclassWindow"_s, u"Window handle is already subclassed"_s);
    EXPECT_TRUE(isPainted()) << "the first one stays";
    skin.UnSubClassToolBar();
    second.SetSkinPicture(testSkin());
    EXPECT_TRUE(second.SubClassToolBar(*system, bar->containerHandle()));
    EXPECT_TRUE(isPainted());
}

TEST_F(NativeInterception, TheSameInstanceTakesAToolbarAgain) {
    const WNDPROC own = procedureOf(bar->toolbar());
    ASSERT_TRUE(take(*bar));
    ASSERT_TRUE(take(*bar));
    EXPECT_TRUE(isPainted());
    skin.UnSubClassToolBar();
    EXPECT_EQ(procedureOf(bar->toolbar()), own);
    EXPECT_TRUE(recorder.log.isEmpty());
}

TEST_F(NativeInterception, TheEndOfTheInstancePutsBackTheProcedureAndKeepsTheStyle) {
    const WNDPROC own = procedureOf(bar->toolbar());
    {
        cSubclassToolBar passing(recorder);
        passing.SetSkinPicture(testSkin());
        ASSERT_TRUE(passing.SubClassToolBar(*system, bar->containerHandle(), true));
        EXPECT_NE(procedureOf(bar->toolbar()), own);
    }
    EXPECT_EQ(procedureOf(bar->toolbar()), own);
    EXPECT_EQ(SendMessageW(bar->toolbar(), TB_GETSTYLE, 0, 0) & 0x1800, 0x1800);
    EXPECT_FALSE(isPainted());
}

TEST_F(NativeInterception, AToolbarMayBeDestroyedWhileItIsTaken) {
    ASSERT_TRUE(take(*bar));
    bar.reset();
    skin.SetSkinPicture(testSkin());
    skin.UnSubClassToolBar(true);
    bar = std::make_unique<NativeBar>();
    bar->addUsualButtons();
    EXPECT_TRUE(take(*bar));
    EXPECT_TRUE(isPainted());
    EXPECT_TRUE(recorder.log.isEmpty());
}

TEST_F(NativeInterception, AProcedureLaidOverItStaysWhenTheToolbarIsGivenBack) {
    ASSERT_TRUE(take(*bar));
    belowForeign = replaceProcedure(bar->toolbar(), &foreignProcedure);
    EXPECT_TRUE(isPainted());
    skin.UnSubClassToolBar();
    EXPECT_EQ(SendMessageW(bar->toolbar(), probe, 0, 0), probeAnswer);
    EXPECT_FALSE(isPainted());
    ASSERT_TRUE(take(*bar)) << "what is left below it is used again";
    EXPECT_TRUE(isPainted());
    skin.UnSubClassToolBar();
    replaceProcedure(bar->toolbar(), belowForeign);
    EXPECT_FALSE(isPainted());
    EXPECT_EQ(SendMessageW(bar->toolbar(), TB_BUTTONCOUNT, 0, 0), 9);
}

TEST_F(NativeInterception, NothingOfItStaysWithAWindowThatEndsUnderAnotherProcedure) {
    for (const bool givenBack : {false, true}) {
        bar = std::make_unique<NativeBar>();
        ASSERT_TRUE(take(*bar));
        belowForeign = replaceProcedure(bar->toolbar(), &foreignProcedure);
        if (givenBack)
            skin.UnSubClassToolBar();
        EXPECT_TRUE(keepsInterception(bar->toolbar()));
        keptToTheEnd = true;
        bar.reset();
        EXPECT_FALSE(keptToTheEnd) << givenBack;
    }
}

TEST_F(NativeInterception, AProcedureBelowItThatGoesFirstTakesItAlong) {
    const WNDPROC own = replaceProcedure(bar->toolbar(), &foreignProcedure);
    belowForeign = own;
    ASSERT_TRUE(take(*bar));
    replaceProcedure(bar->toolbar(), own); // out of turn
    EXPECT_FALSE(isPainted());
    ASSERT_TRUE(take(*bar)) << "the toolbar can be taken again";
    EXPECT_TRUE(isPainted());
    skin.UnSubClassToolBar();
    EXPECT_FALSE(isPainted());
    EXPECT_EQ(procedureOf(bar->toolbar()), own);
}

TEST_F(NativeInterception, ASubclassOfTheCommonControlsMayLieOverItAndGoFirst) {
    ASSERT_TRUE(take(*bar));
    SetWindowSubclass(bar->toolbar(), &foreignSubclass, 5, 0);
    EXPECT_TRUE(isPainted());
    EXPECT_EQ(SendMessageW(bar->toolbar(), probe, 0, 0), probeAnswer);
    RemoveWindowSubclass(bar->toolbar(), &foreignSubclass, 5);
    EXPECT_TRUE(isPainted());
    skin.UnSubClassToolBar();
    EXPECT_FALSE(isPainted());
}

TEST_F(NativeInterception, ASubclassOfTheCommonControlsMayLieOverItAndGoLast) {
    ASSERT_TRUE(take(*bar));
    SetWindowSubclass(bar->toolbar(), &foreignSubclass, 5, 0);
    skin.UnSubClassToolBar();
    EXPECT_EQ(SendMessageW(bar->toolbar(), probe, 0, 0), probeAnswer);
    EXPECT_FALSE(isPainted());
    RemoveWindowSubclass(bar->toolbar(), &foreignSubclass, 5);
    EXPECT_FALSE(isPainted());
    EXPECT_EQ(SendMessageW(bar->toolbar(), TB_BUTTONCOUNT, 0, 0), 9);
    bar.reset();
}

TEST_F(NativeInterception, AfterASubclassBelowItWentFirstTheToolbarCanBeTakenAgain) {
    SetWindowSubclass(bar->toolbar(), &foreignSubclass, 5, 0);
    ASSERT_TRUE(take(*bar));
    RemoveWindowSubclass(bar->toolbar(), &foreignSubclass, 5);
    EXPECT_EQ(SendMessageW(bar->toolbar(), TB_BUTTONCOUNT, 0, 0), 9);
    ASSERT_TRUE(take(*bar));
    EXPECT_TRUE(isPainted());
    skin.UnSubClassToolBar();
    EXPECT_FALSE(isPainted());
    bar.reset();
}

} // namespace toolbar_test
