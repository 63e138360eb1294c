#include "ui/toolbar/tool/SkinDrawing.h"
#include <cstdio>

// Writes the toolbar skin: dalvora_draw_toolbar_skin Styles/LightBlueToolbar.bmp
int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: dalvora_draw_toolbar_skin FILE\n");
        return 2;
    }
    if (!dalvora::toolbar::drawToolbarSkin().save(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "%s: cannot be written\n", argv[1]);
        return 1;
    }
    return 0;
}
