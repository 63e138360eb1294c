#pragma once

#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/reportengine/definition/Definition.h"
#include "platform/reportengine/layout/Layout.h"
#include <QStringView>
#include <memory>

namespace quorvane::report {

class Report;

/// One object of a section as programs see it: its properties by name in any case ("Kind", "Name",
/// "DecimalPlaces", "ThousandSymbol", "DecimalSymbol"; the last three only of a field). Error 438 for a
/// property that it has not.
class ObjectHandle {
public:
    /// Positions from 1, checked by Report::object.
    ObjectHandle(Report& report, int section, int object);
    Value property(QStringView name) const;
    /// Error 383 for a property that cannot be set, 380 for a value that it cannot take.
    void setProperty(QStringView name, const Value& value);

private:
    ReportObject& object() const;
    NumberFormat& format() const;

    Report* m_report;
    int m_section;
    int m_object;
};

/// The driver name of the printer that is a file: its port then is the path of the document to be written.
inline constexpr QStringView documentDriver = u"PDF";

/// A report that a program opens, fills and shows: the definition with what is set on it, its rows, its
/// pages. Indices count from 1, as in every collection of the ERP's programs; error 9 outside.
class Report {
public:
    explicit Report(Definition definition);
    ~Report();
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    const QString& title() const { return m_definition.title; }
    const Definition& definition() const { return m_definition; }

    /// The rows come only from here. Error 3265 when they lack a column of the definition.
    void setDataSource(std::unique_ptr<RowSource> rows);
    bool hasData() const { return m_layout != nullptr; }

    int sectionCount() const;
    int objectCount(int section) const;
    ObjectHandle object(int section, int object);

    int formulaCount() const;
    const QString& formulaName(int formula) const;
    /// A literal: whatever stands between the first and the last character, which are double quotes. Error 5
    /// for any other text.
    void setFormulaText(int formula, const QString& text);

    /// The printer for printOut, by its device name ("" is the default one); with `documentDriver` the port
    /// names a file.
    void selectPrinter(const QString& driver, const QString& device, const QString& port);
    /// Prints pages first to last. Error 5 for pages that there are not, and for a prompt: this engine asks
    /// nothing. Error 482 when there is no such printer or it fails.
    void printOut(bool prompt, int copies, int first, int last);

    /// All pages; lays out what is missing. Error 91 when there are no rows yet, and those of the rows.
    int pageCount();
    /// The laid-out report; error 91 when it has no rows yet.
    Layout& layout();
    const RegionalSettings& regional() const { return m_regional; }
    void setRegional(const RegionalSettings& regional) { m_regional = regional; }

private:
    friend class ObjectHandle;
    struct PrinterName {
        QString driver;
        QString device;
        QString port;
    };
    const Section& section(int section) const;
    /// Gives the objects that keep to another one's number format that format.
    void followFormat(const ReportObject& leader);

    Definition m_definition;
    std::unique_ptr<Layout> m_layout;
    RegionalSettings m_regional;
    PrinterName m_printer;
};

/// The engine's entry: opens definitions.
class Application {
public:
    /// Errors as those of readDefinition.
    std::unique_ptr<Report> openReport(const QString& path) const;
};

} // namespace quorvane::report
