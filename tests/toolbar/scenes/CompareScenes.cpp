#include "tests/toolbar/scenes/SceneComparison.h"
#include <QApplication>
#include <QDir>
#include <QPalette>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// What the scenes of all folders have shown.
struct Result {
    int scenes = 0;
    int differing = 0;
    int captions = 0;
    int farthest = 0;
};

void drawLike(const toolbar_test::Scene& scene) {
    QPalette palette = QGuiApplication::palette();
    palette.setColor(QPalette::Light, scene.emboss[0]);
    palette.setColor(QPalette::Dark, scene.emboss[1]);
    QGuiApplication::setPalette(palette);
}

QStringList compare(const QString& folder, Result& result) {
    toolbar_test::Scene scene;
    if (!toolbar_test::loadScene(folder, scene))
        return {u"cannot be read"_s};
    drawLike(scene);
    const toolbar_test::SceneComparison comparison(scene);
    result.captions += comparison.captions();
    result.farthest = std::max(result.farthest, comparison.farthest());
    if (!comparison.differences().isEmpty())
        comparison.drawn().save(folder + u"/drawn.png"_s);
    return comparison.differences();
}

} // namespace

// toolbar_compare_scenes LEAST FOLDER...: compares every scene of the folders with what is drawn here; at
// least so many must be there.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    Result result;
    for (const QString& folder : arguments.mid(2))
        for (const QString& name : QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            const QString place = folder + u'/' + name;
            const QStringList differences = compare(place, result);
            ++result.scenes;
            result.differing += differences.isEmpty() ? 0 : 1;
            for (const QString& line : differences)
                std::printf("%s: %s\n", qPrintable(place), qPrintable(line));
        }
    std::printf("%d scenes, %d differ; %d captions, at most %d pixels from their place\n", result.scenes,
                result.differing, result.captions, result.farthest);
    return result.differing == 0 && result.scenes >= arguments.value(1).toInt() ? 0 : 1;
}
