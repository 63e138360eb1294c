#include "platform/help/FindBar.h"

#include "platform/help/HelpText.h"
#include "platform/help/LineIcons.h"
#include "platform/help/PageView.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace help {

namespace {

QToolButton* addButton(QWidget* parent, Glyph glyph, const QString& tip) {
    auto* button = new QToolButton(parent);
    button->setIcon(lineIcon(glyph));
    button->setAutoRaise(true);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    return button;
}

} // namespace

FindBar::FindBar(PageView* page, QWidget* parent)
    : QWidget(parent), m_page(page), m_text(new QLineEdit(this)), m_count(new QLabel(this)) {
    setObjectName(QStringLiteral("findBar"));
    m_text->setObjectName(QStringLiteral("findText"));
    m_count->setObjectName(QStringLiteral("findCount"));
    m_text->setClearButtonEnabled(true);
    m_text->setMaximumWidth(320);
    auto* label = new QLabel(tr("Buscar en la página:"), this);
    label->setBuddy(m_text);
    auto* previous = addButton(this, Glyph::Previous, tr("Coincidencia anterior"));
    auto* next = addButton(this, Glyph::Next, tr("Coincidencia siguiente"));
    auto* hide = addButton(this, Glyph::Close, tr("Cerrar la búsqueda"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(10, 4, 6, 4);
    row->addWidget(label);
    row->addWidget(m_text, 1);
    row->addWidget(previous);
    row->addWidget(next);
    row->addWidget(m_count);
    row->addStretch(1);
    row->addWidget(hide);
    connect(m_text, &QLineEdit::textChanged, this, &FindBar::search);
    connect(m_text, &QLineEdit::returnPressed, this, [this] { findNext(true); });
    connect(previous, &QToolButton::clicked, this, [this] { findNext(false); });
    connect(next, &QToolButton::clicked, this, [this] { findNext(true); });
    connect(hide, &QToolButton::clicked, this, &FindBar::close);
    // A new page has nothing marked: the words are looked for again.
    connect(page, &QTextBrowser::sourceChanged, this, [this] {
        if (isVisible())
            search();
    });
    setVisible(false);
}

void FindBar::open() {
    setVisible(true);
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
    search();
}

void FindBar::search() {
    const QString sought = foldForSearch(m_text->text());
    m_found = m_page->mark(sought.isEmpty() ? QStringList() : QStringList(sought));
    m_count->setText(sought.isEmpty() ? QString()
                     : m_found == 0   ? tr("No está en esta página")
                                      : tr("1 de %1").arg(m_found));
}

void FindBar::findNext(bool forward) {
    if (!isVisible() || m_text->text().isEmpty()) {
        open();
        return;
    }
    if (const int number = m_page->goToMark(forward); number > 0)
        m_count->setText(tr("%1 de %2").arg(number).arg(m_found));
}

void FindBar::close() {
    setVisible(false);
    m_page->mark({});
    m_page->setFocus();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace help
