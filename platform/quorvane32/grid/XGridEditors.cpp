#include "platform/quorvane32/grid/XGridEditors.h"
#include "platform/quorvane32/grid/XGridState.h"
#include <QAbstractItemView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QWheelEvent>
#include <climits>

namespace quorvane {

namespace {

/// The lines of an opened list, with the air of the grid's own rows.
class ListLineDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        constexpr int air = 6;
        const QSize line = QStyledItemDelegate::sizeHint(option, index);
        return {line.width() + air, option.fontMetrics.height() + air};
    }
};

} // namespace

XGridListEditor::XGridListEditor(const QStringList& list, const QString& text, QWidget* parent)
    : QComboBox(parent) {
    setFrame(false);
    setItemDelegate(new ListLineDelegate(this));
    addItems(list);
    setPlaceholderText(text);
    setCurrentIndex(findText(text, Qt::MatchFixedString));
    connect(this, &QComboBox::activated, this, [this] {
        if (m_popupShown) {
            m_choiceFromPopup = true;
            Q_EMIT picked();
        }
    });
}

void XGridListEditor::chooseByLetters(const QString& letters) {
    QKeyEvent typed(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, letters);
    QComboBox::keyPressEvent(&typed);
}

void XGridListEditor::showPopup() {
    m_popupShown = true;
    m_choiceFromPopup = false;
    QAbstractItemView* list = view();
    list->setMinimumWidth(list->sizeHintForColumn(0) + list->verticalScrollBar()->sizeHint().width());
    QComboBox::showPopup();
}

void XGridListEditor::hidePopup() {
    const bool wasOpen = view()->isVisible();
    QComboBox::hidePopup();
    if (!wasOpen)
        return;
    // The choice is told after the list is closed, so whether there was one is known only a moment later.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!m_choiceFromPopup)
                Q_EMIT popupGivenUp();
        },
        Qt::QueuedConnection);
}

void XGridListEditor::keyPressEvent(QKeyEvent* event) {
    m_popupShown = false;
    QComboBox::keyPressEvent(event);
}

void XGridListEditor::wheelEvent(QWheelEvent* event) {
    event->ignore(); // turning the wheel scrolls the grid, it does not change the cell
}

XGridEditorBox::XGridEditorBox(QWidget* parent) : QWidget(parent) {}

QLineEdit* XGridEditorBox::addText(const QString& text, Qt::Alignment alignment) {
    auto* line = new QLineEdit(this);
    line->setMaxLength(INT_MAX);
    line->setFrame(false);
    line->setAlignment(alignment);
    line->setText(text);
    line->setTextMargins(2, 0, 2, 0); // the text stays where the cell shows it
    m_entry = line;
    setFocusProxy(line);
    return line;
}

XGridListEditor* XGridEditorBox::addList(const QStringList& list, const QString& text) {
    auto* choice = new XGridListEditor(list, text, this);
    m_entry = choice;
    setFocusProxy(choice);
    return choice;
}

QToolButton* XGridEditorBox::addButton(const QString& text) {
    m_button = new QToolButton(this);
    m_button->setText(text);
    m_button->setFocusPolicy(Qt::NoFocus);
    m_button->setToolTip(tr("Buscar (F8)"));
    m_button->setAccessibleName(tr("Buscar"));
    return m_button;
}

void XGridEditorBox::place(const QRect& cell) {
    // The frame lies on the lines around the cell; at the grid's edges there are none.
    QRect room = cell.adjusted(cell.left() > 0 ? -1 : 0, cell.top() > 0 ? -1 : 0, 0, 0);
    if (qobject_cast<QComboBox*>(m_entry))
        room.setWidth(qMax(room.width(), m_entry->sizeHint().width()));
    setGeometry(room);
    layOut();
}

void XGridEditorBox::layOut() {
    if (!m_entry)
        return;
    QRect room = rect().adjusted(1, 1, -1, -1);
    if (m_button) {
        QRect button = cellButtonRect(rect());
        m_button->setGeometry(button);
        room.setRight(button.left() - 1);
    }
    m_entry->setGeometry(room);
}

void XGridEditorBox::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOut();
}

void XGridEditorBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace quorvane
