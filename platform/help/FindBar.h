#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace help {

class PageView;

/// The bar below the page that finds text in it as it is typed. Hidden until asked for; Esc hides it again.
class FindBar : public QWidget {
    Q_OBJECT

public:
    FindBar(PageView* page, QWidget* parent);

    /// Shows the bar with its text selected, ready to type.
    void open();
    void findNext(bool forward);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void search();
    void close();

    PageView* m_page;
    QLineEdit* m_text;
    QLabel* m_count;
    int m_found = 0;
};

} // namespace help
