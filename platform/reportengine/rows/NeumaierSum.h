#pragma once

#include <cmath>

namespace quorvane::report {

/// A sum that keeps what each addition rounds away: a million amounts add up to the cent.
class NeumaierSum {
public:
    void add(double number) {
        const double total = m_total + number;
        m_lost +=
            std::abs(m_total) >= std::abs(number) ? (m_total - total) + number : (number - total) + m_total;
        m_total = total;
    }
    double value() const { return m_total + m_lost; }

private:
    double m_total = 0;
    double m_lost = 0;
};

} // namespace quorvane::report
