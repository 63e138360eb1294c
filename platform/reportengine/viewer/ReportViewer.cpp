#include "platform/reportengine/viewer/ReportViewer.h"
#include "platform/reportengine/viewer/FindBar.h"
#include "platform/reportengine/viewer/GroupTreeModel.h"
#include "platform/reportengine/viewer/NoticeBar.h"
#include "platform/reportengine/viewer/ViewerBar.h"
#include "platform/reportengine/viewer/ViewerSearch.h"
#include "platform/reportengine/viewer/WorkBar.h"
#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSplitter>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

namespace quorvane::report {

using namespace Qt::StringLiterals;

namespace {

constexpr int groupsWidth = 200;
constexpr int pagesWidth = 800;
constexpr int newsInterval = 120; // milliseconds
constexpr double hundred = 100;

QTreeView* makeTree(QWidget* parent, GroupTreeModel* groups) {
    auto* tree = new QTreeView(parent);
    tree->setObjectName(u"groups"_s);
    tree->setAccessibleName(u"Grupos del informe"_s);
    tree->setToolTip(u"Un clic lleva a la página del grupo"_s);
    tree->setModel(groups);
    tree->setUniformRowHeights(true);
    tree->setAllColumnsShowFocus(true);
    tree->setFrameShape(QFrame::NoFrame);
    tree->setTextElideMode(Qt::ElideRight);
    tree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    tree->header()->setStretchLastSection(false);
    tree->header()->setSectionsMovable(false);
    tree->header()->setSectionResizeMode(GroupTreeModel::Caption, QHeaderView::Stretch);
    tree->header()->setSectionResizeMode(GroupTreeModel::PageNumber, QHeaderView::Fixed);
    tree->header()->resizeSection(GroupTreeModel::PageNumber,
                                  tree->fontMetrics().horizontalAdvance(u"Página"_s) + 24);
    return tree;
}

} // namespace

ReportViewer::ReportViewer(QWidget* parent)
    : QWidget(parent)
    , m_bar(new ViewerBar(this))
    , m_notice(new NoticeBar(this))
    , m_splitter(new QSplitter(this))
    , m_groups(new GroupTreeModel(this))
    , m_run(new LayoutRun(this))
    , m_outputs(new ViewerOutputs(this))
    , m_news(new QTimer(this))
    , m_dialogs(ViewerDialogs::ofTheSystem()) {
    setObjectName(u"reportViewer"_s);
    m_tree = makeTree(m_splitter, m_groups);
    auto* reading = new QWidget(m_splitter);
    m_view = new PageView(reading);
    m_findBar = new FindBar(reading);
    m_work = new WorkBar(reading);
    m_search = new ViewerSearch(*m_findBar, *m_view);
    buildLayout();
    connectCommands();
    connectParts();
    m_news->setInterval(newsInterval);
    setFocusProxy(m_view);
    showGroups(false);
    showPage();
    m_bar->showZoom(m_view->zoom(), m_view->fit());
    enableOutputs();
}

ReportViewer::~ReportViewer() {
    // The pages go before the view does.
    m_view->setPages(nullptr);
    m_search->setPages(nullptr);
}

void ReportViewer::buildLayout() {
    auto* column = new QVBoxLayout(m_view->parentWidget());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_view, 1);
    column->addWidget(m_findBar);
    column->addWidget(m_work);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setHandleWidth(4);
    m_splitter->setSizes({groupsWidth, pagesWidth});
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(m_bar);
    all->addWidget(m_notice);
    all->addWidget(m_splitter, 1);
}

void ReportViewer::connectCommands() {
    const auto on = [this](QStringView name, auto run) {
        connect(&m_bar->action(name), &QAction::triggered, this, [run](bool) { run(); });
    };
    on(u"panel", [this] {
        m_groupsWanted = m_tree->isHidden();
        showGroups(m_groupsWanted);
    });
    on(u"print", [this] { print(); });
    on(u"exportPdf", [this] { exportAs(ViewerOutputs::Format::Pdf); });
    on(u"exportXlsx", [this] { exportAs(ViewerOutputs::Format::Spreadsheet); });
    on(u"exportCsv", [this] { exportAs(ViewerOutputs::Format::Csv); });
    on(u"copy", [this] { copySelection(); });
    on(u"first", [this] { goTo(0); });
    on(u"previous", [this] { goTo(m_view->currentPage() - 1); });
    on(u"next", [this] { goTo(m_view->currentPage() + 1); });
    on(u"last", [this] { goTo(PageView::lastPage); });
    on(u"zoomOut", [this] { m_view->zoomStep(false); });
    on(u"zoomIn", [this] { m_view->zoomStep(true); });
    on(u"fullSize", [this] { m_view->setZoom(1); });
    on(u"fitWidth", [this] { m_view->setFit(PageView::Fit::Width); });
    on(u"fitPage", [this] { m_view->setFit(PageView::Fit::Page); });
    on(u"find", [this] { m_search->open(); });
    on(u"findNext", [this] { m_search->next(true); });
    on(u"findPrevious", [this] { m_search->next(false); });
    on(u"goTo", [this] { m_bar->editPage(); });
    on(u"selectPage", [this] { m_view->selectCurrentPage(); });
}

