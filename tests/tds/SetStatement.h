#pragma once

#include "tests/tds/TransactSql.h"

namespace dalvora::test::tds {

/// Takes over what one or more SET statements say ("SET NOCOUNT ON SET DATEFORMAT dmy"). ServerFault 195 for
/// an option that this server does not know; options that mean nothing to the embedded engine are accepted.
void applySet(const QString& sql, SessionSettings& settings);
/// A session's language tells its order of dates.
void applyLanguage(const QString& language, SessionSettings& settings);

} // namespace dalvora::test::tds
