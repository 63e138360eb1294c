#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QToolButton>

namespace quorvane {

/// The drop-down of a list cell. It tells a choice made in the opened list, which ends the edit, from one
/// made with letters or arrows, which may still be given up.
class XGridListEditor : public QComboBox {
    Q_OBJECT
public:
    /// A text that is not in the list stays shown until a choice is made.
    XGridListEditor(const QStringList& list, const QString& text, QWidget* parent);

    /// The chosen text, or the one it began with when nothing was chosen.
    QString chosenText() const { return currentIndex() < 0 ? placeholderText() : currentText(); }
    /// Chooses the next item that begins with the given letters, as typing them does.
    void chooseByLetters(const QString& letters);

    void showPopup() override;
    void hidePopup() override;

Q_SIGNALS:
    /// An item was chosen in the opened list.
    void picked();
    /// The list was closed again with nothing chosen.
    void popupGivenUp();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool m_popupShown = false;
    bool m_choiceFromPopup = false;
};

/// The entry that stands over a cell while it is edited: a text or a list, with the column's button beside
/// it, in one frame.
class XGridEditorBox : public QWidget {
    Q_OBJECT
public:
    explicit XGridEditorBox(QWidget* parent);

    QLineEdit* addText(const QString& text, Qt::Alignment alignment);
    XGridListEditor* addList(const QStringList& list, const QString& text);
    QToolButton* addButton(const QString& text);

    /// Lays the box over the given cell; a list may need to be wider than its cell.
    void place(const QRect& cell);
    QWidget* entry() const { return m_entry; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();

    QWidget* m_entry = nullptr;
    QToolButton* m_button = nullptr;
};

} // namespace quorvane
