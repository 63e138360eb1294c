#include "tests/toolbar/scenes/Scene.h"
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array lists{ImageListKind::Normal, ImageListKind::Hot, ImageListKind::Disabled};

QJsonArray numbers(std::initializer_list<int> values) {
    QJsonArray array;
    for (const int value : values)
        array.append(value);
    return array;
}

QString pictureFile(ImageListKind list, std::size_t index) {
    return u"list%1-%2.png"_s.arg(static_cast<int>(list)).arg(index);
}

QJsonObject toJson(const ToolbarButton& button) {
    return {
        {u"style"_s, button.style},
        {u"state"_s, button.state},
        {u"rect"_s, numbers({button.rect.x(), button.rect.y(), button.rect.width(), button.rect.height()})},
        {u"image"_s, button.image},
        {u"caption"_s, button.caption}};
}

ToolbarButton buttonFrom(const QJsonObject& json) {
    const QJsonArray rect = json[u"rect"_s].toArray();
    ToolbarButton button;
    button.style = static_cast<quint8>(json[u"style"_s].toInt());
    button.state = static_cast<quint8>(json[u"state"_s].toInt());
    button.rect = {rect[0].toInt(), rect[1].toInt(), rect[2].toInt(), rect[3].toInt()};
    button.image = json[u"image"_s].toInt();
    button.caption = json[u"caption"_s].toString();
    return button;
}

QJsonObject toJson(const ToolbarDescription& bar) {
    QJsonArray buttons;
    for (const ToolbarButton& button : bar.buttons)
        buttons.append(toJson(button));
    return {{u"size"_s, numbers({bar.size.width(), bar.size.height()})},
            {u"iconSize"_s, numbers({bar.iconSize.width(), bar.iconSize.height()})},
            {u"font"_s, bar.font.family()},
            {u"fontPixels"_s, bar.font.pixelSize()},
            {u"textOnRight"_s, bar.textOnRight},
            {u"cursor"_s, numbers({bar.cursor.x(), bar.cursor.y()})},
            {u"menuOpen"_s, bar.menuOpen},
            {u"buttons"_s, buttons}};
}

QPoint pointFrom(const QJsonValue& json) {
    return {json.toArray()[0].toInt(), json.toArray()[1].toInt()};
}

ToolbarDescription barFrom(const QJsonObject& json) {
    const QPoint size = pointFrom(json[u"size"_s]);
    const QPoint icon = pointFrom(json[u"iconSize"_s]);
    ToolbarDescription bar;
    bar.size = {size.x(), size.y()};
    bar.iconSize = {icon.x(), icon.y()};
    bar.font = QFont(json[u"font"_s].toString());
    bar.font.setPixelSize(json[u"fontPixels"_s].toInt());
    bar.textOnRight = json[u"textOnRight"_s].toBool();
    bar.cursor = pointFrom(json[u"cursor"_s]);
    bar.menuOpen = json[u"menuOpen"_s].toBool();
    const QJsonArray buttons = json[u"buttons"_s].toArray();
    for (const auto& button : buttons)
        bar.buttons.push_back(buttonFrom(button.toObject()));
    return bar;
}

} // namespace

bool saveScene(const Scene& scene, const QString& folder) {
    const QDir place(folder);
    bool done = place.mkpath(u"."_s);
    for (const auto& [list, pictures] : scene.images.pictures)
        for (std::size_t i = 0; i < pictures.size(); ++i)
            done = pictures[i].save(place.filePath(pictureFile(list, i))) && done;
    done = scene.skin.save(place.filePath(u"skin.png"_s)) && done;
    done = scene.shown.save(place.filePath(u"shown.png"_s)) && done;
    QJsonObject json = toJson(scene.bar);
    json[u"embossLight"_s] = scene.emboss[0].name();
    json[u"embossDark"_s] = scene.emboss[1].name();
    QFile file(place.filePath(u"scene.json"_s));
    return done && file.open(QFile::WriteOnly) && file.write(QJsonDocument(json).toJson()) > 0;
}

bool loadScene(const QString& folder, Scene& scene) {
    const QDir place(folder);
    QFile file(place.filePath(u"scene.json"_s));
    if (!file.open(QFile::ReadOnly))
        return false;
    const QJsonObject json = QJsonDocument::fromJson(file.readAll()).object();
    scene.bar = barFrom(json);
    scene.emboss = {QColor(json[u"embossLight"_s].toString()), QColor(json[u"embossDark"_s].toString())};
    scene.skin = QImage(place.filePath(u"skin.png"_s));
    scene.shown = QImage(place.filePath(u"shown.png"_s)).convertToFormat(QImage::Format_RGB32);
    for (const ImageListKind list : lists)
        for (std::size_t i = 0; place.exists(pictureFile(list, i)); ++i)
            scene.images.pictures[list].push_back(QImage(place.filePath(pictureFile(list, i))));
    return !scene.bar.buttons.empty() && !scene.skin.isNull() && scene.shown.size() == scene.bar.size;
}

} // namespace toolbar_test
