#pragma once

namespace bench {

class Company;
class Report;

void benchTexts(Report& report);
void benchReads(Report& report, Company& company);
void benchWrites(Report& report, Company& company);
void benchGrid(Report& report, Company& company);
void benchStart(Report& report, Company& company);

} // namespace bench
