#pragma once

#include "platform/reportengine/definition/Definition.h"
#include "platform/reportengine/rows/NeumaierSum.h"
#include "platform/reportengine/rows/RowCodec.h"
#include <vector>

namespace quorvane::report {

/// Running sums and counts of a report and its groups: of those rows that have been added since the scope
/// began. Its state is small, so every page start can keep one.
class Totals {
public:
    /// Keeps the sums that the definition's fields and charts ask for.
    explicit Totals(const Definition& definition);

    void add(const RowReader& row);
    /// The group and all within it begin anew.
    void restart(int group);

    /// `scope` as FieldSource has it; 0 for a sum that nobody asked for.
    double sum(int scope, int column) const;
    qint64 count(int scope) const { return m_counts[scope + 1]; }

    struct State {
        std::vector<NeumaierSum> sums;
        std::vector<qint64> counts;
    };
    State state() const { return {m_sums, m_counts}; }
    void restore(const State& state) {
        m_sums = state.sums;
        m_counts = state.counts;
    }

private:
    struct Cell {
        int column = 0;
        int scope = FieldSource::WholeReport;
    };
    void ask(int column, int scope);

    std::vector<Cell> m_cells; ///< by column, so each value is read once
    std::vector<NeumaierSum> m_sums;
    std::vector<qint64> m_counts; ///< of the report, then of the groups
};

} // namespace quorvane::report
