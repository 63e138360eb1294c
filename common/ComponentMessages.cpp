#include "common/ComponentMessages.h"
#include "common/ShowMessage.h"

namespace dalvora {

using namespace Qt::StringLiterals;

QString numberedText(const quorvane::RunTimeError& error) {
    return QString::number(error.number()) + u" - "_s + error.description();
}

void showComponentError(const QString& text, const quorvane::RunTimeError& error) {
    ShowMessage(text + u"\nposiblemente debe reinstalar los componentes cliente de Quorvane ERP\n\n"_s +
                    numberedText(error),
                MessageError, componentTitle.toString());
}

} // namespace dalvora
