#pragma once

#include "platform/quorvane32/grid/XGridEditors.h"
#include <QObject>
#include <QPointer>

class QFocusEvent;
class QKeyEvent;

namespace quorvane {

struct XGridState;
class XGridView;

/// The edit in progress of a grid, at most one. It is kept apart from the view's own editing because storing
/// a value may show a message box: the entry is closed before the value is handed on, so that the focus moves
/// which the box brings cannot store the value a second time.
class XGridEditing : public QObject {
    Q_OBJECT
public:
    enum class Start {
        Keep,     ///< the cell's text stays, the caret stands behind it
        Replace,  ///< typing replaces the cell's text
        OpenList, ///< as Keep, with the list of a list column opened
    };

    XGridEditing(XGridState& state, XGridView& view);

    bool isActive() const { return !m_box.isNull(); }
    /// True while the client handles the button of the cell that is being edited.
    bool isInButton() const { return m_inButton; }
    int row() const { return m_row; }
    XGridEditorBox* box() const { return m_box.data(); }

    /// Begins to edit the current cell after asking the client; false when the cell cannot be edited or the
    /// client refused.
    bool begin(Start start, const QString& typed = {});
    /// Ends the edit and hands a changed text to the client; false when the client refused it. True also when
    /// there was nothing to commit.
    bool commit();
    /// Ends the edit and keeps the cell as it was.
    void cancel();
    /// Raises the cell button of the edited cell. The entry stays unless the client stored a value itself.
    void pressButton();
    /// Puts the entry over its cell again after scrolling or a change of widths.
    void place();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void openText(const QString& typed, Start start);
    void openList(const QString& typed, Start start);
    void open(Start start, const QString& typed);
    void close();
    QString entryText() const;
    bool keyPressed(const QKeyEvent& event);
    bool leaveByKey(const QKeyEvent& event);

    XGridState& m_state;
    XGridView& m_view;
    QPointer<XGridEditorBox> m_box;
    QString m_original;
    int m_row = 0;
    int m_col = 0;
    bool m_inButton = false;
    bool m_asking = false;
};

} // namespace quorvane
