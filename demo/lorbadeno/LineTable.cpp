#include "demo/lorbadeno/LineTable.h"
#include <QHeaderView>

namespace dalvora::lorbadeno {

using namespace Qt::StringLiterals;

namespace {

enum Column { Product, Text, Quantity, Price, Discount, Net, ColumnCount };

struct Heading {
    const char16_t* caption;
    int width;
    Qt::Alignment alignment;
};

constexpr int rowSpace = 10;
constexpr int textWidth = 0; ///< what the others leave

const Heading headings[ColumnCount] = {
    {u"Producto", 80, Qt::AlignLeft},  {u"Descripción", textWidth, Qt::AlignLeft},
    {u"Cantidad", 80, Qt::AlignRight}, {u"Precio", 90, Qt::AlignRight},
    {u"Desc. %", 70, Qt::AlignRight},  {u"Neto", 110, Qt::AlignRight},
};

} // namespace

LineTable::LineTable(const StoredDocument& document, const quorvane::RegionalSettings& regional)
    : QTableWidget(static_cast<int>(document.lines.size()), ColumnCount) {
    setObjectName(u"LineTable"_s);
    setAccessibleName(u"Líneas del documento"_s);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowSpace);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    for (int column = 0; column < ColumnCount; ++column) {
        const Heading& heading = headings[column];
        auto* item = new QTableWidgetItem(QString::fromUtf16(heading.caption));
        item->setTextAlignment(heading.alignment | Qt::AlignVCenter);
        setHorizontalHeaderItem(column, item);
        if (heading.width == textWidth)
            horizontalHeader()->setSectionResizeMode(column, QHeaderView::Stretch);
        else
            setColumnWidth(column, heading.width);
    }
    int row = 0;
    for (const StoredLine& line : document.lines) {
        const QString texts[ColumnCount] = {line.product.code,
                                            line.product.label,
                                            regional.numberText(line.quantity),
                                            regional.groupedText(line.price, document.decimals),
                                            line.discount == 0 ? QString()
                                                               : regional.numberText(line.discount),
                                            regional.groupedText(line.net, document.decimals)};
        for (int column = 0; column < ColumnCount; ++column) {
            auto* item = new QTableWidgetItem(texts[column]);
            item->setTextAlignment(headings[column].alignment | Qt::AlignVCenter);
            setItem(row, column, item);
        }
        ++row;
    }
    setFixedHeight(horizontalHeader()->sizeHint().height() + verticalHeader()->length() + 2);
}

} // namespace dalvora::lorbadeno
