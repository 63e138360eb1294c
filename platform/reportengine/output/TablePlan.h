#pragma once

#include "platform/reportengine/definition/Definition.h"
#include <vector>

namespace quorvane::report {

/// An object of a section and the table's column that it stands in.
struct TableCell {
    int object = 0;
    int column = 0;
    bool joined = false; ///< a text that goes on in the cell of the one before it
};

/// Objects of a section that stand side by side: a line of the table, from left to right. Two of them share a
/// column only when at most one of them shows on a band or they are texts that are joined.
struct TableLine {
    std::vector<TableCell> cells;
    bool heading = false; ///< names the columns
    double top = 0;       ///< within the section, in points
    double bottom = 0;
};

struct TableSection {
    bool isBody = false; ///< one line a band, whose objects are the columns
    std::vector<TableLine> lines;
};

/// Where an object stands in its definition.
struct ObjectPlace {
    int section = 0;
    int object = 0;
};

struct TableColumn {
    double left = 0; ///< points from the left margin
    double right = 0;
    double width = 0;                  ///< the widest figure or date in it, at least its own objects' width
    std::vector<ObjectPlace> objects;  ///< of the body; more than one where they take turns
    std::vector<ObjectPlace> headings; ///< texts above it, from the top down
};

/// A report as a table, worked out once for all of its rows: what details show are the columns, the texts
/// above them their headings, and other sections' objects go to the column they stand under. A report that
/// shows no details has the lines of its innermost group instead.
class TablePlan {
public:
    explicit TablePlan(const Definition& definition);

    const std::vector<TableColumn>& columns() const { return m_columns; }
    const TableSection& section(int position) const { return m_sections[position]; }
    /// The section whose heading lines name the columns; -1 when no texts stand above them.
    int headingSection() const { return m_headingSection; }

private:
    void makeColumns(const std::vector<int>& body);
    void addToColumns(int section);
    TableColumn* columnFor(int section, int object);
    void placeSection(int section);
    void placeLine(int section, TableLine& line) const;
    void placeText(const Section& section, const TableLine& line, TableCell& cell) const;
    int preferredColumn(const ReportObject& object) const;
    int columnUnder(const ReportObject& object) const;
    void findHeadings(SectionKind kind);
    bool matchHeadings(int section, TableLine& line) const;
    int headedColumn(const ReportObject& text, const std::vector<bool>& taken) const;
    void takeHeadings(int section);
    void widen();

    const Definition& m_definition;
    std::vector<TableColumn> m_columns;
    std::vector<TableSection> m_sections;
    int m_headingSection = -1;
};

/// What a field's values are; Text for any other object.
ColumnType contentType(const Definition& definition, const ReportObject& object);

} // namespace quorvane::report
