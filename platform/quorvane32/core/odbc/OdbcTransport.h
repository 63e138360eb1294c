#pragma once

#include "platform/quorvane32/core/qtsql/Server.h"

namespace quorvane::odbc {

/// Qt's ODBC driver. Errors are read from the driver manager itself, since Qt's driver keeps neither the
/// SQLSTATE nor more than one number.
class OdbcTransport final : public qtsql::Transport {
public:
    struct Address {
        QString text;             ///< for the driver manager; holds the password
        QString place;            ///< in words, for messages
        int statementTimeout = 0; ///< that the driver shall keep (s); 0 for none
        bool readOnly = false;
    };
    explicit OdbcTransport(Address address) : m_address(std::move(address)) {}

    QString driver() const override { return QStringLiteral("QODBC"); }
    void prepare(QSqlDatabase& database) const override;
    void opened(const QSqlDatabase& database) const override;
    qtsql::ValueKind kindOf(const QSqlField& field) const override;
    std::unique_ptr<qtsql::FieldReader> reader(std::vector<qtsql::ValueKind> kinds) const override;
    qtsql::ServerFaults faults(const QSqlDatabase& database) const override;
    qtsql::ServerFaults faults(const QSqlQuery& query) const override;
    QString place() const override { return m_address.place; }

private:
    Address m_address;
};

} // namespace quorvane::odbc
