#include "tests/windows/toolbar/NativeBar.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QThread>
#include <span>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureCount = 4;
constexpr QPoint windowPlace(120, 140);
constexpr QRgb maskColour = qRgb(0, 128, 128);
constexpr UINT getButton = WM_USER + 23;
constexpr UINT getHotItem = WM_USER + 71;

/// A disc or a square with a hole; the last one has a half transparent corner when the list can show that.
QImage drawnIcon(int index, ImageListKind list, bool masked) {
    QImage image(iconSide, iconSide, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QColor colour = QColor::fromHsv(index * 80 + 10, 220, list == ImageListKind::Hot ? 250 : 170);
    if (list == ImageListKind::Disabled)
        colour = QColor(120 + index * 10, 120, 120);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    painter.setBrush(colour);
    if (index % 2 == 0)
        painter.drawEllipse(1, 1, iconSide - 3, iconSide - 3);
    else
        painter.drawRect(1, 2, iconSide - 4, iconSide - 5);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(6, 6, 3, 3, Qt::transparent);
    if (index == pictureCount - 1 && !masked)
        painter.fillRect(9, 9, 5, 5, QColor(200, 0, 0, 128));
    return image;
}

std::map<ImageListKind, std::vector<QImage>> drawnLists(Lists lists) {
    std::map<ImageListKind, std::vector<QImage>> pictures;
    for (const ImageListKind kind : {ImageListKind::Normal, ImageListKind::Hot, ImageListKind::Disabled})
        if (kind == ImageListKind::Normal || lists != Lists::NormalOnly)
            for (int i = 0; i < pictureCount; ++i)
                pictures[kind].push_back(drawnIcon(i, kind, lists == Lists::AllMasked));
    return pictures;
}

HBITMAP toBitmap(const QImage& image) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = image.width();
    info.bmiHeader.biHeight = -image.height();
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    std::memcpy(bits, image.constBits(), static_cast<std::size_t>(image.sizeInBytes()));
    return bitmap;
}

HIMAGELIST toImageList(const std::vector<QImage>& pictures, bool masked) {
    const QSize size = pictures.front().size();
    HIMAGELIST list =
        ImageList_Create(size.width(), size.height(), masked ? ILC_COLOR24 | ILC_MASK : ILC_COLOR32,
                         pictureCount, pictureCount);
    for (const QImage& picture : pictures) {
        QImage image = picture;
        if (masked) {
            image = QImage(picture.size(), QImage::Format_RGB32);
            image.fill(maskColour);
            QPainter(&image).drawImage(0, 0, picture);
            // A bitmap that knows of no transparency has nothing in its fourth byte.
            for (int y = 0; y < image.height(); ++y)
                for (auto* pixel = reinterpret_cast<QRgb*>(image.scanLine(y));
                     QRgb & value : std::span(pixel, static_cast<std::size_t>(image.width())))
                    value &= 0x00FFFFFFU;
        }
        HBITMAP bitmap = toBitmap(image);
        if (masked)
            ImageList_AddMasked(list, bitmap, RGB(qRed(maskColour), qGreen(maskColour), qBlue(maskColour)));
        else
            ImageList_Add(list, bitmap, nullptr);
        DeleteObject(bitmap);
    }
    return list;
}

const wchar_t* wide(const QString& text) {
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

} // namespace

void settle() {
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

bool settleUntil(const std::function<bool()>& condition) {
    constexpr int patience = 2000;
    constexpr int pause = 5;
    QElapsedTimer timer;
    timer.start();
    for (;;) {
        settle();
        if (condition())
            return true;
        if (timer.hasExpired(patience))
            return false;
        QThread::msleep(pause);
    }
}

LRESULT CALLBACK NativeBar::receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* bar = reinterpret_cast<const NativeBar*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_NOTIFY && bar != nullptr && bar->onNotify)
        return bar->onNotify(*reinterpret_cast<const NMHDR*>(lParam));
    return DefWindowProcW(window, message, wParam, lParam);
}

