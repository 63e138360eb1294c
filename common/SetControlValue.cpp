#include "common/SetControlValue.h"
#include "common/ShowMessage.h"

namespace dalvora {

using namespace Qt::StringLiterals;

qint16 SetControlValue(ListControl& control, const QString& value, bool report) {
    if (control.Text() == value)
        return 0;
    if (!control.isPureDropDown())
        control.setText(value);
    for (int index = 0; index < control.ListCount(); ++index) {
        if (control.List(index).compare(value, Qt::CaseInsensitive) == 0) {
            control.setListIndex(index);
            return 0;
        }
    }
    control.setListIndex(-1);
    if (report && !value.isEmpty())
        ShowMessage(u"Valor '"_s + value + u"' inválido para seleccionar lista en formulario"_s,
                    MessageInformation);
    return 0;
}

} // namespace dalvora
