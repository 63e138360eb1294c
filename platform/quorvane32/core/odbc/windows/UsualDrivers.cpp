#include "platform/quorvane32/core/odbc/UsualDrivers.h"

namespace quorvane::odbc {

const char* const usualSqlServerDriver = "ODBC Driver 18 for SQL Server";
const char* const usualPostgresDriver = "PostgreSQL Unicode(x64)";

} // namespace quorvane::odbc
