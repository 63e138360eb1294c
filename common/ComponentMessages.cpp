#include "common/ComponentMessages.h"
#include "common/ShowMessage.h"

namespace dalvora {

using namespace Qt::StringLiterals;

void showComponentError(const QString& text, const quorvane::RunTimeError& error) {
    ShowMessage(text + u"\nposiblemente debe reinstalar los componentes cliente de Quorvane ERP\n\n"_s +
                    numberedText(error),
                MessageError, componentTitle.toString());
}

} // namespace dalvora
