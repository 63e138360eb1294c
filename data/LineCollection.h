#pragma once

#include "data/CommissionLine.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <memory>
#include <optional>
#include <vector>

namespace dalvora {

/// One kind of lines as the grids use it, whatever the kind. Positions start at 1; one out of range is error
/// 9 to the caller.
class LineList {
public:
    virtual ~LineList() = default;
    virtual CommissionLine& line(int Index) = 0;
    virtual int count() const = 0;
    /// Inserts a new empty line before the given position, or appends it, and returns it.
    virtual CommissionLine& add(std::optional<int> Index = {}) = 0;
    /// Removes a line; one that came from the database is remembered, so that the next write deletes its row.
    virtual void remove(int Index) = 0;
};

/// The lines of one class and the saved values of those removed since the last read. A vector of pointers:
/// lines keep their address, and inserting or removing by position moves 8 bytes a line, which at 100,000
/// lines is some microseconds.
template<class Line> class LineCollection final : public LineList {
public:
    using Values = decltype(Line::Save);

    /// With `keepsEntryLine`, removing the last line leaves a new empty one.
    LineCollection(const DBTable& table, bool keepsEntryLine)
        : m_table(table), m_keepsEntryLine(keepsEntryLine) {}

    Line& line(int Index) override { return *m_lines[place(Index)]; }
    int count() const override { return static_cast<int>(m_lines.size()); }
    Line& add(std::optional<int> Index = {}) override {
        const auto where =
            Index ? m_lines.begin() + static_cast<std::ptrdiff_t>(place(*Index)) : m_lines.end();
        return **m_lines.insert(where, std::make_unique<Line>(m_table));
    }
    void remove(int Index) override {
        const size_t position = place(Index);
        if (m_lines[position]->SysRecordFound)
            m_deleted.push_back(m_lines[position]->Save);
        m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(position));
        if (m_lines.empty() && m_keepsEntryLine)
            add();
    }
    /// Drops all lines and forgets the removed ones.
    void clear() {
        m_lines.clear();
        m_deleted.clear();
    }

    const std::vector<std::unique_ptr<Line>>& lines() const { return m_lines; }
    std::vector<Values>& deleted() { return m_deleted; }
    const std::vector<Values>& deleted() const { return m_deleted; }

private:
    size_t place(int Index) const {
        if (Index < 1 || Index > count())
            quorvane::raise(quorvane::ErrorSubscript);
        return static_cast<size_t>(Index) - 1;
    }

    const DBTable& m_table;
    bool m_keepsEntryLine;
    std::vector<std::unique_ptr<Line>> m_lines;
    std::vector<Values> m_deleted;
};

} // namespace dalvora
