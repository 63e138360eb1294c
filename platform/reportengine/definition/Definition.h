#pragma once

#include <QColor>
#include <QImage>
#include <QMarginsF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <vector>

namespace quorvane::report {

// A report definition in memory, as its file describes it. All measures are points (1/72 inch); the file
// gives millimetres.

/// Where a section stands. A group header keeps with the first row under it. In a definition sections keep
/// this order, with group headers from the outermost group inward and group footers from the innermost
/// outward.
enum class SectionKind {
    ReportHeader,
    PageHeader,
    GroupHeader,
    Details,
    GroupFooter,
    ReportFooter,
    PageFooter
};

/// The kind of an object, with the numbers that programs test for (1 is a field).
enum class ObjectKind : int { Field = 1, Text = 2, Line = 3, Box = 4, Image = 6, Chart = 7 };

enum class ColumnType { Text, Number, Date };

/// A column of the report. The rows must have it (a row source without it is error 3265), unless the report
/// works it out itself for each row, from columns that stand before it.
struct Column {
    /// How the value comes about: from the rows; the sum of other columns (Null counts as 0); 1 when a column
    /// holds a text, letter case ignored, else 0, so that its sum counts those rows.
    enum class Origin { Rows, SumOf, CountOf };

    QString name;
    ColumnType type = ColumnType::Text; ///< Number when it is worked out
    Origin origin = Origin::Rows;
    std::vector<int> operands; ///< positions of the columns of SumOf (all) and CountOf (one)
    QString wanted;            ///< the text of CountOf
};

/// How rows are ordered before they are laid out; the groups' columns come first, in their order.
struct SortKey {
    int column = 0; ///< position in Definition::columns
    bool descending = false;
};

/// Whether a date groups by itself or by the month or year that it lies in; None for any other column.
enum class Period { None, Month, Year };

struct Group {
    int column = 0; ///< a new group begins when this column's value changes, letter case ignored
    Period period = Period::None;
    QString caption; ///< what the group tree calls a group of it, "" for the value alone
    int captionColumn =
        0; ///< names a group in the tree and in charts; of a period, the month ("julio 1997") or year
};

/// A header formula: a text that the program sets before the pages are made, like {@CfgEmpresa}.
struct Formula {
    QString name; ///< with its braces and "@"
    QString text; ///< a literal in double quotes
};

/// What a field object shows.
struct FieldSource {
    enum class Kind { Column, Formula, Sum, Count, PageNumber, PageCount, PageNofM, PrintDate };
    /// The scope of a sum or a count: the whole report, else the position of a group in Definition::groups.
    static constexpr int WholeReport = -1;

    Kind kind = Kind::Column;
    int index = 0; ///< the column of Column and Sum, the formula of Formula
    int scope = WholeReport;
};

/// Number format of a field: decimals below zero mean the general form.
struct NumberFormat {
    int decimals = -1;
    QString thousands;
    QString decimal = QStringLiteral(",");
};

/// How a date is written: as the regional settings' short form, as a month ("julio 1997") or as a year.
enum class DateForm { Short, Month, Year };

struct Style {
    QString family;  ///< names in order of preference, with commas between them
    double size = 9; ///< points
    bool bold = false;
    bool italic = false;
    QColor colour = Qt::black;
    QColor background; ///< invalid: none
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
};

/// A second look for a row whose column passes the test, as negative amounts in red.
struct Condition {
    enum class Test { None, Negative, Positive, Zero, Empty, Filled };
    Test test = Test::None;
    int column = 0;
    int style = 0;     ///< position in Definition::styles, used when the test holds
    bool hide = false; ///< instead of the style: the object shows only when the test holds
};

/// A bar chart of a total by group.
struct Chart {
    int group = 0;  ///< one bar a group of this position
    int column = 0; ///< the column that is summed
    QString title;
};

struct ReportObject {
    ObjectKind kind = ObjectKind::Text;
    QString name;
    QRectF rect; ///< within the section; a line runs from the top left to the bottom right corner
    int style = 0;
    Condition condition;
    FieldSource source;  ///< Field
    NumberFormat format; ///< Field of a number
    /// Field: the name of the object whose number format this one keeps to, "" for none. What a program sets
    /// there (the currency's decimals, the separators) is set here too, but for decimals that are its own.
    QString formatOf;
    bool ownDecimals = false;
    DateForm dateForm = DateForm::Short; ///< Field of a date
    QString text;        ///< Text: formula names in it, with braces and "@", stand for the formulas' texts
    double stroke = 0.5; ///< Line and Box: pen width, 0 draws none
    QImage image;
    Chart chart;
};

struct Section {
    SectionKind kind = SectionKind::Details;
    int group = 0; ///< of a group's header or footer
    QString name;
    double height = 0; ///< 0: the section shows nothing and takes no place
    bool newPageBefore = false;
    bool repeatOnPage = false; ///< a group header that comes again on the group's next pages
    bool shaded = false;       ///< details: every other row on a tinted ground
    std::vector<ReportObject> objects;
};

struct Definition {
    QString file;
    QString title;
    QSizeF pageSize = {595, 842};
    QMarginsF margins = {36, 36, 36, 36};
    std::vector<Style> styles; ///< the first is the default
    std::vector<Column> columns;
    std::vector<Group> groups; ///< outermost first
    std::vector<SortKey> sort;
    bool sortedBySource = false; ///< the database orders the rows: they are laid out as they come
    std::vector<Formula> formulas;
    std::vector<Section> sections;
};

} // namespace quorvane::report
