#pragma once

#include "platform/reportengine/output/Output.h"
#include "platform/reportengine/output/TablePlan.h"

namespace quorvane::report {

/// A report's lines as comma-separated values: what its group headers tell about a line stands in front of
/// it, so that each line is whole without the others.
///
/// A text that begins like a formula gets an apostrophe in front: spreadsheets run such texts when they open
/// a file, and quotes around them do not keep them from it. The apostrophe is what their users type
/// themselves to enter such a text; other programs see it as part of the text. Numbers and dates never get
/// one.
class CsvOutput {
public:
    explicit CsvOutput(const PageContext& context);

    /// The names of the columns as a line.
    QString heading() const;
    /// The page's lines.
    QString lines(const Page& page);

private:
    /// A column of what group headers tell.
    struct GroupColumn {
        int section = 0;
        std::vector<int> objects; ///< the one that shows tells
        QString name;
        QString text;
    };

    void addGroupColumns(int section);
    bool isTold(int section, const ReportObject& object) const;
    QString bodyName(const TableColumn& column) const;
    QString groupName(const ReportObject& object) const;
    void takeGroup(const Page& page, const Band& band);
    void addLine(QString& lines, const Page& page, const Band& band) const;
    QString text(const Page& page, const Band& band, int object) const;
    QString quoted(const QString& text) const;
    QString guarded(const QString& text) const;

    PageContext m_context;
    const Definition& m_definition;
    TablePlan m_plan;
    QChar m_separator;
    std::vector<GroupColumn> m_groups;
    QString m_groupTexts; ///< the start of the present group's lines
};

/// A number for reading by programs: no grouping, the fifteen digits that spreadsheets keep.
QString plainNumber(double value, QChar decimalSeparator);

} // namespace quorvane::report
