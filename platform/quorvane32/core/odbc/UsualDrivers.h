#pragma once

namespace quorvane::odbc {

// Names by which the system's driver manager knows the drivers that a profile means when it names none.
extern const char* const usualSqlServerDriver;
extern const char* const usualPostgresDriver;

} // namespace quorvane::odbc
