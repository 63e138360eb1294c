#include "ui/toolbar/demo/StateBoard.h"
#include "ui/toolbar/QToolBarDescription.h"
#include <QPainter>
#include <QStyle>
#include <QStyleOptionToolButton>
#include <array>

namespace dalvora::toolbar {

using namespace Qt::StringLiterals;

struct BoardRow {
    QStringView title;
    quint8 state;
    bool hot;
    bool hasDisabledImage = true; ///< else the disabled image is made from the normal one
};

struct BoardColumn {
    QStringView title;
    quint8 style;
    bool onArrow; ///< the mouse is on the arrow part, and the menu is open
};

namespace {

constexpr int labelWidth = 168;
constexpr int cellWidth = 88;
constexpr int cellHeight = 52;
constexpr int titleHeight = 44;
constexpr int blockGap = 20;
constexpr int iconSide = 24;
constexpr QSize buttonSize(72, 46);
const QPoint nowhere(-1000, -1000);

constexpr std::array rows{
    BoardRow{u"Normal", StateEnabled, false},
    BoardRow{u"Bajo el ratón", StateEnabled, true},
    BoardRow{u"Pulsado", StateEnabled | StatePressed, true},
    BoardRow{u"Marcado", StateEnabled | StateChecked, false},
    BoardRow{u"Marcado, bajo el ratón", StateEnabled | StateChecked, true},
    BoardRow{u"Marcado y pulsado", StateEnabled | StateChecked | StatePressed, true},
    BoardRow{u"Fin de línea, bajo el ratón", StateEnabled | StateWrapped, true},
    BoardRow{u"Fin de línea, pulsado", StateEnabled | StateWrapped | StatePressed, true},
    BoardRow{u"Desactivado", 0, false},
    BoardRow{u"Sin imagen desactivada", 0, false, false},
    BoardRow{u"Desactivado y marcado", StateChecked, false},
};

constexpr std::array columns{
    BoardColumn{u"Botón", StyleButton, false},      BoardColumn{u"Casilla", StyleCheck, false},
    BoardColumn{u"Opción", StyleCheckGroup, false}, BoardColumn{u"Con menú", StyleDropDown, false},
    BoardColumn{u"Su flecha", StyleDropDown, true}, BoardColumn{u"Separador", StyleSeparator, false},
};

constexpr int blockWidth = static_cast<int>(columns.size()) * cellWidth;

QString caption() {
    return u"Grabar"_s;
}

/// Image lists of a toolbar that may have none for disabled buttons.
class BoardImages final : public ToolbarImages {
public:
    BoardImages(const QIcon& icon, qreal scale, bool hasDisabled)
        : m_images({iconSide, iconSide}, scale), m_hasDisabled(hasDisabled) {
        m_images.add(icon);
    }
    QPixmap image(ImageListKind list, int index) const override {
        return list == ImageListKind::Disabled && !m_hasDisabled ? QPixmap() : m_images.image(list, index);
    }

private:
    IconImages m_images;
    bool m_hasDisabled;
};

/// A toolbar of one cell's size with the button in its middle.
ToolbarDescription describe(QSize cell, const BoardRow& row, const BoardColumn& column) {
    ToolbarDescription bar;
    bar.size = cell;
    bar.iconSize = {iconSide, iconSide};
    ToolbarButton button;
    button.style = column.style;
    button.state = row.state;
    button.rect = QRect({(cell.width() - buttonSize.width()) / 2, (cell.height() - buttonSize.height()) / 2},
                        buttonSize);
    button.image = 0;
    button.caption = caption();
    bar.cursor = !row.hot ? nowhere : !column.onArrow ? button.rect.topLeft() : button.rect.bottomRight();
    bar.menuOpen = column.onArrow;
    bar.buttons.push_back(button);
    return bar;
}

QStyleOptionToolButton plainOption(const QWidget& board, const QRect& cell, const BoardRow& row,
                                   const BoardColumn& column) {
    QStyleOptionToolButton option;
    option.initFrom(&board);
    option.rect = describe(cell.size(), row, column).buttons.front().rect.translated(cell.topLeft());
    option.text = caption();
    option.iconSize = {iconSide, iconSide};
    option.toolButtonStyle = Qt::ToolButtonTextUnderIcon;
    option.subControls = QStyle::SC_ToolButton;
    if (column.style == StyleDropDown) {
        option.features = QStyleOptionToolButton::MenuButtonPopup | QStyleOptionToolButton::HasMenu;
        option.subControls |= QStyle::SC_ToolButtonMenu;
    }
    option.palette.setCurrentColorGroup(row.state & StateEnabled ? QPalette::Active : QPalette::Disabled);
    option.state = QStyle::State_AutoRaise | QStyle::State_Active;
    option.state.setFlag(QStyle::State_Enabled, row.state & StateEnabled);
    option.state.setFlag(QStyle::State_On, row.state & StateChecked);
    option.state.setFlag(QStyle::State_Sunken, row.state & StatePressed);
    option.state.setFlag(QStyle::State_MouseOver, row.hot);
    option.state.setFlag(QStyle::State_Raised, row.hot && !(row.state & StatePressed));
    if (row.hot || (row.state & StatePressed))
        option.activeSubControls = column.onArrow ? QStyle::SC_ToolButtonMenu : QStyle::SC_ToolButton;
    return option;
}

} // namespace

StateBoard::StateBoard(ToolbarPainter painter, QIcon icon, QWidget* parent)
    : QWidget(parent), m_painter(std::move(painter)), m_icon(std::move(icon)) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize StateBoard::sizeHint() const {
    return {labelWidth + 2 * blockWidth + blockGap, titleHeight + static_cast<int>(rows.size()) * cellHeight};
}

void StateBoard::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    int y = titleHeight;
    for (const BoardRow& row : rows) {
        painter.drawText(QRect(0, y, labelWidth, cellHeight), Qt::AlignLeft | Qt::AlignVCenter,
                         row.title.toString());
        y += cellHeight;
    }
    paintBlock(painter, labelWidth, u"Con piel"_s, true);
    paintBlock(painter, labelWidth + blockWidth + blockGap, u"Sin piel"_s, false);
}

