#pragma once

#include <QString>
#include <QStringList>

namespace quorvane {
class Connection;
}

namespace dalvora {

/// What was done to a database's tables.
struct TableUpgrade {
    qint64 layoutBefore = 0; ///< 0 when it had no tables of the session
    qint64 layout = 0;
    QStringList created; ///< tables
    QStringList indexes; ///< created on tables that were there
    /// Tables of the ERP that were there before and were left alone.
    QStringList kept;

    bool changed() const { return layoutBefore != layout || !created.isEmpty() || !indexes.isEmpty(); }
};

/// Gives a database of any engine what it lacks: all tables in an empty one; in one where the ERP's tables
/// are, those that are missing; in one of an older layout, the steps up to the present one. Everything or
/// nothing: it is one transaction. A table of the ERP that is there is not touched, whatever it looks like.
/// Error 3343 for a newer layout; the engine's own errors. The connection is open, and is opened anew.
TableUpgrade bringTablesUpToDate(quorvane::Connection& connection);

} // namespace dalvora
