#include "platform/dde/windows/DdeAnswerer.h"
#include "platform/dde/ChannelAddress.h"
#include "platform/dde/windows/DdeCommand.h"
#include "platform/dde/windows/DdeString.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QScopedValueRollback>
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace quorvane {

/// A topic while it is offered.
class DdeAnswerer::Service {
public:
    explicit Service(const Executor& execute) : m_execute(execute) {}
    ~Service();
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    /// False when the library refuses or this thread offers too many.
    bool begin(const QString& name, const QString& topic);

private:
    static constexpr std::size_t mostServices = 8;
    using Services = std::array<Service*, mostServices>;

    /// The library's callback takes nothing along that would say whose it is, so each service has a callback
    /// of its own, which knows its place among the services of its thread. They are the one thing here that
    /// no object owns.
    static Services& offered() {
        thread_local Services services = {};
        return services;
    }
    template<std::size_t place>
    static HDDEDATA CALLBACK called(UINT type, UINT, HCONV, HSZ topic, HSZ, HDDEDATA data, ULONG_PTR,
                                    ULONG_PTR) noexcept {
        Service* service = offered()[place];
        return reinterpret_cast<HDDEDATA>(service ? service->answer(type, topic, data) : 0);
    }
    template<std::size_t... places>
    static PFNCALLBACK callback(std::size_t place, std::index_sequence<places...>) {
        constexpr std::array<PFNCALLBACK, sizeof...(places)> callbacks = {&Service::called<places>...};
        return callbacks[place];
    }

    ULONG_PTR answer(UINT type, HSZ topic, HDDEDATA data);
    ULONG_PTR execute(HDDEDATA data);

    const Executor& m_execute;
    DWORD m_instance = 0;
    std::optional<DdeString> m_name;
    std::optional<DdeString> m_topic;
    bool m_executing = false;
};

DdeAnswerer::Service::~Service() {
    std::replace(offered().begin(), offered().end(), this, static_cast<Service*>(nullptr));
    m_topic.reset();
    m_name.reset();
    if (m_instance != 0)
        DdeUninitialize(m_instance); // gives the name back and ends the conversations
}

bool DdeAnswerer::Service::begin(const QString& name, const QString& topic) {
    constexpr DWORD commandsOnly =
        APPCLASS_STANDARD | CBF_FAIL_ADVISES | CBF_FAIL_POKES | CBF_FAIL_REQUESTS | CBF_SKIP_ALLNOTIFICATIONS;
    const auto place = std::find(offered().begin(), offered().end(), nullptr);
    if (place == offered().end())
        return false;
    const PFNCALLBACK own = callback(static_cast<std::size_t>(place - offered().begin()),
                                     std::make_index_sequence<mostServices>());
    if (DdeInitializeW(&m_instance, own, commandsOnly, 0) != DMLERR_NO_ERROR)
        return false;
    m_name.emplace(m_instance, name);
    m_topic.emplace(m_instance, topic);
    if (!m_name->handle() || !m_topic->handle())
        return false;
    *place = this;
    return DdeNameService(m_instance, m_name->handle(), nullptr, DNS_REGISTER) != nullptr;
}

// The library asks only for the name that is registered; the topic is ours to look at.
ULONG_PTR DdeAnswerer::Service::answer(UINT type, HSZ topic, HDDEDATA data) {
    if (type == XTYP_CONNECT)
        return DdeCmpStringHandles(m_topic->handle(), topic) == 0 ? TRUE : FALSE;
    return type == XTYP_EXECUTE ? execute(data) : 0;
}

ULONG_PTR DdeAnswerer::Service::execute(HDDEDATA data) {
    if (m_executing)
        return DDE_FBUSY;
    const QScopedValueRollback<bool> executing(m_executing, true);
    QByteArray bytes(DdeGetData(data, nullptr, 0, 0), Qt::Uninitialized);
    DdeGetData(data, reinterpret_cast<LPBYTE>(bytes.data()), static_cast<DWORD>(bytes.size()), 0);
    try {
        return m_execute(ddeCommandText(bytes)).accepted ? DDE_FACK : DDE_FNOTPROCESSED;
    } catch (const RunTimeError&) {
        return DDE_FNOTPROCESSED;
    }
}

DdeAnswerer::DdeAnswerer(QString topic, Executor execute)
    : m_topic(std::move(topic)), m_execute(std::move(execute)), m_lock(channelAddress(m_topic)) {}

DdeAnswerer::~DdeAnswerer() {
    DdeAnswerer::close();
}

bool DdeAnswerer::listen() {
    if (m_service)
        return true;
    if (!isChannelTopic(m_topic) || !m_lock.acquire())
        return false;
    const qsizetype bar = m_topic.indexOf(u'|');
    auto service = std::make_unique<Service>(m_execute);
    if (!service->begin(m_topic.left(bar), m_topic.mid(bar + 1))) {
        m_lock.release();
        return false;
    }
    m_service = std::move(service);
    return true;
}

void DdeAnswerer::close() {
    m_service.reset();
    m_lock.release();
}

} // namespace quorvane
