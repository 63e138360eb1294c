#include "platform/skin/UiFont.h"

#include <QFontDatabase>
#include <QStringList>

#include <algorithm>
#include <array>

namespace skin {

namespace {

using namespace Qt::StringLiterals;

/// In order of preference. The condensed DejaVu has the widths and the tall small letters of Tahoma.
constexpr std::array families{"Tahoma"_L1, "DejaVu Sans Condensed"_L1, "Liberation Sans"_L1,
                              "DejaVu Sans"_L1};

constexpr int sizeInPixels = 12;

QFont chosenFont() {
    // The list of families and not hasFamily: that one also asks for aliases, which costs a third of a
    // millisecond a name at every start.
    const QStringList installed = QFontDatabase::families();
    const auto found = std::find_if(families.begin(), families.end(), [&installed](QLatin1StringView family) {
        return installed.contains(family, Qt::CaseInsensitive);
    });
    QFont font;
    if (found != families.end())
        font.setFamily(*found);
    font.setPixelSize(sizeInPixels);
    return font;
}

} // namespace

QFont uiFont() {
    // Installed fonts do not change while a program runs, and looking through them costs a start dearly.
    static const QFont font = chosenFont();
    return font;
}

} // namespace skin
