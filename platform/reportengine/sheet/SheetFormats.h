#pragma once

#include "platform/reportengine/output/TablePlan.h"
#include <map>
#include <string>
#include <tuple>
#include <vector>

struct lxw_format;
struct lxw_workbook;

namespace quorvane::report {

/// How the cells of a sheet look: the objects' styles, over the colour of the box that they stand on, figures
/// and dates in their formats. Worked out for every object before the first row is written.
class SheetFormats {
public:
    SheetFormats(const Definition& definition, const TablePlan& plan, lxw_workbook* book);

    /// Of an object's cell in the style that its condition asks for or not.
    lxw_format* format(int section, int object, bool conditional) const {
        const ObjectFormats& formats = m_objects[section][object];
        return conditional ? formats.conditional : formats.plain;
    }
    /// Of the empty cells of a line that goes over the sheet's width; null for other lines.
    lxw_format* filler(int section, int line) const { return m_fillers[section][line]; }
    /// A line's height in points where its letters need more than rows have; else 0.
    double height(int section, int line) const { return m_heights[section][line]; }

private:
    struct ObjectFormats {
        lxw_format* plain = nullptr;
        lxw_format* conditional = nullptr;
    };
    /// What a cell has besides its object's style.
    struct Look {
        QColor ground;
        QColor rule; ///< above the line
        bool strong = false;
        bool bold = false;     ///< in any case
        bool indented = false; ///< keeps off the figures to its left
    };
    /// Style, number format, ground, rule with its strength, bold, indented.
    using Key = std::tuple<int, std::string, unsigned, unsigned, bool, bool, bool>;

    bool isIndented(const ReportObject& object, int column) const;
    void addLine(int section, const TableLine& line);
    Look lineLook(int section, const TableLine& line) const;
    lxw_format* formatFor(int style, const std::string& number, const Look& look);
    lxw_format* made(int style, const std::string& number, const Look& look) const;

    const Definition& m_definition;
    const TablePlan& m_plan;
    lxw_workbook* m_book;
    std::map<Key, lxw_format*> m_made;
    std::vector<std::vector<ObjectFormats>> m_objects;
    std::vector<std::vector<lxw_format*>> m_fillers;
    std::vector<std::vector<double>> m_heights;
};

/// The spreadsheet's format of a field's values: "#,##0.00", "dd/mm/yyyy", "@" for a text that must stay one.
std::string cellFormat(const Definition& definition, const ReportObject& object);

} // namespace quorvane::report
