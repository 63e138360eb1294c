#include "benchmarks/Benches.h"
#include "benchmarks/Company.h"
#include "benchmarks/Floor.h"
#include "benchmarks/Harness.h"
#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "demo/ScaleData.h"
#include "forms/vendedor/FM_Vendedor.h"
#include "platform/quorvane32/core/Connection.h"
#include <QCoreApplication>
#include <stdexcept>

namespace bench {

namespace {

constexpr double assignGoal = 1.5;
constexpr int rounds = 7;
constexpr int salespeople = 5000;

/// The list tells its limit at every read of 5000 salespeople; nobody answers here.
class Silence final : public dalvora::MessagePresenter {
public:
    Silence() : m_previous(dalvora::installMessagePresenter(this)) {}
    ~Silence() override { dalvora::installMessagePresenter(m_previous); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;
    qint16 show(const QString&, int, const QString&) override { return dalvora::ButtonOk; }

private:
    dalvora::MessagePresenter* m_previous;
};

void markAll(dalvora::FM_Vendedor& form) {
    form.Refresh();
    quorvane::XGrid& grid = *form.controls().XGrid;
    for (int row = 1; row < grid.rows(); ++row) {
        grid.setRow(row);
        form.list().toggleMark();
    }
    QCoreApplication::processEvents();
    if (form.list().markedCount() != salespeople)
        throw std::runtime_error("not every salesperson is marked");
}

/// The updates that assigning sends.
std::vector<QByteArray> updatesOf(Company& company, dalvora::FM_Vendedor& form) {
    std::vector<QByteArray> updates;
    markAll(form);
    company.context().Connection->setStatementObserver([&](const QString& sql) {
        if (sql.startsWith(QLatin1String("update")))
            updates.push_back(sql.toUtf8());
    });
    form.controls().CmdAsignar->click();
    company.context().Connection->setStatementObserver({});
    if (updates.size() != salespeople)
        throw std::runtime_error("not every salesperson was assigned");
    return updates;
}

} // namespace

void benchSalespeople(Report& report, Company& company) {
    const Silence silence;
    const Floor floor(company.databaseFile());
    dalvora::demo::ScaleData(company.databaseFile(), QStringLiteral("001")).addSalespeople(salespeople);
    dalvora::FM_Vendedor form(company.context());
    form.open();
    // The floor stores one scheme, the form another: every update changes its row.
    company.table().DBClear();
    company.table().setTextValue(2, QStringLiteral("SUELO"));
    const std::vector<QByteArray> updates = updatesOf(company, form);
    company.table().setTextValue(2, QStringLiteral("FORMA"));
    report.add(compare("assign a scheme to 5000 salespeople", assignGoal, rounds,
                       {[&] { form.controls().CmdAsignar->click(); }, [&] { markAll(form); }}, {[&] {
                           for (const QByteArray& update : updates)
                               floor.run(update);
                       }}));
    report.add(compare("list 5000 salespeople and paint them", std::nullopt, rounds, {[&] {
                           form.Refresh();
                           form.grab();
                       }},
                       {[&] { form.grab(); }}));
}

} // namespace bench
