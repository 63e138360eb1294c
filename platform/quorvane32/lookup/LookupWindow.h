#pragma once

#include "platform/quorvane32/core/Recordset.h"
#include "platform/quorvane32/lookup/LookupRows.h"
#include <QDialog>
#include <QTimer>
#include <exception>

class QDialogButtonBox;
class QLabel;
class QPushButton;
class QTableView;

namespace quorvane {

class FilterHeader;
class LookupModel;

/// The lookup window. It opens on the first rows of a result and reads on between the user's events, in
/// slices of a few milliseconds, so that a hundred thousand rows are usable at once. Keys go where a person
/// expects them: letters to a filter, arrows to the list, whichever of the two has the focus.
class LookupWindow : public QDialog {
    Q_OBJECT
public:
    LookupWindow(const QueryDefinition& query, Recordset recordset, const RegionalSettings& regional,
                 QWidget* parent = nullptr);
    ~LookupWindow() override;

    /// The chosen row's values joined by "#"; "" unless the window was accepted.
    const QString& chosen() const { return m_chosen; }
    /// The error that ended the reading, if one did; the window has closed itself then.
    std::exception_ptr error() const { return m_error; }

    void accept() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildTable();
    void buildLabels();
    QDialogButtonBox* buildButtons();
    void buildWindow(const QString& title);
    int columnWidth(int column) const;
    void setColumnWidths();
    void fetchSlice(int milliseconds, int mostRows);
    void readOn();
    void rowsArrived();
    void filterBy(int column, const QString& text);
    void sortBy(int column, Qt::SortOrder order);
    void sortByFilter(const QObject* edit);
    /// Runs a change of the list and keeps the current row current, or takes the first one.
    template<class Change> void keepingCurrentRow(Change&& change);
    void makeCurrent(int visible);
    void updateTexts();
    void showNotice(const QString& text);
    bool filterKey(QObject* edit, QKeyEvent* key);
    bool listKey(QKeyEvent* key);
    void moveFilter(int column);

    QString m_emptyText;
    Recordset m_recordset;
    RegionalSettings m_regional;
    LookupRows m_rows;
    QTimer m_reader;
    QString m_chosen;
    std::exception_ptr m_error;
    LookupModel* m_model = nullptr;
    QTableView* m_table = nullptr;
    FilterHeader* m_header = nullptr;
    QLabel* m_empty = nullptr;
    QLabel* m_count = nullptr;
    QLabel* m_notice = nullptr;
    QPushButton* m_choose = nullptr;
    int m_lastFilter = 0;
};

} // namespace quorvane
