#include "app/windows/VersionResource.h"
#include <vector>
#include <windows.h>

namespace dalvora {

std::optional<ProgramVersion> versionResource(const QString& file) {
    const auto* name = reinterpret_cast<LPCWSTR>(file.utf16());
    std::vector<char> resource(GetFileVersionInfoSizeW(name, nullptr));
    void* found = nullptr;
    UINT size = 0;
    if (resource.empty() ||
        !GetFileVersionInfoW(name, 0, static_cast<DWORD>(resource.size()), resource.data()) ||
        !VerQueryValueW(resource.data(), L"\\", &found, &size) || size < sizeof(VS_FIXEDFILEINFO))
        return std::nullopt;
    const auto* version = static_cast<const VS_FIXEDFILEINFO*>(found);
    return ProgramVersion{HIWORD(version->dwFileVersionMS), LOWORD(version->dwFileVersionMS),
                          LOWORD(version->dwFileVersionLS)};
}

} // namespace dalvora
