#include "tests/windows/toolbar/NativeToolbarFixture.h"
#include "ui/toolbar/NativeDescription.h"
#include "ui/toolbar/NativeToolbarHook.h"
#include <QCoreApplication>
#include <map>
#include <set>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

constexpr const wchar_t* oldClass = L"msvb_lib_toolbar";

/// Counts the messages that a window receives.
std::map<UINT, int>* counted = nullptr;

LRESULT CALLBACK countMessages(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (counted != nullptr)
        ++(*counted)[message];
    return DefSubclassProc(window, message, wParam, lParam);
}

QImage comparable(const QImage& image) {
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

class NativeMessages : public NativeToolbarFixture {
protected:
    NativeMessages() {
        // What the toolbar's own class does, under the old name.
        WNDCLASSW description{};
        GetClassInfoW(nullptr, TOOLBARCLASSNAMEW, &description);
        description.lpszClassName = oldClass;
        description.hInstance = GetModuleHandleW(nullptr);
        description.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
        RegisterClassW(&description);
    }

    qintptr ask(const NativeBar& bar, quint32 message, quintptr wParam = 0, qintptr lParam = 0) {
        return system->send(bar.toolbarHandle(), message, wParam, lParam);
    }
};

} // namespace

TEST_F(NativeMessages, TheCommonControlsAreThoseOfTheManifest) {
    HMODULE library = nullptr;
    ASSERT_TRUE(GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const wchar_t*>(reinterpret_cast<const void*>(&InitCommonControlsEx)), &library));
    std::array<wchar_t, MAX_PATH> name{};
    GetModuleFileNameW(library, name.data(), MAX_PATH);
    const QString file = QString::fromWCharArray(name.data());
    const bool version5 = QCoreApplication::applicationFilePath().contains(u"_v5_"_s);
    EXPECT_EQ(file.contains(u"common-controls_6595b64144ccf1df_6.0"_s, Qt::CaseInsensitive), !version5)
        << file.toStdString();
}

TEST_F(NativeMessages, CountRectangleAndInformationOfEachButton) {
    NativeBar bar;
    bar.addUsualButtons();
    EXPECT_EQ(ask(bar, 0x418), 9);
    for (int i = 0; i < 9; ++i) {
        RECT place{};
        ASSERT_NE(ask(bar, 0x41D, static_cast<quintptr>(i), reinterpret_cast<qintptr>(&place)), 0);
        EXPECT_EQ(QRect(place.left, place.top, place.right - place.left, place.bottom - place.top),
                  bar.rect(i));
    }
    const ToolbarButton button = system->button(bar.toolbarHandle(), 7);
    EXPECT_EQ(button.style & 0x0F, StyleDropDown);
    EXPECT_EQ(button.state, StateEnabled);
    EXPECT_EQ(button.image, 2);
    EXPECT_EQ(button.caption.left(button.caption.indexOf(QChar(u'\0'))), u"Ímpar"_s);
    EXPECT_EQ(button.rect, bar.rect(7));
}

TEST_F(NativeMessages, AButtonThatIsNotThereIsEmpty) {
    NativeBar bar;
    const ToolbarButton button = system->button(bar.toolbarHandle(), 3);
    EXPECT_TRUE(button.rect.isEmpty());
    EXPECT_TRUE(button.caption.startsWith(QChar(u'\0')));
}

TEST_F(NativeMessages, ACaptionLongerThanTheRoomForItIsCut) {
    NativeBar bar;
    bar.add(BTNS_BUTTON, TBSTATE_ENABLED, 0, QString(5000, u'ñ'));
    const QString caption = system->button(bar.toolbarHandle(), 0).caption;
    EXPECT_GE(caption.indexOf(QChar(u'\0')), 0) << "it always ends";
    ASSERT_TRUE(take(bar));
    EXPECT_FALSE(bar.shown().isNull());
}

TEST_F(NativeMessages, TheImageListsAreThoseThatWereSet) {
    NativeBar bar;
    bar.addUsualButtons();
    EXPECT_EQ(ask(bar, 0x431), SendMessageW(bar.toolbar(), TB_GETIMAGELIST, 0, 0));
    std::set<qintptr> lists{ask(bar, 0x431), ask(bar, 0x435), ask(bar, 0x437)};
    EXPECT_EQ(lists.size(), 3U);
    EXPECT_EQ(lists.count(0), 0U);
    const NativeImages images(*system, bar.toolbarHandle());
    for (const auto& [kind, pictures] : bar.images().pictures)
        for (std::size_t i = 0; i < pictures.size(); ++i)
            EXPECT_EQ(comparable(images.image(kind, static_cast<int>(i)).toImage()), comparable(pictures[i]))
                << static_cast<int>(kind) << ' ' << i;
    EXPECT_TRUE(images.image(ImageListKind::Normal, 50).isNull());
    EXPECT_TRUE(images.image(ImageListKind::Normal, -1).isNull());
}

