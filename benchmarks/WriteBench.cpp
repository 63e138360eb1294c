#include "benchmarks/Benches.h"
#include "benchmarks/Company.h"
#include "benchmarks/Floor.h"
#include "benchmarks/Harness.h"
#include "data/DBTable.h"
#include "platform/quorvane32/core/Connection.h"
#include <QRegularExpression>
#include <stdexcept>

namespace bench {

namespace {

constexpr double writeGoal = 1.5;
constexpr double unchangedGoal = 3;
constexpr int rounds = 15;

/// Dates as the database keeps them; without this the plain statements would find no row.
QByteArray withIsoDates(QString sql) {
    static const QRegularExpression date(QStringLiteral("'(\\d\\d)/(\\d\\d)/(\\d{4})'"));
    return sql.replace(date, QStringLiteral("'\\3-\\2-\\1'")).toUtf8();
}

/// The statements that a save sends, as the plain interface takes them.
std::vector<QByteArray> statementsOf(Company& company) {
    std::vector<QByteArray> statements;
    company.context().Connection->setStatementObserver(
        [&](const QString& sql) { statements.push_back(withIsoDates(sql)); });
    company.save();
    company.context().Connection->setStatementObserver({});
    return statements;
}

void removeScheme(const Floor& floor, const QByteArray& code) {
    floor.run("DELETE FROM Comisiones WHERE Empresa = '001' and Codigo = '" + code + "'");
    floor.run("DELETE FROM ComisionesD WHERE Empresa = '001' and Codigo = '" + code + "'");
}

void benchNew(Report& report, Company& company, const Floor& floor) {
    company.enterScheme("BENCHNEW", 1000);
    const auto statements = statementsOf(company);
    report.add(
        compare("save a new scheme of 1000 lines", writeGoal, rounds,
                {[&] { company.save(); },
                 [&] {
                     removeScheme(floor, "BENCHNEW");
                     company.enterScheme("BENCHNEW", 1000);
                 }},
                {[&] { floor.runInTransaction(statements); }, [&] { removeScheme(floor, "BENCHNEW"); }}));
    removeScheme(floor, "BENCHNEW");
}

/// Every tenth line gets another percentage, which flips with each round so that there is always a change.
void changeLines(Company& company, int round) {
    company.read("BENCH1000");
    for (int i = 1; i <= 1000; i += 10)
        company.table().Details(i).setTextValue(6, round % 2 == 0 ? "11,5" : "12,5");
}

void benchChange(Report& report, Company& company, const Floor& floor) {
    int round = 0;
    changeLines(company, round);
    company.save();
    std::vector<QByteArray> there;
    std::vector<QByteArray> back;
    changeLines(company, ++round);
    there = statementsOf(company);
    changeLines(company, ++round);
    back = statementsOf(company);
    report.add(compare("change 100 of 1000 lines and save", writeGoal, rounds,
                       {[&] { company.save(); }, [&] { changeLines(company, ++round); }},
                       {[&] { floor.runInTransaction(round++ % 2 == 0 ? there : back); }}));
}

/// The user changes nothing. Another program has changed the description meanwhile, so that the header's
/// update is a write for both: the database leaves out one that stores what is there.
void benchUnchanged(Report& report, Company& company, const Floor& floor, const QString& code) {
    company.read(code);
    const auto statements = statementsOf(company);
    if (statements.size() != 1)
        throw std::runtime_error("an unchanged scheme sends more than its header");
    const QByteArray otherDescription =
        "UPDATE Comisiones SET Descripcion = 'x' WHERE Empresa = '001' and Codigo = '" + code.toUtf8() + "'";
    const auto name = QStringLiteral("save %1 unchanged lines").arg(code.mid(5)).toStdString();
    report.add(compare(name, unchangedGoal, 2 * rounds,
                       {[&] { company.save(); },
                        [&] {
                            company.read(code);
                            floor.run(otherDescription);
                        }},
                       {[&] { floor.runInTransaction(statements); }, [&] { floor.run(otherDescription); }}));
}

} // namespace

void benchWrites(Report& report, Company& company) {
    const Floor floor(company.databaseFile());
    benchNew(report, company, floor);
    benchChange(report, company, floor);
    benchUnchanged(report, company, floor, "BENCH1000");
    company.addScheme("BENCH10", 10);
    benchUnchanged(report, company, floor, "BENCH10");
}

} // namespace bench
