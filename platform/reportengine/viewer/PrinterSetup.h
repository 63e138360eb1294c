#pragma once

#include <QDialog>
#include <QString>
#include <vector>

class QLabel;
class QListWidget;

namespace quorvane::report {

/// A printer as a person knows it.
struct PrinterEntry {
    QString name;
    QString description; ///< make and model
    QString location;
    bool isDefault = false;
};

/// The printers of this computer.
std::vector<PrinterEntry> installedPrinters();

/// Lets the user choose the printer that a report is printed on.
class PrinterSetup : public QDialog {
    Q_OBJECT
public:
    /// `chosen` is marked to begin with, or the default printer when it is "" or gone.
    PrinterSetup(const std::vector<PrinterEntry>& printers, const QString& chosen, QWidget* parent = nullptr);

    QString chosen() const;

private:
    void fill(const std::vector<PrinterEntry>& printers, const QString& chosen);

    QListWidget* m_list;
};

} // namespace quorvane::report
