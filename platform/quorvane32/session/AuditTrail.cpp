#include "platform/quorvane32/session/AuditTrail.h"

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
    try {
        storeAll();
    } catch (const std::exception&) {
        m_connection.rollbackTrans();
    }
    return m_waiting.empty();
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