void StateBoard::paintBlock(QPainter& painter, int left, const QString& title, bool skinned) const {
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(QRect(left, 0, blockWidth, titleHeight / 2), Qt::AlignCenter, title);
    painter.setFont(font());
    for (const BoardColumn& column : columns) {
        painter.drawText(QRect(left, titleHeight / 2, cellWidth, titleHeight / 2), Qt::AlignCenter,
                         column.title.toString());
        QRect cell(left, titleHeight, cellWidth, cellHeight);
        for (const BoardRow& row : rows) {
            if (skinned)
                paintSkinned(painter, cell, row, column);
            else
                paintPlain(painter, cell, row, column);
            cell.translate(0, cellHeight);
        }
        left += cellWidth;
    }
}

void StateBoard::paintSkinned(QPainter& painter, const QRect& cell, const BoardRow& row,
                              const BoardColumn& column) const {
    ToolbarDescription bar = describe(cell.size(), row, column);
    bar.font = pixelFont(font());
    const BoardImages images(m_icon, devicePixelRatio(), row.hasDisabledImage);
    painter.drawImage(cell.topLeft(), m_painter.paint(bar, images, QRect({}, bar.size), devicePixelRatio()));
}

void StateBoard::paintPlain(QPainter& painter, const QRect& cell, const BoardRow& row,
                            const BoardColumn& column) const {
    if (column.style == StyleSeparator) {
        QStyleOption option;
        option.initFrom(this);
        option.rect = cell;
        option.state |= QStyle::State_Horizontal;
        style()->drawPrimitive(QStyle::PE_IndicatorToolBarSeparator, &option, &painter, this);
        return;
    }
    QStyleOptionToolButton option = plainOption(*this, cell, row, column);
    option.icon = m_icon;
    style()->drawComplexControl(QStyle::CC_ToolButton, &option, &painter, this);
}

} // namespace dalvora::toolbar
