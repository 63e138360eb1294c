#include "platform/reportengine/viewer/NoticeBar.h"
#include "platform/skin/ImageList.h"
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace quorvane::report {

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSize = 24;

struct Look {
    QColor ground;
    QStringView icon;
};

Look lookOf(NoticeBar::Kind kind) {
    if (kind == NoticeBar::Kind::Done)
        return {QColor(0xe6, 0xf4, 0xe8), u"informacion"};
    return {QColor(0xff, 0xf3, 0xd6), u"advertencia"};
}

} // namespace

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent), m_icon(new QLabel(this)), m_text(new QLabel(this)), m_button(new QPushButton(this)) {
    setObjectName(u"notice"_s);
    setAutoFillBackground(true);
    m_text->setObjectName(u"noticeText"_s);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_button->setObjectName(u"noticeButton"_s);
    auto* hide = new QToolButton(this);
    hide->setObjectName(u"noticeClose"_s);
    hide->setIcon(skin::reportIcon(u"quitar"_s));
    hide->setIconSize({16, 16});
    hide->setAutoRaise(true);
    hide->setToolTip(u"Cerrar el aviso"_s);
    hide->setAccessibleName(u"Cerrar el aviso"_s);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 6, 8, 6);
    row->setSpacing(10);
    row->addWidget(m_icon);
    row->addWidget(m_text, 1);
    row->addWidget(m_button);
    row->addWidget(hide);
    connect(hide, &QToolButton::clicked, this, &QWidget::hide);
    connect(m_button, &QPushButton::clicked, this, [this] {
        if (m_action)
            m_action();
    });
    setVisible(false);
}

void NoticeBar::showNotice(Kind kind, const QString& text) {
    showNotice(kind, text, {}, {});
}

void NoticeBar::showNotice(Kind kind, const QString& text, const QString& button,
                           std::function<void()> action) {
    const Look look = lookOf(kind);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, look.ground);
    colours.setColor(QPalette::WindowText, Qt::black);
    setPalette(colours);
    m_icon->setPixmap(
        skin::messageIcon(look.icon.toString()).pixmap(QSize(iconSize, iconSize), devicePixelRatioF()));
    m_text->setText(text);
    m_text->setAccessibleName(text);
    m_button->setText(button);
    m_button->setVisible(!button.isEmpty());
    m_action = std::move(action);
    setVisible(true);
}

QString NoticeBar::text() const {
    return isHidden() ? QString() : m_text->text();
}

} // namespace quorvane::report
