#include "platform/reportengine/viewer/FindBar.h"
#include "platform/skin/ImageList.h"
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>

namespace quorvane::report {

using namespace Qt::StringLiterals;

namespace {

constexpr int typingPause = 150; // milliseconds
constexpr int textWidth = 280;
constexpr QColor alarm(0xb3, 0x26, 0x1e);

QToolButton* button(QWidget* parent, const QString& icon, const QString& name, const QString& tip) {
    auto* made = new QToolButton(parent);
    made->setIcon(skin::reportIcon(icon));
    made->setIconSize({16, 16});
    made->setAutoRaise(true);
    made->setToolTip(tip);
    made->setAccessibleName(name);
    return made;
}

} // namespace

FindBar::FindBar(QWidget* parent)
    : QWidget(parent), m_text(new QLineEdit(this)), m_message(new QLabel(this)), m_pause(new QTimer(this)) {
    setObjectName(u"findBar"_s);
    m_text->setObjectName(u"findText"_s);
    m_text->setAccessibleName(u"Texto que se busca"_s);
    m_text->setPlaceholderText(u"Texto en el informe"_s);
    m_text->setClearButtonEnabled(true);
    m_text->setFixedWidth(textWidth);
    m_message->setObjectName(u"findMessage"_s);
    m_message->setTextFormat(Qt::PlainText);
    auto* label = new QLabel(u"Buscar:"_s, this);
    label->setBuddy(m_text);
    auto* previous = button(this, u"arriba"_s, u"Anterior"_s, u"Coincidencia anterior (Mayús+F3)"_s);
    previous->setObjectName(u"findPreviousButton"_s);
    auto* next = button(this, u"abajo"_s, u"Siguiente"_s, u"Coincidencia siguiente (F3)"_s);
    next->setObjectName(u"findNextButton"_s);
    auto* hide = button(this, u"quitar"_s, u"Cerrar la búsqueda"_s, u"Cerrar la búsqueda (Esc)"_s);
    hide->setObjectName(u"findClose"_s);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(10, 5, 8, 5);
    row->addWidget(label);
    row->addWidget(m_text);
    row->addWidget(previous);
    row->addWidget(next);
    row->addSpacing(6);
    row->addWidget(m_message, 1);
    row->addWidget(hide);
    m_pause->setSingleShot(true);
    m_pause->setInterval(typingPause);
    connect(m_text, &QLineEdit::textEdited, m_pause, qOverload<>(&QTimer::start));
    connect(m_text, &QLineEdit::textChanged, this, [this](const QString& text) {
        // The button that clears the text does not count as typing.
        if (text.isEmpty())
            m_pause->start();
    });
    connect(m_pause, &QTimer::timeout, this, [this] { Q_EMIT textEntered(text()); });
    connect(previous, &QToolButton::clicked, this, [this] { Q_EMIT nextWanted(false); });
    connect(next, &QToolButton::clicked, this, [this] { Q_EMIT nextWanted(true); });
    connect(hide, &QToolButton::clicked, this, &FindBar::closed);
    setVisible(false);
}

void FindBar::open() {
    setVisible(true);
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

QString FindBar::text() const {
    return m_text->text();
}

void FindBar::showMessage(const QString& message, bool alarming) {
    QPalette colours = palette();
    if (alarming)
        colours.setColor(QPalette::WindowText, alarm);
    m_message->setPalette(colours);
    m_message->setText(message);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        m_pause->stop();
        Q_EMIT nextWanted(!(event->modifiers() & Qt::ShiftModifier));
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace quorvane::report
