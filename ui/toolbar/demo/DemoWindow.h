#pragma once

#include "ui/toolbar/SubclassFailure.h"
#include "ui/toolbar/cSubclassToolBar.h"
#include <QToolBar>
#include <QWidget>
#include <vector>

class QGridLayout;

namespace dalvora::toolbar {

/// The skin that lies in the program's folder of styles; null when it is lost.
QImage shippedSkin();

/// Shows toolbars with the skin beside the same ones without it, and below every button style in every state.
/// Captions under and beside the images, a drop-down menu, checked, exclusive and disabled buttons are real:
/// the mouse tries them.
class DemoWindow final : public QWidget {
public:
    explicit DemoWindow(const QImage& skinPicture);

    /// Puts the mouse over a button of the first skinned toolbar, for a picture that shows it.
    void pointAtButton();

private:
    void addToolbars(QGridLayout& grid, int row, const QString& title, Qt::ToolButtonStyle style,
                     bool forceTextRight);
    QToolBar* makeToolbar(QWidget& container, Qt::ToolButtonStyle style) const;

    QImage m_skinPicture;
    SystemFailureReporter m_reporter;
    std::vector<std::unique_ptr<cSubclassToolBar>> m_skins;
    QToolBar* m_firstSkinned = nullptr;
};

} // namespace dalvora::toolbar
