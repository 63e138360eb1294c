#pragma once

#include <QMainWindow>
#include <memory>

class QLineEdit;
class QMenu;
class QMessageBox;
class QTableView;
class QToolBar;

/// A window with one of every control that the programs use, laid out as their main form is.
class DemoWindow : public QMainWindow {
public:
    DemoWindow();

    QToolBar* toolBar = nullptr;
    QMenu* editMenu = nullptr;
    QTableView* grid = nullptr;
    QLineEdit* locked = nullptr;

    /// A question as ShowMessage asks it.
    std::unique_ptr<QMessageBox> question();

private:
    void buildMenus();
    void buildToolBar();
    void buildHeader(QWidget* page);
    void buildGrid(QWidget* page);
    void buildStatusBar();
};
