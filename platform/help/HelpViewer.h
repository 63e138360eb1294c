#pragma once

#include <QMainWindow>
#include <memory>

class QSplitter;
class QTabWidget;

namespace help {

class ContentsPanel;
class FindBar;
class HelpFile;
class IndexPanel;
class PageView;
class SearchPanel;

/// The help window: contents, index and search on the left, the page on the right, and above them what a
/// reader does with pages (back, forward, first page, print, find, size of the letters).
class HelpViewer : public QMainWindow {
    Q_OBJECT

public:
    explicit HelpViewer(QWidget* parent = nullptr);

    /// Takes another help file and shows its first page; the same file again changes nothing.
    void setFile(const std::shared_ptr<const HelpFile>& file);
    const std::shared_ptr<const HelpFile>& file() const { return m_file; }

    void showContents();
    /// Shows the index, with `word` typed into it when it is not empty.
    void showIndex(const QString& word = {});
    void showPage(const QString& page);
    /// Shows the page with the keyboard on it, ready to be read.
    void openPage(const QString& page);
    /// Shows the window, out of the task bar if need be, in front of the others.
    void bringToFront();

private:
    void buildLayout();
    void buildToolBar();
    void connectCommands();
    void connectPanels();
    void pageShown();
    void showPanel(bool shown);
    void printPage();
    QAction* action(const char* name) const;

    std::shared_ptr<const HelpFile> m_file;
    QSplitter* m_splitter = nullptr;
    QTabWidget* m_panels = nullptr;
    ContentsPanel* m_contents = nullptr;
    IndexPanel* m_index = nullptr;
    SearchPanel* m_search = nullptr;
    PageView* m_page = nullptr;
    FindBar* m_find = nullptr;
};

} // namespace help
