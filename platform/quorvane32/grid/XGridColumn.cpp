#include "platform/quorvane32/grid/XGridColumn.h"
#include "platform/quorvane32/base/RunTimeError.h"

namespace quorvane {

template<class T> void XGridColumn::assign(T& field, const T& value) {
    if (field == value)
        return;
    field = value;
    m_changed();
}

void XGridColumn::setCaption(const QString& caption) {
    assign(m_caption, caption);
}

void XGridColumn::setWidth(int twips) {
    assign(m_width, qMax(0, twips));
}

void XGridColumn::setAlignment(int alignment) {
    assign(m_alignment, alignment);
}

void XGridColumn::setReadOnly(bool readOnly) {
    assign(m_readOnly, readOnly);
}

void XGridColumn::setKind(int kind) {
    assign(m_kind, kind);
}

void XGridColumn::setButtonText(const QString& text) {
    assign(m_buttonText, text);
}

void XGridColumn::setListSize(int size) {
    if (size < 0)
        raise(ErrorSubscript);
    m_list.resize(size);
}

const QString& XGridColumn::listItem(int index) const {
    if (index < 0 || index >= m_list.size())
        raise(ErrorSubscript);
    return m_list[index];
}

void XGridColumn::setListItem(int index, const QString& text) {
    if (index < 0 || index >= m_list.size())
        raise(ErrorSubscript);
    m_list[index] = text;
}

Qt::Alignment XGridColumn::textAlignment() const {
    return (m_alignment == RightCentre ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

} // namespace quorvane
