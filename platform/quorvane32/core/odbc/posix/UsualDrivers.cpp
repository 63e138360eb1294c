#include "platform/quorvane32/core/odbc/UsualDrivers.h"

namespace quorvane::odbc {

const char* const usualSqlServerDriver = "FreeTDS";
const char* const usualPostgresDriver = "PostgreSQL Unicode";

} // namespace quorvane::odbc
