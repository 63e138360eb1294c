#pragma once

#include <QStringList>
#include <QWidget>
#include <memory>

class QLabel;
class QLineEdit;
class QListWidget;

namespace help {

class HelpFile;
class PageSearch;

/// Full-text search: the pages that hold all words typed, each with the text around the first of them.
class SearchPanel : public QWidget {
    Q_OBJECT

public:
    explicit SearchPanel(QWidget* parent = nullptr);
    ~SearchPanel() override;

    void setFile(std::shared_ptr<const HelpFile> file);
    void focusText();

Q_SIGNALS:
    /// A page was chosen; `words` are the folded words that led to it.
    void pageChosen(const QString& page, const QStringList& words);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void search(const QString& query);
    void choose(int row);

    std::shared_ptr<const HelpFile> m_file;
    std::unique_ptr<PageSearch> m_search; // made by the first search
    QLineEdit* m_text;
    QLabel* m_summary;
    QListWidget* m_hits;
};

} // namespace help
