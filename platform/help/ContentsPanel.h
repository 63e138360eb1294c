#pragma once

#include <QTreeView>

class QStandardItemModel;

namespace help {

class HelpFile;

/// The manual's table of contents: chapters and pages as a tree. Moving to a page opens it.
class ContentsPanel : public QTreeView {
    Q_OBJECT

public:
    explicit ContentsPanel(QWidget* parent = nullptr);

    void setFile(const HelpFile& file);
    /// Selects the line of `page` without opening it again; keeps the selection when the contents lack it.
    void selectPage(const QString& page);

Q_SIGNALS:
    void pageChosen(const QString& page);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void choose(const QModelIndex& line);

    QStandardItemModel* m_model;
    bool m_following = false;
};

} // namespace help
