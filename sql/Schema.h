#pragma once

#include <QByteArray>

namespace dalvora {

/// The statements that create the ERP's tables in an empty embedded database (UTF-8, separated by ";").
QByteArray erpTables();
/// The statements that create the session service's tables, with the layout's version in ses_esquema.
QByteArray sessionTables();

} // namespace dalvora
