#include "benchmarks/Benches.h"
#include "benchmarks/Harness.h"
#include "platform/skin/ImageList.h"
#include "ui/toolbar/SubclassFailure.h"
#include "ui/toolbar/cSubclassToolBar.h"
#include <QApplication>
#include <QToolBar>
#include <QVBoxLayout>
#include <stdexcept>

namespace bench {

namespace {

constexpr double repaintGoal = 3;
constexpr int rounds = 25;
constexpr int repaints = 40;
constexpr int width = 900;
constexpr int iconSide = 24;

/// A window with one toolbar of every command that has an image, some checked and some disabled.
class ToolbarWindow {
public:
    ToolbarWindow() {
        auto* layout = new QVBoxLayout(&m_window);
        layout->setContentsMargins({});
        m_toolbar = new QToolBar(&m_window);
        layout->addWidget(m_toolbar);
        m_toolbar->setIconSize({iconSide, iconSide});
        m_toolbar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        int place = 0;
        for (const QString& key : skin::ImageList::keys()) {
            QAction* action = m_toolbar->addAction(skin::ImageList().icon(key), key);
            action->setCheckable(place % 4 == 0);
            action->setChecked(place % 4 == 0);
            action->setEnabled(place % 5 != 0);
            if (++place % 6 == 0)
                m_toolbar->addSeparator();
        }
        m_window.resize(width, m_window.sizeHint().height());
    }

    QWidget& window() { return m_window; }

    void show() {
        m_window.show();
        QCoreApplication::processEvents();
    }

    void repaint() {
        for (int i = 0; i < repaints; ++i)
            m_toolbar->repaint();
    }

private:
    QWidget m_window;
    QToolBar* m_toolbar;
};

} // namespace

void benchToolbar(Report& report, Company&) {
    ToolbarWindow skinned;
    ToolbarWindow plain;
    dalvora::toolbar::SystemFailureReporter reporter;
    dalvora::toolbar::cSubclassToolBar skin(reporter);
    const QImage picture(QCoreApplication::applicationDirPath() +
                         QStringLiteral("/../Styles/LightBlueToolbar.bmp"));
    skin.SetSkinPicture(picture);
    if (picture.isNull() || !skin.SubClassToolBar(&skinned.window()))
        throw std::runtime_error("the toolbar has no skin");
    skinned.show();
    plain.show();
    report.add(compare("repaint a skinned toolbar", repaintGoal, rounds, {[&] { skinned.repaint(); }},
                       {[&] { plain.repaint(); }}));
}

} // namespace bench