void ReportViewer::connectParts() {
    connect(m_run, &LayoutRun::progressed, this, &ReportViewer::layoutProgressed);
    connect(m_run, &LayoutRun::ended, this, &ReportViewer::layoutEnded);
    connect(m_news, &QTimer::timeout, this, &ReportViewer::showProgress);
    connect(m_view, &PageView::currentPageChanged, this, &ReportViewer::showPage);
    connect(m_view, &PageView::pageRequested, this, &ReportViewer::goTo);
    connect(m_view, &PageView::zoomChanged, this, [this] { m_bar->showZoom(m_view->zoom(), m_view->fit()); });
    connect(m_view, &PageView::selectionChanged, this, &ReportViewer::enableOutputs);
    connect(m_view, &PageView::lineClicked, this, &ReportViewer::lineClicked);
    connect(m_view, &PageView::used, m_run, &LayoutRun::giveWay);
    connect(m_bar, &ViewerBar::pageEntered, this, &ReportViewer::goTo);
    connect(m_bar, &ViewerBar::zoomEntered, m_view, &PageView::setZoom);
    connect(m_bar, &ViewerBar::left, m_view, qOverload<>(&QWidget::setFocus));
    connect(m_work, &WorkBar::stopWanted, this, &ReportViewer::cancel);
    connect(m_tree, &QTreeView::clicked, this, &ReportViewer::goToGroup);
    connect(m_tree, &QTreeView::activated, this, &ReportViewer::goToGroup);
    connect(m_search, &ViewerSearch::found, this, [this] { m_wantedPage = -1; });
}

void ReportViewer::setReportSource(Report& report) {
    stop();
    m_view->setPages(nullptr);
    m_search->setPages(nullptr);
    m_groups->setLayout(nullptr);
    m_notice->hide();
    m_pages.reset();
    m_report = &report;
    m_wantedPage = -1;
    enableOutputs();
}

void ReportViewer::viewReport() {
    m_pages = std::make_unique<ReportPages>(*m_report);
    m_view->setEmptyText(u"Preparando el informe..."_s);
    m_view->setPages(m_pages.get());
    m_search->setPages(m_pages.get());
    m_groups->setLayout(&m_report->layout());
    m_tree->setRootIsDecorated(m_report->definition().groups.size() > 1);
    showGroups(m_groupsWanted && !m_report->definition().groups.empty());
    m_bar->action(u"panel").setEnabled(!m_report->definition().groups.empty());
    m_run->start(m_report->layout());
    m_news->start();
    showPages();
    showProgress();
}

void ReportViewer::zoom(int percent) {
    m_view->setZoom(percent / hundred);
}

void ReportViewer::setLinesClickable(bool clickable, const QString& toolTip) {
    m_view->setLinesClickable(clickable, toolTip);
}

QString ReportViewer::notice() const {
    return m_notice->text();
}

void ReportViewer::showPages() {
    m_view->pagesAdded();
    showPage();
    enableOutputs();
}

void ReportViewer::showPage() {
    const int count = m_pages ? m_pages->count() : 0;
    m_bar->showPage(m_view->currentPage(), count, !m_pages || m_pages->complete());
    followGroup();
}

void ReportViewer::goTo(int page) {
    if (!m_pages)
        return;
    // A page that is not known yet is gone to when it is, unless the user goes elsewhere first.
    const bool waits = page >= m_pages->count() && m_run->isRunning();
    m_wantedPage = waits ? page : -1;
    if (!waits)
        m_view->goToPage(page);
    showProgress();
}

void ReportViewer::goToGroup(const QModelIndex& index) {
    if (!m_pages || !index.isValid())
        return;
    const GroupEntry& group = m_groups->entryOf(index);
    // A group is known a moment before its page is.
    if (group.page >= m_pages->count()) {
        goTo(group.page);
        return;
    }
    m_wantedPage = -1;
    m_view->goToPlace(placeOf(group));
}

/// Where the group's heading stands; the top of its page when it has none.
PagePlace ReportViewer::placeOf(const GroupEntry& group) {
    const Definition& definition = m_report->definition();
    try {
        const std::shared_ptr<const ShownPage> shown = m_pages->page(group.page);
        for (const Band& band : shown->page.bands) {
            const Section& section = definition.sections[band.section];
            if (section.kind == SectionKind::GroupHeader && section.group == group.level &&
                band.row == group.row)
                return {group.page, {0, band.top}};
        }
    } catch (const RunTimeError&) {
        // The page itself tells why it cannot be made.
    }
    return {group.page, {0, 0}};
}

void ReportViewer::followGroup() {
    // A user who walks through the tree leads; else the tree follows.
    if (m_tree->isHidden() || m_tree->hasFocus() || !m_pages)
        return;
    const QModelIndex group = m_groups->indexOfPage(m_view->currentPage());
    if (group.isValid() && group != m_tree->currentIndex())
        m_tree->setCurrentIndex(group);
}

void ReportViewer::showGroups(bool shown) {
    m_tree->setVisible(shown);
    m_bar->action(u"panel").setChecked(shown);
}

void ReportViewer::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape || !cancel())
        QWidget::keyPressEvent(event);
}

void ReportViewer::hideEvent(QHideEvent* event) {
    // A closed window reads and writes nothing any more; a minimized one goes on.
    if (!event->spontaneous())
        stop();
    QWidget::hideEvent(event);
}

} // namespace quorvane::report
