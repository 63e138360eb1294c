#pragma once

#include <QString>
#include <functional>
#include <optional>

class QPrinter;
class QWidget;

namespace quorvane::report {

/// What the viewer asks the user in windows of the system; tests answer in their place.
struct ViewerDialogs {
    struct FileQuestion {
        QString title;
        QString suggestion; ///< folder and name
        QString filter;     ///< "Documento PDF (*.pdf)"
        QString suffix;
    };
    /// Pages to print, counted from 1.
    struct Pages {
        int first = 1;
        int last = 1;
    };

    /// The file to write; "" when the user cancels.
    std::function<QString(QWidget* owner, const FileQuestion& question)> saveFile;
    /// Sets the printer up; false when the user cancels. `current` is the page on the screen.
    std::function<bool(QWidget* owner, QPrinter& printer, Pages& pages, int current)> print;
    /// The device name of the printer to print on, nothing when the user cancels; `chosen` was chosen before.
    std::function<std::optional<QString>(QWidget* owner, const QString& chosen)> choosePrinter;
    /// Opens a file with the program that the user has for it; false when there is none.
    std::function<bool(const QString& path)> openFile;

    static ViewerDialogs ofTheSystem();
};

} // namespace quorvane::report
