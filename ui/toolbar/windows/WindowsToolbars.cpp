#include "ui/toolbar/windows/WindowsToolbars.h"
#include <algorithm>
#include <array>
#include <cstring>

#include <windows.h>

#include <commctrl.h>

namespace dalvora::toolbar {

namespace {

/// Name of the window property that holds an Interception.
constexpr const wchar_t* propertyName = L"DalvoraToolbarInterception";

constexpr UINT firstRegisteredMessage = 0xC000;

/// Longest caption that is read, with its final NUL.
constexpr std::size_t captionSize = 256;

/// One window whose messages come here. It stays with the window after its release when another program part
/// has come between, and then only hands on.
struct Interception {
    WNDPROC previous;
    WindowProcedure* procedure;
    bool reached = false; ///< a probe has come through to here
};

HWND windowOf(NativeHandle handle) {
    return reinterpret_cast<HWND>(handle);
}

Interception* interceptionOf(HWND window) {
    return static_cast<Interception*>(GetPropW(window, propertyName));
}

void forget(HWND window) {
    delete static_cast<Interception*>(RemovePropW(window, propertyName));
}

/// Message that is sent to find out who receives what a window is sent.
UINT probeMessage() {
    return RegisterWindowMessageW(L"DalvoraToolbarProbe");
}

// The system's own code lies above it: an exception must not go through that.
LRESULT CALLBACK receiveMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    Interception* interception = interceptionOf(window);
    if (interception == nullptr)
        return DefWindowProcW(window, message, wParam, lParam);
    if (message >= firstRegisteredMessage && message == probeMessage()) {
        interception->reached = true;
        return 0;
    }
    WindowProcedure* procedure = interception->procedure;
    const LRESULT result = procedure != nullptr
                               ? procedure->receive(message, wParam, lParam)
                               : CallWindowProcW(interception->previous, window, message, wParam, lParam);
    // The last message; a procedure that was laid over this one may have kept the property until now.
    if (message == WM_NCDESTROY)
        forget(window);
    return result;
}

WNDPROC procedureOf(HWND window) {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

/// False when another program part has put the window's procedure back to one from before the interception.
bool isReached(HWND window, Interception& interception) {
    interception.reached = false;
    SendMessageW(window, probeMessage(), 0, 0);
    return interception.reached;
}

/// Sends the window's messages here; an error number of the system when it refuses.
std::optional<quint32> install(HWND window, Interception& interception) {
    interception.previous = procedureOf(window);
    SetLastError(ERROR_SUCCESS);
    const LONG_PTR previous =
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&receiveMessage));
    const DWORD error = GetLastError();
    return previous == 0 && error != ERROR_SUCCESS ? std::optional<quint32>(error) : std::nullopt;
}

/// Description of a picture of 32 bits a pixel, its rows from top to bottom.
BITMAPINFO headerOf(QSize size) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = size.width();
    info.bmiHeader.biHeight = -size.height();
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

/// Memory of the screen's kind with a picture in it that can be drawn on.
class Canvas {
public:
    explicit Canvas(QSize size) : m_context(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info = headerOf(size);
        m_bitmap = CreateDIBSection(m_context, &info, DIB_RGB_COLORS, &m_bits, nullptr, 0);
        m_before = SelectObject(m_context, m_bitmap);
    }
    ~Canvas() {
        SelectObject(m_context, m_before);
        DeleteObject(m_bitmap);
        DeleteDC(m_context);
    }
    Q_DISABLE_COPY_MOVE(Canvas)

    HDC context() const { return m_context; }
    /// The picture's pixels, rows of 32 bits from top to bottom; null when the system gave no memory.
    void* pixels() const {
        GdiFlush();
        return m_bits;
    }

private:
    HDC m_context;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_before = nullptr;
    void* m_bits = nullptr;
};

/// Draws an image of a list over a picture of the list's size.
bool drawImage(HIMAGELIST list, int index, QImage& picture) {
    const Canvas canvas(picture.size());
    const auto bytes = static_cast<std::size_t>(picture.sizeInBytes());
    if (canvas.pixels() == nullptr)
        return false;
    std::memcpy(canvas.pixels(), picture.constBits(), bytes);
    const bool drawn = ImageList_Draw(list, index, canvas.context(), 0, 0, ILD_TRANSPARENT) != FALSE;
    std::memcpy(picture.bits(), canvas.pixels(), bytes);
    return drawn;
}

