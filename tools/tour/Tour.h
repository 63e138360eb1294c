#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPixmap>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

namespace dalvora {
class frmMain;
}
namespace dalvora::lorbadeno {
class DocumentProgram;
}

namespace tour {

/// Plays the main job on the real window with real key and mouse events and leaves numbered pictures. Steps
/// run from a timer, so they also run while a window is modal; each waits for what the one before it brings
/// about, so a busy machine only takes longer.
class Tour : public QObject {
    Q_OBJECT
public:
    Tour(dalvora::frmMain& form, QString folder);
    ~Tour() override;

    void start();
    /// Leaves one more picture, of something that is no step of the job.
    void addPicture(const QString& name, const QPixmap& picture);
    /// Steps that did not find what they needed on screen or brought nothing about, and pictures that could
    /// not be written.
    int failures() const { return m_failures; }

Q_SIGNALS:
    void finished();

private:
    using Condition = bool (Tour::*)();

    struct Step {
        QString picture; ///< its name; "" for a step that leaves none
        std::function<void()> play;
        Condition shown; ///< what it brings about is on screen
    };
    void addStep(const QString& picture, std::function<void()> play, Condition shown = &Tour::atRest);
    void addReadingSteps();
    void addEditingSteps();
    void addRefusalSteps();
    void addSalespeopleSteps();
    void addReportSteps();
    void addOtherWindowSteps();
    /// Chooses a scheme by its code's lookup.
    void addLookupSteps(const QString& lookup, const QString& filter, const QString& result);
    /// Closes the window above the main one.
    void addClosing(const QString& picture = {});
    /// Asks for a preview, enters the report and the period, and shows it.
    void addReportChoice(const QString& name, const QString& chosen, const QString& shown);

    // Conditions.
    /// The main window alone, in front, with nothing going on in it.
    bool atRest();
    /// Another window or a list is in front.
    bool anotherInFront();
    bool commandOver();
    bool reportShown();
    bool customerFound();
    bool documentShown();

    void enterReport(const QString& name);
    void enlargeReport();
    void goToThirdGroup();
    void findCustomer();
    void openDocument();
    /// Leaves the report that is shown as NAME.pdf and its first page as NAME.png.
    void exportReport(const QString& name);
    void leaveReport();

    void next();
    void look();
    void takePicture(const QString& name);
    void save(const QString& name, const QPixmap& picture);
    /// Tells a step that found nothing to act on.
    void fail(const QString& why);

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);
    void clickButton(const QString& key);
    void goToCell(int row, int column);
    int lastRow();
    void closeOpenWindow();
    /// The control of the window in front; null, and told, when it is not there.
    template<class Control> Control* inFront(const char* name);

    dalvora::frmMain& m_form;
    QString m_folder;
    std::unique_ptr<dalvora::lorbadeno::DocumentProgram> m_documents; ///< while a document is shown
    bool m_documentAsked = false;                                     ///< the click on its line is over
    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    QElapsedTimer m_waiting; ///< since the present step began
    int m_pictures = 0;
    int m_failures = 0;
};

} // namespace tour
