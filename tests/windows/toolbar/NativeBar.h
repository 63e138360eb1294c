#pragma once

#include "tests/toolbar/scenes/Scene.h"
#include "ui/toolbar/NativeWindows.h"
#include <functional>

#include <windows.h>

#include <commctrl.h>

namespace toolbar_test {

/// Side of the images that are drawn here.
inline constexpr int iconSide = 16;

/// Command of the first button; the others follow.
inline constexpr int firstCommand = 100;

/// Image lists as a form may have them.
enum class Lists { None, NormalOnly, All, AllMasked };

/// How a toolbar is made.
struct BarOptions {
    DWORD style = TBSTYLE_FLAT;
    Lists lists = Lists::All;
    QSize size{560, 48};
    QSize buttonSize{60, 44};
    const wchar_t* className = TOOLBARCLASSNAMEW;
    HWND container = nullptr; ///< else a window of its own
    /// Pictures for the lists, all of one size; without them the test draws some.
    std::map<ImageListKind, std::vector<QImage>> pictures = {};
};

/// A real toolbar in a real window. What is asked of it here goes by other messages than those that the
/// painting uses, so that a description made here is a second opinion.
class NativeBar {
public:
    explicit NativeBar(const BarOptions& options = {});
    ~NativeBar();
    Q_DISABLE_COPY_MOVE(NativeBar)

    /// Adds a button; its index.
    int add(BYTE style, BYTE state, int image, const QString& caption = {});
    /// One button of every kind, in several states, with accents in the captions.
    void addUsualButtons();

    HWND toolbar() const { return m_toolbar; }
    HWND container() const { return m_container; }
    NativeHandle containerHandle() const { return reinterpret_cast<NativeHandle>(m_container); }
    NativeHandle toolbarHandle() const { return reinterpret_cast<NativeHandle>(m_toolbar); }

    QRect rect(int button) const;
    void setState(int button, BYTE state) const;
    void setFont(const QString& family, int height);

    // Move the mouse pointer; the last two wait until the toolbar knows.
    void pointAt(QPoint place) const;
    void pointAtButton(int button) const;
    void pointAway() const;
    /// Waits until the toolbar takes a button (-1: none) for the one under the pointer.
    bool settleUntilHot(int button) const;

    /// What the window shows, read back from the screen.
    QImage shown() const;
    /// The toolbar as it is now, from what was added to it and its own older messages.
    ToolbarDescription description(bool textOnRight) const;
    const PictureLists& images() const { return m_images; }

    /// Called for each notification to the container; its answer counts.
    std::function<LRESULT(const NMHDR&)> onNotify;

private:
    static LRESULT CALLBACK receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void createContainer(QSize size);
    void createLists(const BarOptions& options);
    QSize m_iconSize{iconSide, iconSide};

    HWND m_container = nullptr;
    HWND m_toolbar = nullptr;
    bool m_ownsContainer = false;
    HFONT m_font = nullptr;
    QFont m_painted;
    std::vector<HIMAGELIST> m_lists;
    PictureLists m_images;
    std::vector<QString> m_captions;
};

/// Handles all waiting messages.
void settle();

/// Handles messages until something is so; false when it is not so after two seconds.
bool settleUntil(const std::function<bool()>& condition);

} // namespace toolbar_test