/// A pixel with its transparency, from how it looks on black and on white.
QRgb uncovered(QRgb onBlack, QRgb onWhite) {
    const int seenThrough = std::max({qRed(onWhite) - qRed(onBlack), qGreen(onWhite) - qGreen(onBlack),
                                      qBlue(onWhite) - qBlue(onBlack), 0});
    const int cover = 255 - seenThrough;
    return qRgba(std::min(qRed(onBlack), cover), std::min(qGreen(onBlack), cover),
                 std::min(qBlue(onBlack), cover), cover);
}

int letterHeight(NativeHandle font) {
    HDC context = CreateCompatibleDC(nullptr);
    HGDIOBJ before = SelectObject(context, reinterpret_cast<HGDIOBJ>(font));
    TEXTMETRICW metrics{};
    GetTextMetricsW(context, &metrics);
    SelectObject(context, before);
    DeleteDC(context);
    return std::max<int>(metrics.tmHeight - metrics.tmInternalLeading, 1);
}

class WindowsToolbars final : public NativeWindows {
public:
    NativeHandle findChild(NativeHandle parent, QStringView className) const override {
        if (parent == 0)
            return 0;
        const std::wstring name = className.toString().toStdWString();
        return reinterpret_cast<NativeHandle>(
            FindWindowExW(windowOf(parent), nullptr, name.c_str(), nullptr));
    }

    bool isWindow(NativeHandle window) const override { return IsWindow(windowOf(window)) != FALSE; }

    bool belongsToThisProcess(NativeHandle window) const override {
        DWORD process = 0;
        GetWindowThreadProcessId(windowOf(window), &process);
        return process == GetCurrentProcessId();
    }

    bool isIntercepted(NativeHandle window) const override {
        const Interception* interception = interceptionOf(windowOf(window));
        return interception != nullptr && interception->procedure != nullptr;
    }

    std::optional<quint32> intercept(NativeHandle handle, WindowProcedure& procedure) override;
    void release(NativeHandle handle) override;

    qintptr callPrevious(NativeHandle window, quint32 message, quintptr wParam, qintptr lParam) override {
        const Interception* interception = interceptionOf(windowOf(window));
        return interception == nullptr
                   ? 0
                   : CallWindowProcW(interception->previous, windowOf(window), message, wParam, lParam);
    }

    qintptr send(NativeHandle window, quint32 message, quintptr wParam, qintptr lParam) override {
        return SendMessageW(windowOf(window), message, wParam, lParam);
    }

    void invalidate(NativeHandle window) override { InvalidateRect(windowOf(window), nullptr, TRUE); }

    QSize windowSize(NativeHandle window) const override {
        RECT rect{};
        GetWindowRect(windowOf(window), &rect);
        return {rect.right - rect.left, rect.bottom - rect.top};
    }

    QPoint cursorIn(NativeHandle window) const override {
        POINT point{};
        GetCursorPos(&point);
        ScreenToClient(windowOf(window), &point);
        return {point.x, point.y};
    }

    bool isMenuVisible() const override;
    ToolbarButton button(NativeHandle toolbar, int index) const override;
    QFont font(NativeHandle font) const override;

    QSize iconSize(NativeHandle imageList) const override {
        int width = 0;
        int height = 0;
        ImageList_GetIconSize(reinterpret_cast<HIMAGELIST>(imageList), &width, &height);
        return {width, height};
    }

    QPixmap image(NativeHandle imageList, int index) const override;
    void paint(NativeHandle window, const std::function<QImage()>& draw) override;
};

std::optional<quint32> WindowsToolbars::intercept(NativeHandle handle, WindowProcedure& procedure) {
    HWND window = windowOf(handle);
    if (Interception* kept = interceptionOf(window)) {
        kept->procedure = &procedure;
        const auto error = isReached(window, *kept) ? std::nullopt : install(window, *kept);
        if (error)
            kept->procedure = nullptr;
        return error;
    }
    auto interception = std::make_unique<Interception>(Interception{nullptr, &procedure});
    if (SetPropW(window, propertyName, interception.get()) == FALSE)
        return GetLastError();
    if (const auto error = install(window, *interception)) {
        RemovePropW(window, propertyName);
        return error;
    }
    // From here on the property owns it.
    (void)interception.release();
    return std::nullopt;
}

