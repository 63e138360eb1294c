#pragma once

#include "tests/toolbar/FailureRecorder.h"
#include "tests/windows/toolbar/NativeBar.h"
#include "ui/toolbar/cSubclassToolBar.h"
#include <gtest/gtest.h>

namespace toolbar_test {

/// Folder where this program leaves its scenes and the pictures of failed comparisons.
QString scenesFolder();

/// The shipped skin with colours of captions that nobody confuses.
QImage testSkin();

/// The skin as it is shipped.
QImage shippedSkin();

/// Skins for real toolbars, failures recorded instead of shown.
class NativeToolbarFixture : public testing::Test {
protected:
    NativeToolbarFixture();

    /// Takes a toolbar's painting over and waits for the first picture.
    bool take(const NativeBar& bar, bool forceTextRight = false);

    /// Compares what the window shows with what the painter draws from a description that was made without
    /// the code under test. With a name the scene is kept for the comparison with another system.
    void expectPainted(const NativeBar& bar, const QString& sceneName = {});

    bool textOnRight = false;    ///< what expectPainted expects; set by take
    QImage picture = testSkin(); ///< the skin that is taken and expected
    int steps =
        0; ///< of 255 by which a colour may be off: half transparent pixels are rounded by each in its way
    std::unique_ptr<NativeWindows> system;
    FailureRecorder recorder;
    cSubclassToolBar skin{recorder};
};

} // namespace toolbar_test
