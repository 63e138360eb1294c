#pragma once

#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/quorvane32/core/Components.h"
#include <QHash>
#include <QSize>
#include <memory>

namespace quorvane {

/// Sizes that the user gave to the lookup windows of this process, by query name.
using LookupSizes = QHash<QString, QSize>;

/// The lookup component "Quorvane32.QuorQuery": runs a named query of a query file and lets the user choose
/// one of its rows.
class QuorQuery : public LookupComponent {
public:
    QuorQuery(const RegionalSettings& regional, std::shared_ptr<LookupSizes> sizes);

    void setConexion(Connection& connection) override { m_connection = &connection; }
    void setArchivoQuery(const QString& argument) override { m_argument = argument; }
    /// Error 91 without a connection; the errors of QueryFile, of its statement and of the database.
    QString Muestra() override;

private:
    RegionalSettings m_regional;
    std::shared_ptr<LookupSizes> m_sizes;
    Connection* m_connection = nullptr;
    QString m_argument;
};

} // namespace quorvane
