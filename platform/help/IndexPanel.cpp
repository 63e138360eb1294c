#include "platform/help/IndexPanel.h"

#include "platform/help/HelpFile.h"
#include "platform/help/HelpText.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QVBoxLayout>

namespace help {

namespace {

constexpr int PageRole = Qt::UserRole;
constexpr int FoldedRole = Qt::UserRole + 1;

/// Gives the lines of the list room to breathe and to be hit.
class RoomyDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 4);
    }
};

} // namespace

/// Lets words through that hold the sought letters; the pages below a word go with it.
class KeywordFilter : public QSortFilterProxyModel {
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setSought(const QString& text) {
        m_sought = foldForSearch(text.trimmed());
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        return parent.isValid() ||
               sourceModel()->index(row, 0, parent).data(FoldedRole).toString().contains(m_sought);
    }

private:
    QString m_sought;
};

IndexPanel::IndexPanel(QWidget* parent)
    : QWidget(parent)
    , m_text(new QLineEdit(this))
    , m_words(new QTreeView(this))
    , m_model(new QStandardItemModel(this))
    , m_filter(new KeywordFilter(this)) {
    m_text->setObjectName(QStringLiteral("indexText"));
    m_words->setObjectName(QStringLiteral("indexWords"));
    m_text->setClearButtonEnabled(true);
    m_text->setPlaceholderText(tr("por ejemplo: tramo"));
    m_text->installEventFilter(this);
    m_words->setAccessibleName(tr("Palabras del índice"));
    m_words->setHeaderHidden(true);
    m_words->setRootIsDecorated(false);
    m_words->setItemsExpandable(false);
    m_words->setItemDelegate(new RoomyDelegate(m_words));
    m_words->setIndentation(14);
    m_filter->setSourceModel(m_model);
    m_words->setModel(m_filter);
    auto* label = new QLabel(tr("Palabra que busca:"), this);
    label->setBuddy(m_text);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 8, 4, 8);
    column->addWidget(label);
    column->addWidget(m_text);
    column->addWidget(m_words, 1);
    const auto open = [this](const QModelIndex& line) { Q_EMIT pageChosen(line.data(PageRole).toString()); };
    connect(m_text, &QLineEdit::textChanged, this, &IndexPanel::filter);
    connect(m_words, &QTreeView::clicked, this, open);
    connect(m_words, &QTreeView::activated, this, open);
}

void IndexPanel::setFile(const HelpFile& file) {
    m_model->clear();
    for (const SitemapNode& node : file.index()) {
        auto* word = new QStandardItem(node.title);
        word->setEditable(false);
        word->setData(node.pages.value(0), PageRole);
        word->setData(foldForSearch(node.title), FoldedRole);
        for (qsizetype at = 0; node.pages.size() > 1 && at < node.pages.size(); ++at) {
            const QString& title = node.pageTitles.at(at);
            auto* page = new QStandardItem(
                title.isEmpty() || title == node.title ? file.titleOf(node.pages.at(at)) : title);
            page->setEditable(false);
            page->setData(node.pages.at(at), PageRole);
            word->appendRow(page);
        }
        m_model->appendRow(word);
    }
    filter(m_text->text());
}

void IndexPanel::lookFor(const QString& word) {
    if (!word.isEmpty())
        m_text->setText(word);
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

void IndexPanel::filter(const QString& text) {
    m_filter->setSought(text);
    m_words->expandAll();
    const bool narrowed = !text.trimmed().isEmpty() && m_filter->rowCount() > 0;
    m_words->setCurrentIndex(narrowed ? m_filter->index(0, 0) : QModelIndex());
}

// From the field, Enter opens the selected word (the first, until another is chosen) and the arrows move in
// the list.
bool IndexPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_text && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (isEnter && m_words->currentIndex().isValid()) {
            Q_EMIT pageChosen(m_words->currentIndex().data(PageRole).toString());
            return true;
        }
        if (key == Qt::Key_Down || key == Qt::Key_PageDown) {
            m_words->setFocus();
            if (!m_words->currentIndex().isValid())
                m_words->setCurrentIndex(m_filter->index(0, 0));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace help