void WindowsToolbars::release(NativeHandle handle) {
    HWND window = windowOf(handle);
    Interception* interception = interceptionOf(window);
    if (interception == nullptr)
        return;
    interception->procedure = nullptr;
    if (procedureOf(window) != &receiveMessage)
        return;
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(interception->previous));
    forget(window);
}

bool WindowsToolbars::isMenuVisible() const {
    const std::wstring name = menuClass.toString().toStdWString();
    HWND menu = nullptr;
    while ((menu = FindWindowExW(nullptr, menu, name.c_str(), nullptr)) != nullptr)
        if (IsWindowVisible(menu) != FALSE)
            return true;
    return false;
}

ToolbarButton WindowsToolbars::button(NativeHandle toolbar, int index) const {
    std::array<char, captionSize> caption{};
    TBBUTTONINFOA info{};
    info.cbSize = sizeof(info);
    info.dwMask = TBIF_BYINDEX | TBIF_STYLE | TBIF_STATE | TBIF_IMAGE | TBIF_TEXT;
    info.pszText = caption.data();
    info.cchText = captionSize - 1;
    const auto place = static_cast<WPARAM>(index);
    SendMessageA(windowOf(toolbar), message::GetButtonInfo, place, reinterpret_cast<LPARAM>(&info));
    RECT rect{};
    if (SendMessageA(windowOf(toolbar), message::GetItemRect, place, reinterpret_cast<LPARAM>(&rect)) ==
        FALSE)
        rect = {};
    ToolbarButton button;
    button.style = info.fsStyle;
    button.state = info.fsState;
    button.rect = {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
    button.image = info.iImage;
    button.caption = QString::fromLocal8Bit(QByteArrayView(caption.data(), captionSize));
    return button;
}

QFont WindowsToolbars::font(NativeHandle font) const {
    LOGFONTW source{};
    if (GetObjectW(reinterpret_cast<HGDIOBJ>(font), sizeof(source), &source) == 0)
        return {};
    QFont result(QString::fromWCharArray(source.lfFaceName));
    // A height above zero is that of a line; what the painter asks for is that of the letters alone.
    if (source.lfHeight > 0)
        result.setPixelSize(letterHeight(font));
    else if (source.lfHeight < 0)
        result.setPixelSize(-source.lfHeight);
    result.setBold(source.lfWeight >= FW_BOLD);
    result.setItalic(source.lfItalic != 0);
    return result;
}

QPixmap WindowsToolbars::image(NativeHandle imageList, int index) const {
    auto* list = reinterpret_cast<HIMAGELIST>(imageList);
    const QSize size = iconSize(imageList);
    if (index < 0 || index >= ImageList_GetImageCount(list) || size.isEmpty())
        return {};
    // On black each pixel shows its colour as far as it covers, on white also what it lets through. That
    // holds for masks and for every depth of transparency.
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QImage onWhite = image;
    onWhite.fill(Qt::white);
    if (!drawImage(list, index, image) || !drawImage(list, index, onWhite))
        return {};
    for (int y = 0; y < size.height(); ++y) {
        auto* black = reinterpret_cast<QRgb*>(image.scanLine(y));
        const auto* white = reinterpret_cast<const QRgb*>(onWhite.constScanLine(y));
        for (int x = 0; x < size.width(); ++x)
            black[x] = uncovered(black[x], white[x]);
    }
    return QPixmap::fromImage(image);
}

void WindowsToolbars::paint(NativeHandle handle, const std::function<QImage()>& draw) {
    HWND window = windowOf(handle);
    PAINTSTRUCT painting{};
    HDC context = BeginPaint(window, &painting);
    const QImage picture = draw().convertToFormat(QImage::Format_RGB32);
    if (IsWindow(window) == FALSE)
        return;
    if (!picture.isNull()) {
        const BITMAPINFO header = headerOf(picture.size());
        const auto width = static_cast<DWORD>(picture.width());
        const auto height = static_cast<DWORD>(picture.height());
        SetDIBitsToDevice(context, 0, 0, width, height, 0, 0, 0, height, picture.constBits(), &header,
                          DIB_RGB_COLORS);
    }
    EndPaint(window, &painting);
}

} // namespace

std::unique_ptr<NativeWindows> windowSystem() {
    return std::make_unique<WindowsToolbars>();
}

} // namespace dalvora::toolbar
