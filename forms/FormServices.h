#pragma once

#include <QString>
#include <QStringList>

namespace dalvora {

/// What the forms ask of the rest of the program. The program implements it with the shared helpers; tests
/// record the calls.
class FormServices {
public:
    virtual ~FormServices() = default;

    /// Shows the lookup window of a query; true when the user chose a row, whose values are then in `values`
    /// (the first one at index 0).
    virtual bool QueryLookup(const QString& queryName, const QString& queryFile, const QString& parameters,
                             QStringList& values) = 0;
    virtual void ShowAbout(const QString& title, const QString& description) = 0;
    /// Opens the program's help file at a topic: a context number, "0" contents, "-1" index.
    virtual void Help(const QString& topic) = 0;

    virtual void previewReport() = 0;
    virtual void printReport() = 0;
    /// Shows the form that assigns a scheme to salespeople; always the same one.
    virtual void showSalespeople() = 0;
    /// Unloads every form and ends the program.
    virtual void terminate() = 0;
};

} // namespace dalvora