TEST_F(NativeMessages, TheFontIsTheToolbarsOwn) {
    NativeBar bar;
    bar.setFont(u"Liberation Serif"_s, -19);
    const QFont font = system->font(static_cast<NativeHandle>(ask(bar, 49)));
    EXPECT_EQ(font.family(), u"Liberation Serif"_s);
    EXPECT_EQ(font.pixelSize(), 19);
}

TEST_F(NativeMessages, TheStyleIsReadSetAndPutBack) {
    NativeBar bar(BarOptions{.style = 0});
    bar.addUsualButtons();
    const qintptr before = ask(bar, 0x439);
    EXPECT_EQ(before & 0x1800, 0);
    ASSERT_TRUE(take(bar));
    EXPECT_EQ(ask(bar, 0x439), before | 0x800);
    ASSERT_TRUE(take(bar, true));
    EXPECT_EQ(ask(bar, 0x439), before | 0x1800);
    skin.UnSubClassToolBar();
    EXPECT_EQ(ask(bar, 0x439), before | 0x1800) << "it stays unless asked for";
    ASSERT_TRUE(take(bar));
    skin.UnSubClassToolBar(true);
    EXPECT_EQ(ask(bar, 0x439), before | 0x1800) << "the style before this time";
}

TEST_F(NativeMessages, PaintingAndErasingNeverReachTheToolbar) {
    NativeBar bar;
    bar.addUsualButtons();
    std::map<UINT, int> received;
    SetWindowSubclass(bar.toolbar(), &countMessages, 1, 0);
    ASSERT_TRUE(take(bar));
    counted = &received;
    InvalidateRect(bar.toolbar(), nullptr, TRUE);
    UpdateWindow(bar.toolbar());
    EXPECT_EQ(received[15], 0);
    EXPECT_EQ(received[20], 0);
    EXPECT_EQ(GetUpdateRect(bar.toolbar(), nullptr, FALSE), FALSE) << "nothing is left to paint";
    skin.UnSubClassToolBar();
    InvalidateRect(bar.toolbar(), nullptr, TRUE);
    UpdateWindow(bar.toolbar());
    counted = nullptr;
    EXPECT_EQ(received[15], 1);
    EXPECT_EQ(received[20], 1);
}

TEST_F(NativeMessages, EveryMessageOfTheDescriptionIsSentToTheToolbar) {
    NativeBar bar;
    bar.addUsualButtons();
    std::map<UINT, int> received;
    SetWindowSubclass(bar.toolbar(), &countMessages, 1, 0);
    counted = &received;
    ASSERT_TRUE(take(bar));
    InvalidateRect(bar.toolbar(), nullptr, TRUE);
    UpdateWindow(bar.toolbar());
    counted = nullptr;
    for (const UINT message : {0x431U, 0x418U, 0x441U, 0x41DU, 0x435U, 0x437U, 0x439U, 0x438U, 49U})
        EXPECT_GT(received[message], 0) << std::hex << message;
}

TEST_F(NativeMessages, AToolbarOfTheOldClassIsTakenAndPainted) {
    NativeBar bar(BarOptions{.className = oldClass});
    bar.addUsualButtons();
    ASSERT_TRUE(take(bar));
    expectPainted(bar, u"old-class"_s);
    skin.UnSubClassToolBar();
    const ToolbarPainter painter;
    const auto hook = NativeToolbarHook::take(*system, bar.containerHandle(), false, painter, recorder);
    ASSERT_NE(hook, nullptr);
    EXPECT_TRUE(dynamic_cast<NativeToolbarHook&>(*hook).isOldStyle());
}

TEST_F(NativeMessages, TheUsualClassComesBeforeTheOldOneWhereverItStands) {
    NativeBar old(BarOptions{.className = oldClass});
    old.addUsualButtons();
    const NativeBar usual(BarOptions{.container = old.container()});
    SetWindowPos(old.toolbar(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ASSERT_TRUE(skin.SubClassToolBar(*system, old.containerHandle()));
    EXPECT_TRUE(system->isIntercepted(usual.toolbarHandle()));
    EXPECT_FALSE(system->isIntercepted(old.toolbarHandle()));
}

TEST_F(NativeMessages, OnlyADirectChildIsAToolbarOfTheContainer) {
    const NativeBar bar;
    HWND outer =
        CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    EXPECT_FALSE(skin.SubClassToolBar(*system, reinterpret_cast<NativeHandle>(outer)));
    EXPECT_FALSE(skin.SubClassToolBar(*system, 0));
    EXPECT_FALSE(skin.SubClassToolBar(*system, bar.toolbarHandle()));
    EXPECT_TRUE(recorder.log.isEmpty()) << "no toolbar is no failure";
    DestroyWindow(outer);
}

} // namespace toolbar_test
