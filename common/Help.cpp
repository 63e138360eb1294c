#include "common/Help.h"
#include "common/ShowMessage.h"
#include "platform/help/HelpSystem.h"
#include <cmath>
#include <limits>
#include <optional>

namespace dalvora {

using namespace Qt::StringLiterals;

namespace {

/// The whole number that a topic reads as, nothing for a text. Error 6 beyond 32 bits.
std::optional<int> numericTopic(const QString& topic) {
    bool numeric = false;
    const double value = std::nearbyint(topic.toDouble(&numeric));
    if (!numeric || !std::isfinite(value))
        return std::nullopt;
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
        quorvane::raise(quorvane::ErrorOverflow);
    return static_cast<int>(value);
}

void open(help::HelpSystem& system, const QString& helpFile, const QString& topic) {
    if (topic.isEmpty() || topic == u"0") {
        system.htmlHelp(helpFile, help::DisplayContents);
        return;
    }
    const std::optional<int> number = numericTopic(topic);
    if (!number)
        system.htmlHelp(helpFile, help::DisplayTopic, topic);
    else if (*number == -1)
        system.htmlHelp(helpFile, help::DisplayIndex);
    else
        system.htmlHelp(helpFile, help::ShowContext, *number);
}

} // namespace

void Help(help::HelpSystem& system, const QString& helpFile, const QString& topic) {
    try {
        open(system, helpFile, topic);
    } catch (const quorvane::RunTimeError& error) {
        const bool noViewer = error.number() == help::ErrorViewerNotUsable;
        ShowMessage(noViewer ? u"No se encuentran componentes de visualización de archivos de ayuda.\n"
                               "Debe instalar Microsoft HTMLHelp."_s
                             : error.description(),
                    MessageError, u"Ayuda"_s);
    }
}

} // namespace dalvora
