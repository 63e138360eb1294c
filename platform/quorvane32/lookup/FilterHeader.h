#pragma once

#include <QHeaderView>
#include <QLineEdit>
#include <vector>

namespace quorvane {

/// A table's header with an edit under every caption, in which the user types what the column must hold.
class FilterHeader : public QHeaderView {
    Q_OBJECT
public:
    explicit FilterHeader(QWidget* parent = nullptr);

    /// Makes one edit per caption; called once, after the table has its model.
    void createFilters(const QStringList& captions);
    int filterCount() const { return static_cast<int>(m_filters.size()); }
    QLineEdit* filter(int column) const { return m_filters[static_cast<size_t>(column)]; }
    /// Column of an edit, or -1.
    int columnOf(const QObject* edit) const;

    QSize sizeHint() const override;

Q_SIGNALS:
    void filterEdited(int column, const QString& text);

protected:
    void updateGeometries() override;

private:
    int filterHeight() const;
    void placeFilters();

    std::vector<QLineEdit*> m_filters;
};

} // namespace quorvane
