#pragma once

#include <QWidget>

class QLineEdit;
class QStandardItemModel;
class QTreeView;

namespace help {

class HelpFile;
class KeywordFilter;

/// The index: type a few letters and the list of words shrinks to those that hold them (case and accents do
/// not count). A word that leads to several pages lists them below it.
class IndexPanel : public QWidget {
    Q_OBJECT

public:
    explicit IndexPanel(QWidget* parent = nullptr);

    void setFile(const HelpFile& file);
    /// Puts `word` into the field and the cursor behind it, ready to type.
    void lookFor(const QString& word);

Q_SIGNALS:
    void pageChosen(const QString& page);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void filter(const QString& text);

    QLineEdit* m_text;
    QTreeView* m_words;
    QStandardItemModel* m_model;
    KeywordFilter* m_filter;
};

} // namespace help
