#pragma once

#include <QString>

class QWidget;

namespace dalvora {

/// What a user chose in the printer dialog.
struct PrinterChoice {
    // The printer as the report engine's selectPrinter takes it.
    QString driver;
    QString device;
    QString port;
    int copies = 1;
    int first = 1;
    int last = 1;
};

/// Asks for a printer; tests answer in its place.
class PrinterDialog {
public:
    virtual ~PrinterDialog() = default;
    /// Pages can be chosen from 1 to the given one, and all of them are to begin with. Error 32755 when the
    /// user cancels.
    virtual PrinterChoice show(QWidget* owner, int pages) = 0;
};

/// The system's own dialog. Without a printer it still offers to print into a file, which becomes a PDF
/// document.
class SystemPrinterDialog final : public PrinterDialog {
public:
    PrinterChoice show(QWidget* owner, int pages) override;
};

} // namespace dalvora
