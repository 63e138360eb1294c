#include "platform/help/SearchPanel.h"

#include "platform/help/HelpFile.h"
#include "platform/help/PageSearch.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace help {

namespace {

constexpr int PageRole = Qt::UserRole;
constexpr int ExcerptRole = Qt::UserRole + 1;
constexpr int Margin = 6;
constexpr int ExcerptLines = 3;

/// Draws a hit as its title in bold and below it the excerpt, wrapped.
class HitDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        return {80, option.fontMetrics.lineSpacing() * (1 + ExcerptLines) + 2 * Margin};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem background = option;
        initStyleOption(&background, index);
        background.text.clear();
        const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
        style->drawControl(QStyle::CE_ItemViewItem, &background, painter, option.widget);
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        const auto group =
            option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
        painter->save();
        painter->setPen(option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
        QRect area = option.rect.adjusted(Margin, Margin, -Margin, -Margin);
        QFont bold = option.font;
        bold.setBold(true);
        painter->setFont(bold);
        const QString title = index.data(Qt::DisplayRole).toString();
        painter->drawText(area, Qt::AlignTop | Qt::AlignLeft,
                          QFontMetrics(bold).elidedText(title, Qt::ElideRight, area.width()));
        area.setTop(area.top() + option.fontMetrics.lineSpacing());
        painter->setFont(option.font);
        painter->setOpacity(selected ? 1 : 0.75);
        painter->drawText(area, Qt::AlignTop | Qt::AlignLeft | Qt::TextWordWrap,
                          index.data(ExcerptRole).toString());
        painter->restore();
    }
};

} // namespace

SearchPanel::SearchPanel(QWidget* parent)
    : QWidget(parent)
    , m_text(new QLineEdit(this))
    , m_summary(new QLabel(this))
    , m_hits(new QListWidget(this)) {
    m_text->setObjectName(QStringLiteral("searchText"));
    m_summary->setObjectName(QStringLiteral("searchSummary"));
    m_hits->setObjectName(QStringLiteral("searchHits"));
    m_text->setClearButtonEnabled(true);
    m_text->setPlaceholderText(tr("por ejemplo: fecha vigencia"));
    m_text->installEventFilter(this);
    m_summary->setWordWrap(true);
    m_hits->setAccessibleName(tr("Páginas encontradas"));
    m_hits->setItemDelegate(new HitDelegate(m_hits));
    m_hits->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_hits->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    auto* label = new QLabel(tr("Palabras que busca:"), this);
    label->setBuddy(m_text);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 8, 4, 8);
    column->addWidget(label);
    column->addWidget(m_text);
    column->addWidget(m_summary);
    column->addWidget(m_hits, 1);
    connect(m_text, &QLineEdit::textChanged, this, &SearchPanel::search);
    connect(m_hits, &QListWidget::itemClicked, this, [this] { choose(m_hits->currentRow()); });
    connect(m_hits, &QListWidget::itemActivated, this, [this] { choose(m_hits->currentRow()); });
}

SearchPanel::~SearchPanel() = default;

void SearchPanel::setFile(std::shared_ptr<const HelpFile> file) {
    m_file = std::move(file);
    m_search.reset();
    search(m_text->text());
}

void SearchPanel::focusText() {
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

void SearchPanel::search(const QString& query) {
    m_hits->clear();
    m_summary->clear();
    if (!m_file || query.trimmed().isEmpty())
        return;
    if (!m_search)
        m_search = std::make_unique<PageSearch>(*m_file);
    const std::vector<SearchHit> hits = m_search->find(query);
    for (const SearchHit& hit : hits) {
        auto* line = new QListWidgetItem(hit.title, m_hits);
        line->setData(PageRole, hit.page);
        line->setData(ExcerptRole, hit.excerpt);
    }
    m_summary->setText(hits.empty()       ? tr("Ninguna página contiene esas palabras.")
                       : hits.size() == 1 ? tr("1 página")
                                          : tr("%1 páginas").arg(hits.size()));
    m_hits->setCurrentRow(hits.empty() ? -1 : 0);
}

void SearchPanel::choose(int row) {
    if (const QListWidgetItem* line = m_hits->item(row))
        Q_EMIT pageChosen(line->data(PageRole).toString(), PageSearch::words(m_text->text()));
}

bool SearchPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_text && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            choose(m_hits->currentRow());
            return true;
        }
        if (key == Qt::Key_Down || key == Qt::Key_PageDown) {
            m_hits->setFocus();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace help
