#include "platform/quorvane32/session/AuditTrail.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/SessionSql.h"

namespace quorvane {

namespace {

/// The code of the entry that tells of lost ones.
constexpr int lostCode = 0;

QString insertStatement(const AuditEntry& entry) {
    return QStringLiteral(
               "INSERT INTO ses_auditoria (Momento, Usuario, Empresa, Programa, Codigo, Texto, Equipo) "
               "VALUES (") +
           sqlText(entry.moment) + u',' + sqlText(entry.user) + u',' + sqlText(entry.company) + u',' +
           sqlText(entry.program) + u',' + QString::number(entry.code) + u',' + sqlText(entry.text) + u',' +
           sqlText(entry.client) + u')';
}

} // namespace

void AuditTrail::add(AuditEntry entry) {
    if (m_waiting.size() >= mostWaiting) {
        m_waiting.pop_front();
        ++m_lost;
    }
    m_waiting.push_back(std::move(entry));
}

bool AuditTrail::store() noexcept {
    // A connection that was lost since the last entry shows so only now; the second attempt opens a new one.
    // A server that is known to be away is asked once.
    bool reached = tryStore();
    if (!reached && !m_away)
        reached = tryStore();
    m_away = !reached;
    return m_waiting.empty();
}

bool AuditTrail::tryStore() noexcept {
    try {
        storeAll();
    } catch (const RunTimeError& error) {
        m_connection.rollbackTrans();
        return error.number() != ErrorConnectionLost;
    } catch (const std::exception&) {
        m_connection.rollbackTrans();
    }
    return true;
}

void AuditTrail::storeAll() {
    if (m_waiting.empty())
        return;
    // One entry is a transaction by itself.
    const bool several = m_waiting.size() > 1 || m_lost > 0;
    if (several)
        m_connection.beginTrans();
    if (m_lost > 0) {
        AuditEntry note = m_waiting.front();
        note.code = lostCode;
        note.text = QStringLiteral("Se perdieron %1 entradas anteriores").arg(m_lost);
        m_connection.execute(insertStatement(note));
    }
    for (const AuditEntry& entry : m_waiting)
        m_connection.execute(insertStatement(entry));
    if (several)
        m_connection.commitTrans();
    m_waiting.clear();
    m_lost = 0;
}

} // namespace quorvane
