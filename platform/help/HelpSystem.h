#pragma once

#include <QString>
#include <QVariant>

namespace help {

/// What a program asks of its help. The numbers are those of the HTML help call.
enum HelpCommand : int {
    DisplayTopic = 0,    ///< data: the page's name inside the file, or a word of the index
    DisplayContents = 1, ///< data: not used
    DisplayIndex = 2,    ///< data: a word to look for, may be empty
    ShowContext = 15,    ///< data: the context number
};

/// Error number of a help viewer that cannot be used at all, as opposed to a file that cannot be read.
inline constexpr int ErrorViewerNotUsable = 48;

/// Shows help to the user. An interface, so that the shared helpers need no widget and tests can record the
/// calls.
class HelpSystem {
public:
    virtual ~HelpSystem() = default;

    /// Shows `file` at the place that `command` and `data` name; returns at once, the help stays open beside
    /// the program. Raises quorvane::RunTimeError: ErrorViewerNotUsable, 53 missing file, 70 file may not be
    /// read, 5 file damaged or unknown command, 3265 page or context that the file does not hold.
    virtual void htmlHelp(const QString& file, int command, const QVariant& data = {}) = 0;
};

} // namespace help
