#include "platform/reportengine/viewer/PrinterSetup.h"
#include "platform/skin/ImageList.h"
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPrinterInfo>
#include <QPushButton>
#include <QVBoxLayout>

namespace quorvane::report {

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSide = 24;
constexpr QSize listSize{420, 180};
constexpr int nameRole = Qt::UserRole;

QString captionOf(const PrinterEntry& printer) {
    QString caption = printer.isDefault ? printer.name + u" (predeterminada)"_s : printer.name;
    QStringList details{printer.description, printer.location};
    details.removeAll(QString());
    return details.isEmpty() ? caption : caption + u'\n' + details.join(u" - "_s);
}

} // namespace

std::vector<PrinterEntry> installedPrinters() {
    std::vector<PrinterEntry> printers;
    for (const QPrinterInfo& printer : QPrinterInfo::availablePrinters())
        printers.push_back(
            {printer.printerName(), printer.makeAndModel(), printer.location(), printer.isDefault()});
    return printers;
}

PrinterSetup::PrinterSetup(const std::vector<PrinterEntry>& printers, const QString& chosen, QWidget* parent)
    : QDialog(parent), m_list(new QListWidget(this)) {
    setObjectName(u"printerSetup"_s);
    setWindowTitle(u"Configurar Impresora"_s);
    m_list->setObjectName(u"printers"_s);
    m_list->setAccessibleName(u"Impresoras"_s);
    m_list->setIconSize({iconSide, iconSide});
    m_list->setMinimumSize(listSize);
    m_list->setVisible(!printers.empty());
    auto* text = new QLabel(printers.empty() ? u"No hay impresoras instaladas en este equipo."_s
                                             : u"&Impresora en que se imprime el informe:"_s,
                            this);
    text->setObjectName(u"printersText"_s);
    text->setBuddy(m_list);
    auto* buttons = new QDialogButtonBox(this);
    auto* accept = buttons->addButton(u"&Aceptar"_s, QDialogButtonBox::AcceptRole);
    accept->setObjectName(u"accept"_s);
    accept->setEnabled(!printers.empty());
    auto* cancel = buttons->addButton(u"&Cancelar"_s, QDialogButtonBox::RejectRole);
    cancel->setObjectName(u"cancel"_s);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(10);
    column->addWidget(text);
    column->addWidget(m_list, 1);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QListWidget::itemActivated, this, &QDialog::accept);
    fill(printers, chosen);
}

void PrinterSetup::fill(const std::vector<PrinterEntry>& printers, const QString& chosen) {
    for (const PrinterEntry& printer : printers) {
        auto* item = new QListWidgetItem(skin::ImageList().icon(u"imprimir"_s), captionOf(printer), m_list);
        item->setData(nameRole, printer.name);
        if (printer.name == chosen || (printer.isDefault && !m_list->currentItem()))
            m_list->setCurrentItem(item);
    }
    if (!m_list->currentItem())
        m_list->setCurrentRow(0);
}

QString PrinterSetup::chosen() const {
    const QListWidgetItem* item = m_list->currentItem();
    return item ? item->data(nameRole).toString() : QString();
}

} // namespace quorvane::report
