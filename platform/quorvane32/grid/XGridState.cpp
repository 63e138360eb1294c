#include "platform/quorvane32/grid/XGridState.h"

namespace quorvane {

QString XGridState::text(int atRow, int atCol) const {
    QString text;
    if (client && isCell(atRow, atCol))
        client->cellText(atRow, atCol, text);
    return text;
}

XGridPicture XGridState::picture(int atRow, int atCol) const {
    XGridPicture picture;
    if (client && isCell(atRow, atCol))
        client->cellPicture(atRow, atCol, picture);
    return picture;
}

int XGridState::nextEditable(int from, int step) const {
    for (int c = from + step; c >= 0 && c < cols(); c += step) {
        if (column(c).isEditable())
            return c;
    }
    return -1;
}

int XGridState::visibleColumn(int from, int step) const {
    for (int c = from; c >= 0 && c < cols(); c += step) {
        if (column(c).isVisible())
            return c;
    }
    return 0;
}

int XGridState::firstColumn() const {
    const int editable = nextEditable(-1, 1);
    return editable >= 0 ? editable : firstFreeColumn();
}

QColor colorFromNumber(quint32 number) {
    return {static_cast<int>(number & 0xFF), static_cast<int>(number >> 8 & 0xFF),
            static_cast<int>(number >> 16 & 0xFF)};
}

QRect cellButtonRect(const QRect& cell) {
    constexpr int gap = 2;
    const int side = qMin(cell.height() - 2 * gap - 1, cell.width() - 2 * gap - 1);
    return {cell.right() - gap - side, cell.top() + (cell.height() - 1 - side) / 2, side, side};
}

QString singleLine(const QString& text, qsizetype longest) {
    QString line = text.left(longest);
    for (QChar& c : line) {
        if (c < u' ' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator || c == QChar(0x7F))
            c = u' ';
    }
    return line;
}

} // namespace quorvane
