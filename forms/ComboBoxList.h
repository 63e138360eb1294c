#pragma once

#include "common/SetControlValue.h"
#include <QComboBox>

namespace dalvora {

/// A combo box as the list control that SetControlValue works on.
class ComboBoxList final : public ListControl {
public:
    explicit ComboBoxList(QComboBox& combo) : m_combo(combo) {}

    QString Text() const override { return m_combo.currentText(); }
    void setText(const QString& text) override { m_combo.setEditText(text); }
    bool isPureDropDown() const override { return !m_combo.isEditable(); }
    QString List(int index) const override { return m_combo.itemText(index); }
    int ListCount() const override { return m_combo.count(); }
    void setListIndex(int index) override { m_combo.setCurrentIndex(index); }

private:
    QComboBox& m_combo;
};

} // namespace dalvora
