#include "platform/reportengine/engine/Report.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/reportengine/definition/DefinitionReader.h"

namespace quorvane::report {

namespace {

void requirePosition(int position, std::size_t count) {
    if (position < 1 || static_cast<std::size_t>(position) > count)
        raise(ErrorSubscript);
}

} // namespace

Report::Report(Definition definition) : m_definition(std::move(definition)) {}

Report::~Report() = default;

void Report::setDataSource(std::unique_ptr<RowSource> rows) {
    m_layout.reset();
    m_layout = std::make_unique<Layout>(m_definition, std::move(rows));
}

int Report::sectionCount() const {
    return static_cast<int>(m_definition.sections.size());
}

const Section& Report::section(int section) const {
    requirePosition(section, m_definition.sections.size());
    return m_definition.sections[section - 1];
}

int Report::objectCount(int section) const {
    return static_cast<int>(this->section(section).objects.size());
}

ObjectHandle Report::object(int section, int object) {
    requirePosition(object, this->section(section).objects.size());
    return {*this, section, object};
}

void Report::followFormat(const ReportObject& leader) {
    for (Section& section : m_definition.sections) {
        for (ReportObject& follower : section.objects) {
            if (follower.kind != ObjectKind::Field || follower.formatOf.isEmpty() ||
                follower.formatOf.compare(leader.name, Qt::CaseInsensitive) != 0)
                continue;
            const int decimals = follower.ownDecimals ? follower.format.decimals : leader.format.decimals;
            follower.format = leader.format;
            follower.format.decimals = decimals;
        }
    }
}

int Report::formulaCount() const {
    return static_cast<int>(m_definition.formulas.size());
}

const QString& Report::formulaName(int formula) const {
    requirePosition(formula, m_definition.formulas.size());
    return m_definition.formulas[formula - 1].name;
}

void Report::setFormulaText(int formula, const QString& text) {
    requirePosition(formula, m_definition.formulas.size());
    if (text.size() < 2 || !text.startsWith(u'"') || !text.endsWith(u'"'))
        raise(ErrorInvalidCall);
    m_definition.formulas[formula - 1].text = text;
}

void Report::selectPrinter(const QString& driver, const QString& device, const QString& port) {
    m_printer = {driver, device, port};
}

int Report::pageCount() {
    layout().finish();
    return m_layout->pageCount();
}

Layout& Report::layout() {
    if (!m_layout)
        raise(ErrorObjectNotSet);
    return *m_layout;
}

std::unique_ptr<Report> Application::openReport(const QString& path) const {
    return std::make_unique<Report>(readDefinition(path));
}

} // namespace quorvane::report
