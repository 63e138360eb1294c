#pragma once

#include <QWidget>

class QComboBox;
class QDateEdit;
class QMenu;

/// The controls that the main form does not show but dialogs do, in their states.
class GalleryWindow : public QWidget {
public:
    GalleryWindow();

    QComboBox* list = nullptr;
    QDateEdit* date = nullptr;

    /// A menu with ticks, icons, a submenu and items that are off.
    QMenu* contextMenu();

private:
    void addFields();
    void addButtons();
    void addLists();
};
