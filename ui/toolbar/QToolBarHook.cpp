#include "ui/toolbar/QToolBarHook.h"
#include "ui/toolbar/QToolBarDescription.h"
#include "ui/toolbar/SubclassFailure.h"
#include <QChildEvent>
#include <QLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QToolBar>
#include <cmath>

namespace dalvora::toolbar {

using namespace Qt::StringLiterals;

namespace {

/// Marks a toolbar whose painting is taken.
constexpr const char* takenProperty = "dalvora_toolbar_taken";

} // namespace

std::unique_ptr<ToolbarHook> QToolBarHook::take(QWidget* container, bool forceTextRight,
                                                const ToolbarPainter& painter, FailureReporter& reporter) {
    auto* toolbar = container ? container->findChild<QToolBar*>({}, Qt::FindDirectChildrenOnly) : nullptr;
    if (!toolbar)
        return nullptr;
    if (toolbar->property(takenProperty).toBool()) {
        reportFailure(reporter, u"SubclassWindow"_s, alreadySubclassedText());
        return nullptr;
    }
    return std::unique_ptr<ToolbarHook>(new QToolBarHook(*toolbar, forceTextRight, painter));
}

QToolBarHook::QToolBarHook(QToolBar& toolbar, bool forceTextRight, const ToolbarPainter& painter)
    : m_painter(painter), m_watched(&toolbar), m_toolbar(&toolbar), m_savedStyle(toolbar.toolButtonStyle()) {
    if (forceTextRight)
        toolbar.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_textOnRight = toolbar.toolButtonStyle() == Qt::ToolButtonTextBesideIcon;
    toolbar.setProperty(takenProperty, true);
    toolbar.installEventFilter(this);
    for (QObject* child : toolbar.children())
        watchChild(child);
    toolbar.update();
}

QToolBarHook::~QToolBarHook() {
    if (!m_toolbar)
        return;
    m_toolbar->setProperty(takenProperty, {});
    m_toolbar->update();
}

void QToolBarHook::restoreStyle() {
    if (m_toolbar)
        m_toolbar->setToolButtonStyle(m_savedStyle);
}

void QToolBarHook::invalidate() {
    if (m_toolbar)
        m_toolbar->update();
}

void QToolBarHook::watchChild(QObject* child) {
    if (child->isWidgetType())
        child->installEventFilter(this);
}

bool QToolBarHook::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_watched)
        return filterChild(watched, event);
    if (event->type() == QEvent::ChildAdded)
        watchChild(static_cast<QChildEvent*>(event)->child());
    if (event->type() != QEvent::Paint || !m_painter.canPaint())
        return false;
    paint(*static_cast<QPaintEvent*>(event));
    return true;
}

bool QToolBarHook::filterChild(QObject* child, QEvent* event) {
    switch (event->type()) {
    case QEvent::Paint:
        return m_painter.canPaint() && isPaintedHere(*static_cast<QWidget*>(child));
    case QEvent::Enter:
    case QEvent::Leave:
        // Not every style has its buttons repainted when the mouse comes and goes.
        static_cast<QWidget*>(child)->update();
        return false;
    default:
        return false;
    }
}

/// A button that is not, or no longer, in the toolbar's layout is not described, so it paints itself.
bool QToolBarHook::isPaintedHere(const QWidget& child) const {
    return m_toolbar && isPaintedChild(child) && m_toolbar->layout()->indexOf(&child) >= 0;
}

/// Works on copies and draws aside first: whatever answers while the toolbar is described, such as the engine
/// of an icon, may take the toolbar away, or this object.
void QToolBarHook::paint(const QPaintEvent& event) {
    const QPointer<QToolBarHook> self(this);
    const QPointer<QToolBar> toolbar = m_toolbar;
    const ToolbarPainter painter = m_painter;
    const qreal scale = toolbar->devicePixelRatio();
    // A part may begin inside a screen pixel when these are not whole ones.
    const QRect part = scale == std::floor(scale) ? event.rect() : toolbar->rect();
    IconImages images(toolbar->iconSize(), scale);
    const ToolbarDescription bar = describeToolbar(*toolbar, m_textOnRight, images);
    QImage picture = painter.paint(bar, images, part, scale, std::exchange(m_picture, {}));
    if (toolbar && !picture.isNull())
        QPainter(toolbar).drawImage(part.topLeft(), picture);
    if (self)
        m_picture = std::move(picture);
}

} // namespace dalvora::toolbar
