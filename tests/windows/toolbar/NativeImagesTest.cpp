#include "platform/skin/ImageList.h"
#include "tests/windows/toolbar/NativeToolbarFixture.h"

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

/// The images of the program on toolbars, as users see them.
class NativeToolbarOfTheProgram : public NativeToolbarFixture {
protected:
    NativeToolbarOfTheProgram() {
        picture = shippedSkin();
        steps = 1;
    }

    static BarOptions options(QSize button) {
        BarOptions options;
        options.size = {640, button.height() + 4};
        options.buttonSize = button;
        for (const QString& key :
             {u"limpiar"_s, u"leer"_s, u"eliminar"_s, u"grid"_s, u"texto"_s, u"imprimir"_s}) {
            const auto drawn = [&](skin::ImageTone tone, QIcon::Mode mode) {
                return skin::ImageList(tone)
                    .icon(key)
                    .pixmap(QSize(24, 24), 1, mode)
                    .toImage()
                    .convertToFormat(QImage::Format_ARGB32);
            };
            options.pictures[ImageListKind::Normal].push_back(drawn(skin::ImageTone::Normal, QIcon::Normal));
            options.pictures[ImageListKind::Hot].push_back(drawn(skin::ImageTone::Hot, QIcon::Normal));
            options.pictures[ImageListKind::Disabled].push_back(
                drawn(skin::ImageTone::Normal, QIcon::Disabled));
        }
        return options;
    }

    static void addButtons(NativeBar& bar) {
        bar.add(BTNS_BUTTON, TBSTATE_ENABLED, 0, u"Limpiar"_s);
        bar.add(BTNS_BUTTON, TBSTATE_ENABLED, 1, u"Leer"_s);
        bar.add(BTNS_BUTTON, 0, 2, u"Eliminar"_s);
        bar.add(BTNS_SEP, TBSTATE_ENABLED, 0);
        bar.add(BTNS_CHECK, TBSTATE_ENABLED | TBSTATE_CHECKED, 3, u"Filtro"_s);
        bar.add(BTNS_CHECKGROUP, TBSTATE_ENABLED, 4, u"Año"_s);
        bar.add(BTNS_SEP, TBSTATE_ENABLED, 0);
        bar.add(BTNS_DROPDOWN, TBSTATE_ENABLED, 5, u"Imprimir"_s);
    }
};

} // namespace

TEST_F(NativeToolbarOfTheProgram, ShowsCaptionsBelowTheImages) {
    NativeBar bar(options({72, 46}));
    addButtons(bar);
    ASSERT_TRUE(take(bar));
    bar.pointAtButton(1);
    expectPainted(bar, u"program-below"_s);
}

TEST_F(NativeToolbarOfTheProgram, ShowsCaptionsBesideTheImages) {
    NativeBar bar(options({94, 34}));
    addButtons(bar);
    ASSERT_TRUE(take(bar, true));
    bar.pointAtButton(7);
    expectPainted(bar, u"program-right"_s);
}

} // namespace toolbar_test
