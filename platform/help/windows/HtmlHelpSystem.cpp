#include "platform/help/windows/HtmlHelpSystem.h"

#include "platform/quorvane32/base/RunTimeError.h"

#include <QDir>
#include <QFileInfo>
#include <optional>
#include <utility>
#include <vector>
#include <windows.h>

namespace help {

using quorvane::RunTimeError;
using namespace Qt::StringLiterals;

namespace {

using HtmlHelpCall = HWND(WINAPI*)(HWND owner, LPCSTR file, UINT command, DWORD_PTR data);

constexpr UINT closeAll = 18;

LPCWSTR wide(const QString& text) {
    return reinterpret_cast<LPCWSTR>(text.utf16());
}

/// The text in the system's code page, nothing when that has not all of its letters.
std::optional<QByteArray> inCodePage(const QString& text) {
    if (text.isEmpty())
        return QByteArray();
    // Look-alikes are refused: "Ĝ" for "G" would name another folder. A UTF-8 code page has every letter and
    // takes neither this flag nor the question for letters that were replaced.
    const bool unicode = GetACP() == CP_UTF8;
    BOOL replaced = FALSE;
    QByteArray bytes(text.size() * 4, Qt::Uninitialized);
    const int size = WideCharToMultiByte(
        CP_ACP, unicode ? 0 : WC_NO_BEST_FIT_CHARS, wide(text), static_cast<int>(text.size()), bytes.data(),
        static_cast<int>(bytes.size()), nullptr, unicode ? nullptr : &replaced);
    if (size <= 0 || replaced)
        return std::nullopt;
    bytes.truncate(size);
    return bytes;
}

/// The name that the file system keeps beside the long one, in letters that every program reads; empty on a
/// disk that keeps none.
QString shortPath(const QString& path) {
    std::vector<wchar_t> buffer(MAX_PATH);
    DWORD size = GetShortPathNameW(wide(path), buffer.data(), static_cast<DWORD>(buffer.size()));
    if (size > buffer.size()) {
        buffer.resize(size);
        size = GetShortPathNameW(wide(path), buffer.data(), size);
    }
    return QString::fromWCharArray(buffer.data(), static_cast<qsizetype>(size));
}

/// The file's name as the viewer takes it. The viewer reads its files by names of the code page even when it
/// is called with others, so a name beyond that page is given in its short form.
QByteArray viewerName(const QString& file) {
    const QString path = QDir::toNativeSeparators(QFileInfo(file).absoluteFilePath());
    if (const auto name = inCodePage(path))
        return *name;
    const auto name = inCodePage(shortPath(path));
    if (!name || name->isEmpty())
        throw RunTimeError(quorvane::ErrorPathAccess,
                           u"El visor de la ayuda no admite todas las letras de la ruta «%1»"_s.arg(path));
    return *name;
}

void checkFile(const QString& file) {
    const QFileInfo info(file);
    if (!info.isFile())
        throw RunTimeError(quorvane::ErrorFileNotFound,
                           u"No se encontró el archivo de ayuda «%1»"_s.arg(QDir::toNativeSeparators(file)));
    if (!info.isReadable())
        throw RunTimeError(
            quorvane::ErrorPermissionDenied,
            u"No se tiene permiso para leer el archivo de ayuda «%1»"_s.arg(QDir::toNativeSeparators(file)));
}

[[noreturn]] void raiseNotShown(const QString& file, int command, const QVariant& data) {
    const QString name = QDir::toNativeSeparators(file);
    if (command == DisplayTopic || command == ShowContext)
        throw RunTimeError(
            quorvane::ErrorItemNotFound,
            u"El visor de la ayuda no pudo mostrar el tema «%1» de «%2»"_s.arg(data.toString(), name));
    throw RunTimeError(quorvane::ErrorInvalidCall, u"El visor de la ayuda no pudo mostrar «%1»"_s.arg(name));
}

} // namespace

HtmlHelpSystem::HtmlHelpSystem(QString library) : m_library(std::move(library)) {}

// The library goes with the process: freed now, it would be gone under windows that are still closing.
HtmlHelpSystem::~HtmlHelpSystem() {
    if (m_entryPoint)
        reinterpret_cast<HtmlHelpCall>(m_entryPoint)(nullptr, nullptr, closeAll, 0);
}

void HtmlHelpSystem::load() {
    if (m_entryPoint)
        return;
    const HMODULE module = LoadLibraryExW(wide(m_library), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (module)
        m_entryPoint = reinterpret_cast<QFunctionPointer>(GetProcAddress(module, "HtmlHelpA"));
    if (!m_entryPoint)
        throw RunTimeError(ErrorViewerNotUsable,
                           u"No se puede usar el visor de la ayuda: %1"_s.arg(qt_error_string()));
}

void HtmlHelpSystem::htmlHelp(const QString& file, int command, const QVariant& data) {
    load();
    checkFile(file);
    const QByteArray name = viewerName(file);
    // Kept until the call returns: the viewer reads a text where it stands.
    std::optional<QByteArray> text;
    DWORD_PTR given = 0;
    switch (command) {
    case DisplayTopic:
    case DisplayIndex:
        text = inCodePage(data.toString());
        if (!text)
            raiseNotShown(file, command, data);
        if (!text->isEmpty())
            given = reinterpret_cast<DWORD_PTR>(text->constData());
        break;
    case DisplayContents:
        break;
    case ShowContext:
        given = static_cast<DWORD>(data.toInt());
        break;
    default:
        quorvane::raise(quorvane::ErrorInvalidCall);
    }
    if (!reinterpret_cast<HtmlHelpCall>(m_entryPoint)(nullptr, name.constData(), static_cast<UINT>(command),
                                                      given))
        raiseNotShown(file, command, data);
}

} // namespace help
