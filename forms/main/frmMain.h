#pragma once

#include "forms/main/CommandDispatch.h"
#include "forms/main/DetailGrid.h"
#include "forms/main/HeaderBinding.h"
#include "forms/main/MainControls.h"
#include "forms/main/RecordCommands.h"
#include "platform/skin/SkinFramework.h"
#include <QMainWindow>

namespace dalvora {

/// The program's window. It owns the controls and what brings them to life, and answers the window's own
/// events; start-up (app/) drives it through the public operations.
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    enum UnloadMode : int { ControlBox = 0, FromCode = 1 };

    /// Without a style file the form keeps the toolkit's own look.
    frmMain(SessionContext& context, FormServices& services, const QString& styleFile = {});
    ~frmMain() override;

    MainControls& controls() { return m_controls; }
    RecordCommands& record() { return m_record; }
    HeaderBinding& header() { return m_header; }

    /// Gives the window its skin; a style file that cannot be used is told and leaves the toolkit's own look.
    void Form_Load();
    /// While set, the resize rule rests.
    void setInitializing(bool initializing);
    /// Colours that the grids have before they are laid out.
    void tintGrids();
    /// Takes the present size as the least one.
    void rememberSize();
    /// Sets Cancel when the user keeps the program running rather than lose what has been entered.
    void Form_QueryUnload(bool& Cancel, int mode);
    /// Unloads without asking.
    void unload();

    /// Restores and activates the window, with the one above it that waits for an answer.
    void comeToFront();
    /// A command waits or runs, the user is asked something, or the form takes no input.
    bool isBusy() const;
    /// Set while a component asks the user: its window may be none that the toolkit knows of.
    void setAsking(bool asking) { m_asking = asking; }
    /// Ends an edit in progress, which stores its entry, and returns the control that had the focus.
    QWidget* endEntry();
    /// Whether replacing the record now would lose what has been entered.
    bool wouldLoseEntry() const;

    // Entry points for the ERP that hosts the form.
    void System_RecordAdd();
    void System_RecordOpen(const QString& StrKeys);
    /// System_RecordAdd with its errors ignored.
    void addRecordQuietly();
    /// System_RecordOpen, the form disabled meanwhile unless `enabled`.
    void openRecord(const QString& StrKeys, bool enabled);

Q_SIGNALS:
    void unloaded();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void wireCommands();
    /// Shows the window and ends an edit in progress.
    void bringUp();
    void commitEdits();
    void takeClientsAway();
    void Form_Resize();
    void keepLeastSize();
    void placeControls();

    /// The skin, loaded before there is a control: each is then polished once, in its final style.
    struct LoadedSkin : skin::SkinFramework {
        explicit LoadedSkin(const QString& styleFile);
        QString error;
    };

    LoadedSkin SkinFramework1;
    MainControls m_controls;
    SessionContext& m_context;
    DetailGrid m_products;
    DetailGrid m_amounts;
    DetailGrid m_priceLists;
    RecordCommands m_record;
    CommandDispatch m_dispatch;
    HeaderBinding m_header;
    QSize m_leastSize;
    bool m_initializing = false;
    bool m_asking = false;
    bool m_unloading = false;
};

} // namespace dalvora
