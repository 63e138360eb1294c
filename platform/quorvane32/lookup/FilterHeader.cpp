#include "platform/quorvane32/lookup/FilterHeader.h"
#include <QScrollBar>
#include <algorithm>

namespace quorvane {

namespace {

/// Pixels between the edits and around them.
constexpr int gap = 2;

} // namespace

FilterHeader::FilterHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(true);
    setSortIndicatorShown(true);
    setSortIndicatorClearable(true);
    setSortIndicator(-1, Qt::AscendingOrder);
    setHighlightSections(false);
    connect(this, &QHeaderView::sectionResized, this, &FilterHeader::placeFilters);
    connect(this, &QHeaderView::geometriesChanged, this, &FilterHeader::placeFilters);
}

void FilterHeader::createFilters(const QStringList& captions) {
    for (int column = 0; column < captions.size(); ++column) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(QStringLiteral("txtFiltro%1").arg(column + 1));
        edit->setAccessibleName(QStringLiteral("Filtro de %1").arg(captions[column]));
        edit->setPlaceholderText(QStringLiteral("Filtrar"));
        edit->setClearButtonEnabled(true);
        edit->setMaxLength(200);
        connect(edit, &QLineEdit::textChanged, this,
                [this, column](const QString& text) { Q_EMIT filterEdited(column, text); });
        m_filters.push_back(edit);
    }
    if (const auto* table = qobject_cast<QAbstractScrollArea*>(parentWidget()))
        connect(table->horizontalScrollBar(), &QScrollBar::valueChanged, this, &FilterHeader::placeFilters);
    updateGeometries();
}

int FilterHeader::columnOf(const QObject* edit) const {
    const auto found = std::find(m_filters.begin(), m_filters.end(), edit);
    return found == m_filters.end() ? -1 : static_cast<int>(found - m_filters.begin());
}

int FilterHeader::filterHeight() const {
    return m_filters.empty() ? 0 : m_filters.front()->sizeHint().height() + 2 * gap;
}

QSize FilterHeader::sizeHint() const {
    const QSize captions = QHeaderView::sizeHint();
    return {captions.width(), captions.height() + filterHeight()};
}

void FilterHeader::updateGeometries() {
    setViewportMargins(0, 0, 0, filterHeight());
    QHeaderView::updateGeometries();
    placeFilters();
}

void FilterHeader::placeFilters() {
    const int top = height() - filterHeight() + gap;
    for (int column = 0; column < filterCount(); ++column) {
        QLineEdit* edit = filter(column);
        edit->setGeometry(sectionViewportPosition(column) + gap, top, sectionSize(column) - 2 * gap,
                          edit->sizeHint().height());
        edit->show();
    }
}

} // namespace quorvane
