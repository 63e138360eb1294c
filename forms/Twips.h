#pragma once

namespace dalvora {

/// Form sizes are given in twips, 1/15 pixel at 96 dpi; the toolkit's pixels follow the screen's dpi.
constexpr int twipsToPixels(int twips) {
    return twips / 15;
}

/// Pixels of a screen back in twips, as a grid's columns count them.
constexpr int pixelsToTwips(int pixels, int dpi) {
    return pixels * 15 * 96 / dpi;
}

} // namespace dalvora