void NativeBar::createContainer(QSize size) {
    WNDCLASSW description{};
    description.lpfnWndProc = &NativeBar::receive;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    description.lpszClassName = L"DalvoraTestForm";
    RegisterClassW(&description);
    m_container = CreateWindowExW(WS_EX_TOPMOST, description.lpszClassName, L"Formulario", WS_POPUP,
                                  windowPlace.x(), windowPlace.y(), size.width(), size.height(), nullptr,
                                  nullptr, description.hInstance, nullptr);
    SetWindowLongPtrW(m_container, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_ownsContainer = true;
}

void NativeBar::createLists(const BarOptions& options) {
    if (options.lists == Lists::None)
        return;
    struct Place {
        ImageListKind kind;
        UINT message;
    };
    constexpr std::array places{Place{ImageListKind::Normal, TB_SETIMAGELIST},
                                Place{ImageListKind::Hot, TB_SETHOTIMAGELIST},
                                Place{ImageListKind::Disabled, TB_SETDISABLEDIMAGELIST}};
    const bool masked = options.lists == Lists::AllMasked;
    m_images.pictures = options.pictures.empty() ? drawnLists(options.lists) : options.pictures;
    m_iconSize = m_images.pictures[ImageListKind::Normal].front().size();
    SendMessageW(m_toolbar, TB_SETBITMAPSIZE, 0, MAKELPARAM(m_iconSize.width(), m_iconSize.height()));
    for (const Place& place : places) {
        const auto pictures = m_images.pictures.find(place.kind);
        if (pictures == m_images.pictures.end())
            continue;
        HIMAGELIST list = m_lists.emplace_back(toImageList(pictures->second, masked));
        SendMessageW(m_toolbar, place.message, 0, reinterpret_cast<LPARAM>(list));
    }
}

NativeBar::NativeBar(const BarOptions& options) : m_container(options.container) {
    if (m_container == nullptr)
        createContainer(options.size);
    m_toolbar = CreateWindowExW(0, options.className, nullptr,
                                WS_CHILD | WS_VISIBLE | CCS_NODIVIDER | CCS_NORESIZE | CCS_NOPARENTALIGN |
                                    options.style,
                                0, 0, options.size.width(), options.size.height(), m_container, nullptr,
                                GetModuleHandleW(nullptr), nullptr);
    SendMessageW(m_toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(m_toolbar, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_DRAWDDARROWS);
    createLists(options);
    setFont(u"DejaVu Sans"_s, -12);
    SendMessageW(m_toolbar, TB_SETBUTTONWIDTH, 0,
                 MAKELPARAM(options.buttonSize.width(), options.buttonSize.width()));
    SendMessageW(m_toolbar, TB_SETBUTTONSIZE, 0,
                 MAKELPARAM(options.buttonSize.width(), options.buttonSize.height()));
    ShowWindow(m_container, SW_SHOWNA);
    pointAway();
}

NativeBar::~NativeBar() {
    if (m_ownsContainer)
        DestroyWindow(m_container);
    else
        DestroyWindow(m_toolbar);
    for (HIMAGELIST list : m_lists)
        ImageList_Destroy(list);
    DeleteObject(m_font);
    settle();
}

void NativeBar::setFont(const QString& family, int height) {
    HFONT font = CreateFontW(height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, 0, 0,
                             wide(family));
    SendMessageW(m_toolbar, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    if (m_font != nullptr)
        DeleteObject(m_font);
    m_font = font;
    m_painted = QFont(family);
    m_painted.setPixelSize(std::abs(height));
    if (height > 0) {
        HDC context = GetDC(m_toolbar);
        HGDIOBJ before = SelectObject(context, font);
        OUTLINETEXTMETRICW metrics{};
        GetOutlineTextMetricsW(context, sizeof(metrics), &metrics);
        SelectObject(context, before);
        ReleaseDC(m_toolbar, context);
        m_painted.setPixelSize(metrics.otmTextMetrics.tmHeight - metrics.otmTextMetrics.tmInternalLeading);
    }
}

int NativeBar::add(BYTE style, BYTE state, int image, const QString& caption) {
    TBBUTTON button{};
    button.fsStyle = style;
    button.fsState = state;
    button.iBitmap = image;
    button.idCommand = static_cast<int>(m_captions.size()) + firstCommand;
    button.iString = caption.isEmpty() ? 0 : reinterpret_cast<INT_PTR>(caption.utf16());
    SendMessageW(m_toolbar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
    m_captions.push_back(style == BTNS_SEP ? QString() : caption);
    return static_cast<int>(m_captions.size()) - 1;
}

void NativeBar::addUsualButtons() {
    add(BTNS_BUTTON, TBSTATE_ENABLED, 0, u"Año"_s);
    add(BTNS_BUTTON, 0, 1, u"Emisión"_s);
    add(BTNS_SEP, TBSTATE_ENABLED, 0);
    add(BTNS_CHECK, TBSTATE_ENABLED | TBSTATE_CHECKED, 2, u"Filtro"_s);
    add(BTNS_CHECK, TBSTATE_ENABLED, 3, u"Vista"_s);
    add(BTNS_CHECKGROUP, TBSTATE_ENABLED | TBSTATE_CHECKED, 0, u"Mes"_s);
    add(BTNS_CHECKGROUP, TBSTATE_ENABLED, 1);
    add(BTNS_DROPDOWN, TBSTATE_ENABLED, 2, u"Ímpar"_s);
    add(BTNS_DROPDOWN, 0, 3);
}

QRect NativeBar::rect(int button) const {
    RECT place{};
    SendMessageW(m_toolbar, TB_GETRECT, static_cast<WPARAM>(button) + firstCommand,
                 reinterpret_cast<LPARAM>(&place));
    return {place.left, place.top, place.right - place.left, place.bottom - place.top};
}

void NativeBar::setState(int button, BYTE state) const {
    SendMessageW(m_toolbar, TB_SETSTATE, static_cast<WPARAM>(button) + firstCommand, state);
}

void NativeBar::pointAt(QPoint place) const {
    POINT point{place.x(), place.y()};
    ClientToScreen(m_toolbar, &point);
    SetCursorPos(point.x, point.y);
    settle();
}

bool NativeBar::settleUntilHot(int button) const {
    return settleUntil([&] { return SendMessageW(m_toolbar, getHotItem, 0, 0) == button; });
}

void NativeBar::pointAtButton(int button) const {
    pointAt(rect(button).center());
    TBBUTTON source{};
    SendMessageW(m_toolbar, getButton, static_cast<WPARAM>(button), reinterpret_cast<LPARAM>(&source));
    if (source.fsStyle == BTNS_SEP || (source.fsState & TBSTATE_ENABLED) == 0)
        settleUntilHot(-1);
    else
        settleUntilHot(button);
}

void NativeBar::pointAway() const {
    SetCursorPos(5, 5);
    settleUntilHot(-1);
}

QImage NativeBar::shown() const {
    RECT area{};
    GetWindowRect(m_toolbar, &area);
    QImage picture(area.right - area.left, area.bottom - area.top, QImage::Format_RGB32);
    picture.fill(Qt::white);
    HDC window = GetDC(m_toolbar);
    HDC memory = CreateCompatibleDC(window);
    HBITMAP bitmap = toBitmap(picture);
    HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, picture.width(), picture.height(), window, 0, 0, SRCCOPY);
    GdiFlush();
    DIBSECTION section{};
    GetObjectW(bitmap, sizeof(section), &section);
    std::memcpy(picture.bits(), section.dsBm.bmBits, static_cast<std::size_t>(picture.sizeInBytes()));
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(m_toolbar, window);
    return picture.convertToFormat(QImage::Format_ARGB32).convertToFormat(QImage::Format_RGB32);
}

ToolbarDescription NativeBar::description(bool textOnRight) const {
    ToolbarDescription bar;
    RECT area{};
    GetWindowRect(m_toolbar, &area);
    bar.size = {area.right - area.left, area.bottom - area.top};
    bar.iconSize = m_lists.empty() ? QSize() : m_iconSize;
    bar.font = m_painted;
    bar.textOnRight = textOnRight;
    POINT cursor{};
    GetCursorPos(&cursor);
    ScreenToClient(m_toolbar, &cursor);
    bar.cursor = {cursor.x, cursor.y};
    HWND menu = FindWindowW(L"#32768", nullptr);
    bar.menuOpen = menu != nullptr && IsWindowVisible(menu) != FALSE;
    for (std::size_t i = 0; i < m_captions.size(); ++i) {
        TBBUTTON source{};
        SendMessageW(m_toolbar, getButton, i, reinterpret_cast<LPARAM>(&source));
        ToolbarButton& button = bar.buttons.emplace_back();
        button.style = source.fsStyle & 0x0F;
        button.state = source.fsState;
        button.rect = (source.fsState & TBSTATE_HIDDEN) != 0 ? QRect() : rect(static_cast<int>(i));
        button.image = m_lists.empty() ? -1 : source.iBitmap;
        button.caption = m_captions[i];
    }
    return bar;
}

} // namespace toolbar_test
