#pragma once

namespace bench {

class Company;
class Report;

// These two need no company.
void benchTexts(Report& report, Company&);
void benchToolbar(Report& report, Company&);
void benchReads(Report& report, Company& company);
void benchWrites(Report& report, Company& company);
void benchGrid(Report& report, Company& company);
void benchSalespeople(Report& report, Company& company);
/// Makes companies of its own.
void benchReports(Report& report, Company&);
/// Needs no company.
void benchExports(Report& report, Company&);
void benchStart(Report& report, Company& company);
/// Reads and saves on a PostgreSQL server of its own against the server's C library.
void benchServer(Report& report, Company& company);

} // namespace bench
