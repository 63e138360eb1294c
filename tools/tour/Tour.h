#pragma once

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

/// Plays the main job on the real window with real key and mouse events and leaves a numbered picture after
/// each step. Steps run from a timer, so they also run while a window is modal.
class Tour : public QObject {
    Q_OBJECT
public:
    Tour(dalvora::frmMain& form, QString folder);
    ~Tour() override;

    void start();
    /// Leaves one more picture, of something that is no step of the job.
    void addPicture(const QString& name, const QPixmap& picture);
    /// Steps that did not find what they needed on screen, or pictures that could not be written.
    int failures() const { return m_failures; }

Q_SIGNALS:
    void finished();

private:
    /// Between two steps, in milliseconds; longer than the delay of a command.
    static constexpr int stepDelay = 350;

    struct Step {
        QString picture; ///< its name; "" for a step that leaves none
        std::function<void()> play;
    };
    void addReadingSteps();
    void addEditingSteps();
    void addRefusalSteps();
    void addSalespeopleSteps();
    void addReportSteps();
    void addOtherWindowSteps();
    /// Asks for a preview and enters the report and the period.
    void chooseReport(const QString& name);
    void enterReport(const QString& name);
    void acceptReport();
    void openDocument();
    /// Leaves the report that is shown as NAME.pdf and its first page as NAME.png.
    void exportReport(const QString& name);
    void leaveReport();
    void next();
    void takePicture(const QString& name);
    void save(const QString& name, const QPixmap& picture);
    /// Tells a step that found nothing to act on.
    void fail(const QString& why);

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);
    void clickButton(const QString& key);
    void goToCell(int tab, int row, int column);
    void activate();
    void closeOpenWindow();
    /// The control of the window in front; null, and told, when it is not there.
    template<class Control> Control* inFront(const char* name);

    dalvora::frmMain& m_form;
    QString m_folder;
    std::unique_ptr<dalvora::lorbadeno::DocumentProgram> m_documents; ///< while a document is shown
    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    int m_pictures = 0;
    int m_failures = 0;
};

} // namespace tour
