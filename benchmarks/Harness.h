#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace bench {

/// A figure and what it is held against, both measured in the same run.
struct Result {
    std::string name;
    std::string unit;
    double ours = 0;
    double floor = 0;
    /// Largest acceptable ratio; none where the figure is only printed.
    std::optional<double> goal;

    double ratio() const { return ours / floor; }
    bool isMet() const { return !goal || ratio() <= *goal; }
    /// Takes the other's figures where they are better.
    void keepBest(const Result& other) {
        ours = std::min(ours, other.ours);
        floor = std::min(floor, other.floor);
    }
};

/// One timed action with what must be made ready before and put away after each round, outside the time.
struct Action {
    std::function<void()> run;
    std::function<void()> prepare = [] {};
};

/// Runs both actions in turn, so that the machine's moods meet both alike, and keeps the best time of each,
/// in milliseconds.
Result compare(std::string name, std::optional<double> goal, int rounds, const Action& ours,
               const Action& floor);

/// Collects results and prints them: a table, or one JSON object a line.
class Report {
public:
    explicit Report(bool json) : m_json(json) {}
    /// Prints at once: a long run shows how far it is.
    void add(const Result& result);
    bool allMet() const { return m_allMet; }

private:
    bool m_json;
    bool m_allMet = true;
    bool m_titled = false;
};

} // namespace bench
