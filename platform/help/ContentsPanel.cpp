#include "platform/help/ContentsPanel.h"

#include "platform/help/HelpFile.h"
#include "platform/help/LineIcons.h"

#include <QScopedValueRollback>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

namespace help {

namespace {

constexpr int PageRole = Qt::UserRole;

void fill(QStandardItem* parent, const std::vector<SitemapNode>& nodes) {
    for (const SitemapNode& node : nodes) {
        auto* line =
            new QStandardItem(lineIcon(node.children.empty() ? Glyph::Page : Glyph::Book), node.title);
        line->setData(node.pages.value(0), PageRole);
        line->setEditable(false);
        parent->appendRow(line);
        fill(line, node.children);
    }
}

/// Lets the icon of the selected line follow its text when the selection is only tinted.
class ContentsDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (!option->state.testFlag(QStyle::State_Active))
            option->icon = lineIcon(glyphOf(index), OnSelection::PlainText);
    }

private:
    static Glyph glyphOf(const QModelIndex& index) {
        return index.model()->hasChildren(index) ? Glyph::Book : Glyph::Page;
    }
};

QModelIndex lineOf(const QAbstractItemModel& model, const QString& page, const QModelIndex& parent) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex line = model.index(row, 0, parent);
        if (line.data(PageRole).toString().compare(page, Qt::CaseInsensitive) == 0)
            return line;
        if (const QModelIndex below = lineOf(model, page, line); below.isValid())
            return below;
    }
    return {};
}

} // namespace

ContentsPanel::ContentsPanel(QWidget* parent) : QTreeView(parent), m_model(new QStandardItemModel(this)) {
    setObjectName(QStringLiteral("contents"));
    setAccessibleName(tr("Contenido de la ayuda"));
    setModel(m_model);
    setItemDelegate(new ContentsDelegate(this));
    setHeaderHidden(true);
    setFrameShape(QFrame::NoFrame);
    setExpandsOnDoubleClick(true);
    connect(this, &QTreeView::clicked, this, &ContentsPanel::choose);
    connect(this, &QTreeView::activated, this, &ContentsPanel::choose);
}

void ContentsPanel::setFile(const HelpFile& file) {
    const QScopedValueRollback following(m_following, true);
    m_model->clear();
    fill(m_model->invisibleRootItem(), file.contents());
    expandAll();
}

void ContentsPanel::selectPage(const QString& page) {
    const QScopedValueRollback following(m_following, true);
    if (currentIndex().data(PageRole).toString().compare(page, Qt::CaseInsensitive) == 0)
        return;
    if (const QModelIndex line = lineOf(*m_model, page, {}); line.isValid()) {
        setCurrentIndex(line);
        scrollTo(line);
    }
}

void ContentsPanel::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    choose(current);
}

void ContentsPanel::choose(const QModelIndex& line) {
    const QString page = line.data(PageRole).toString();
    if (!m_following && !page.isEmpty())
        Q_EMIT pageChosen(page);
}

} // namespace help
