#include "benchmarks/Benches.h"
#include "benchmarks/Company.h"
#include "benchmarks/Harness.h"
#include "data/DBTable.h"
#include "forms/FormServices.h"
#include "forms/main/GridLayout.h"
#include "forms/main/frmMain.h"
#include <QCoreApplication>

namespace bench {

namespace {

constexpr double gridGoal = 1.2;
constexpr int rounds = 15;

/// Nobody asks for anything while lines are shown.
class NoServices final : public dalvora::FormServices {
public:
    bool QueryLookup(const QString&, const QString&, const QString&, QStringList&) override { return false; }
    void ShowAbout(const QString&, const QString&) override {}
    void Help(const QString&) override {}
    void previewReport() override {}
    void printReport() override {}
    void showSalespeople() override {}
    void terminate() override {}
};

void showAndScroll(dalvora::frmMain& form) {
    form.record().showRecord();
    QCoreApplication::processEvents();
    quorvane::XGrid& grid = *form.controls().XGrid;
    grid.setTopRow(grid.rows() - 1);
    grid.setRow(grid.rows() - 1);
    QCoreApplication::processEvents();
}

} // namespace

void benchGrid(Report& report, Company& company) {
    NoServices services;
    dalvora::frmMain form(company.context(), services);
    dalvora::SetupGrids(form.controls(), company.table());
    company.addScheme("BENCH100", 100);
    form.show();
    QCoreApplication::processEvents();
    // Either way the processor's caches have just seen the large scheme.
    const auto showing = [&](const QString& code) {
        return Action{[&] { showAndScroll(form); },
                      [&, code] {
                          company.table().carga_inicio();
                          form.record().showRecord();
                          QCoreApplication::processEvents();
                          company.read("BENCH100000");
                          if (code != QLatin1String("BENCH100000"))
                              company.read(code);
                      }};
    };
    report.add(compare("show 100000 lines and scroll to the end", gridGoal, rounds, showing("BENCH100000"),
                       showing("BENCH100")));
}

} // namespace bench
