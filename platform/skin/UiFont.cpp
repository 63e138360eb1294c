#include "platform/skin/UiFont.h"

#include <QFontDatabase>

#include <algorithm>
#include <array>

namespace skin {

namespace {

using namespace Qt::StringLiterals;

/// In order of preference. The condensed DejaVu has the widths and the tall small letters of Tahoma.
constexpr std::array families{"Tahoma"_L1, "DejaVu Sans Condensed"_L1, "Liberation Sans"_L1,
                              "DejaVu Sans"_L1};

constexpr int sizeInPixels = 12;

} // namespace

QFont uiFont() {
    const auto found = std::find_if(families.begin(), families.end(), [](QLatin1StringView family) {
        return QFontDatabase::hasFamily(family);
    });
    QFont font;
    if (found != families.end())
        font.setFamily(*found);
    font.setPixelSize(sizeInPixels);
    return font;
}

} // namespace skin
