#pragma once

#include <QString>

namespace dalvora {

/// A list control (a combo box) as SetControlValue sees it, so that no widget is needed here.
class ListControl {
public:
    virtual ~ListControl() = default;
    virtual QString Text() const = 0;
    virtual void setText(const QString& text) = 0;
    /// True for a list without an edit, whose text can only be one of its entries.
    virtual bool isPureDropDown() const = 0;
    virtual QString List(int index) const = 0;
    virtual int ListCount() const = 0;
    /// Selects an entry; -1 selects none.
    virtual void setListIndex(int index) = 0;
};

/// Puts a value into a list control and selects the entry that equals it without regard to case. When there
/// is none the selection is taken away and, if a report is wanted and the value is not empty, the user is
/// told. The result is always 0.
qint16 SetControlValue(ListControl& control, const QString& value, bool report);

} // namespace dalvora
