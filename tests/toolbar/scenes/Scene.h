#pragma once

#include "ui/toolbar/ToolbarPainter.h"
#include <QColor>
#include <QImage>
#include <array>
#include <map>

namespace toolbar_test {

using namespace dalvora::toolbar;

/// Image lists that are pictures in memory.
class PictureLists final : public ToolbarImages {
public:
    QPixmap image(ImageListKind list, int index) const override {
        const auto found = pictures.find(list);
        if (found == pictures.end() || index < 0 || index >= static_cast<int>(found->second.size()))
            return {};
        return QPixmap::fromImage(found->second[static_cast<std::size_t>(index)]);
    }

    std::map<ImageListKind, std::vector<QImage>> pictures;
};

/// One picture of a toolbar on a window, with everything that a painter elsewhere needs to draw it again. So
/// a picture from one system is compared with the drawing of another.
struct Scene {
    ToolbarDescription bar;
    PictureLists images;
    QImage skin;
    std::array<QColor, 2> emboss; ///< light and dark colour of the system that made the picture
    QImage shown;                 ///< what was on the window
};

/// Writes a scene into a folder of its own, which is created. False when that fails.
bool saveScene(const Scene& scene, const QString& folder);

/// Reads a scene; false when a file is missing or damaged.
bool loadScene(const QString& folder, Scene& scene);

} // namespace toolbar_test
