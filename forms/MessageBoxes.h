#pragma once

#include "common/ShowMessage.h"

namespace dalvora {

/// Shows messages as modal boxes over the active window.
class MessageBoxes final : public MessagePresenter {
public:
    qint16 show(const QString& text, int style, const QString& title) override;
};

} // namespace dalvora
