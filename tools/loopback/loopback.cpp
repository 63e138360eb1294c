// Preloaded when the window is served over VNC: a server socket that would listen on every address of the
// machine listens on its loopback only.
#include <cstring>
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>

extern "C" int bind(int socket, const sockaddr* address, socklen_t length) noexcept {
    using Bind = int (*)(int, const sockaddr*, socklen_t);
    static const auto real = reinterpret_cast<Bind>(dlsym(RTLD_NEXT, "bind"));
    if (address->sa_family == AF_INET && length >= sizeof(sockaddr_in)) {
        sockaddr_in local{};
        std::memcpy(&local, address, sizeof local);
        if (local.sin_addr.s_addr == htonl(INADDR_ANY))
            local.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        return real(socket, reinterpret_cast<const sockaddr*>(&local), sizeof local);
    }
    if (address->sa_family == AF_INET6 && length >= sizeof(sockaddr_in6)) {
        sockaddr_in6 local{};
        std::memcpy(&local, address, sizeof local);
        if (!IN6_IS_ADDR_UNSPECIFIED(&local.sin6_addr))
            return real(socket, address, length);
        // A wildcard socket serves both families; clients ask for 127.0.0.1, here as a mapped address.
        local.sin6_addr = in6addr_any;
        const unsigned char mapped[16] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF, 127, 0, 0, 1};
        std::memcpy(&local.sin6_addr, mapped, sizeof mapped);
        return real(socket, reinterpret_cast<const sockaddr*>(&local), sizeof local);
    }
    return real(socket, address, length);
}
