#pragma once

#include "platform/reportengine/viewer/LayoutRun.h"
#include "platform/reportengine/viewer/PageView.h"
#include "platform/reportengine/viewer/ReportPages.h"
#include "platform/reportengine/viewer/ViewerDialogs.h"
#include "platform/reportengine/viewer/ViewerOutputs.h"
#include <QWidget>
#include <functional>
#include <memory>

class QModelIndex;
class QSplitter;
class QTimer;
class QTreeView;

namespace quorvane::report {

class FindBar;
class GroupTreeModel;
class NoticeBar;
class ViewerBar;
class ViewerSearch;
class WorkBar;

/// The report viewer: a bar of commands, the groups on the left, the pages. The first page shows as soon as
/// it is known; the others are laid out in slices on the user-interface thread while the user reads, goes,
/// finds and zooms. What needs all pages (print, export) waits for them.
class ReportViewer : public QWidget {
    Q_OBJECT
public:
    explicit ReportViewer(QWidget* parent = nullptr);
    ~ReportViewer() override;

    /// The report to view; it has its rows and outlives the viewer or its next source.
    void setReportSource(Report& report);
    /// Begins to show the pages of the source.
    void viewReport();
    /// Zoom in percent of the size on paper.
    void zoom(int percent);

    /// The pointer becomes a hand over detail lines, and a click on one is told by lineClicked.
    void setLinesClickable(bool clickable, const QString& toolTip = {});
    void setDialogs(const ViewerDialogs& dialogs) { m_dialogs = dialogs; }
    /// Lets the user choose the printer of the report; `owner` is the window over which it is asked.
    void printerSetup(QWidget* owner);

    PageView& pageView() { return *m_view; }
    const LayoutRun& layoutRun() const { return *m_run; }
    /// The warning or news above the pages, "" when there is none.
    QString notice() const;

    /// Ends whatever is going on; what has been laid out stays.
    void stop();

Q_SIGNALS:
    /// The fields of a clicked detail line, in the order of the report's objects.
    void lineClicked(const std::vector<quorvane::report::LineField>& fields);
    /// What the viewer is doing, for a status bar.
    void statusChanged(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void buildLayout();
    void connectCommands();
    void connectParts();
    void layoutProgressed();
    void layoutEnded();
    void showProgress();
    void showPages();
    void showPage();
    void goTo(int page);
    void goToGroup(const QModelIndex& index);
    PagePlace placeOf(const GroupEntry& group);
    void followGroup();
    void showGroups(bool shown);
    void copySelection();
    void exportAs(ViewerOutputs::Format format);
    void print();
    /// Runs what needs all pages, now or when they are laid out.
    void withAllPages(const QString& purpose, std::function<void()> work);
    void write(ViewerOutputs::Format format, const QString& path);
    void printOn(QPrinter& printer);
    /// Runs an output: tells how far it is and what goes wrong, takes the other commands away meanwhile.
    bool output(const QString& text, const std::function<bool()>& work);
    void enableOutputs();
    bool cancel();
    void tell(const QString& text);

    ViewerBar* m_bar;
    NoticeBar* m_notice;
    QSplitter* m_splitter;
    QTreeView* m_tree;
    GroupTreeModel* m_groups;
    PageView* m_view;
    FindBar* m_findBar;
    WorkBar* m_work;
    LayoutRun* m_run;
    ViewerSearch* m_search;
    ViewerOutputs* m_outputs;
    QTimer* m_news; ///< tells progress a few times a second
    ViewerDialogs m_dialogs;
    Report* m_report = nullptr;
    std::unique_ptr<ReportPages> m_pages;
    QString m_printerName; ///< the device that was chosen; "" is the default one
    QString m_folder;      ///< of the last export
    QString m_status;
    QString m_purpose;
    std::function<void()> m_whenComplete;
    int m_wantedPage = -1; ///< goes there when it is known
    bool m_groupsWanted = true;
};

} // namespace quorvane::report
