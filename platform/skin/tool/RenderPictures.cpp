// Build tool: draws the icons' SVG files as plain pixels of every size and tone the program shows, and writes
// the resource list of them. Done in the build, and without an image format, so that no program has to load
// readers of formats when it starts. A file is size x size premultiplied 32-bit ARGB pixels in the order of
// the processor, row by row.
//
// Usage: dalvora_render_pictures SOURCE_FOLDER OUTPUT_FOLDER
// SOURCE_FOLDER holds icons/ (with hot.colours), report/, arrows/, messages/ and window/.

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

#include <cstdio>

namespace {

using namespace Qt::StringLiterals;

/// Pairs of a colour as the drawings have it and the colour of the other tone.
using ColourTable = QList<std::pair<QByteArray, QByteArray>>;

/// One folder of drawings: where its pictures go, in which sizes, in which colours.
struct Family {
    QString sources;
    QString target;
    QList<int> sizes;
    ColourTable colours;
};

[[noreturn]] void fail(const QString& why) {
    std::fprintf(stderr, "%s\n", qPrintable(why));
    std::exit(1);
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(u"cannot read "_s + path);
    return file.readAll();
}

ColourTable readColours(const QString& path) {
    ColourTable table;
    const QList<QByteArray> lines = contentOf(path).split('\n');
    for (const QByteArray& line : lines) {
        const QList<QByteArray> pair = line.simplified().split(' ');
        if (pair.size() == 2 && pair[0].startsWith('#') && pair[0].size() == 7)
            table.append({pair[0], pair[1]});
    }
    if (table.isEmpty())
        fail(u"no colours in "_s + path);
    return table;
}

QByteArray recoloured(QByteArray svg, const ColourTable& colours) {
    for (const auto& [from, to] : colours)
        svg.replace(from, to);
    return svg;
}

void renderPicture(QSvgRenderer& drawing, int size, const QString& path) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(0, 0, size, size));
    painter.end();
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(reinterpret_cast<const char*>(image.constBits()),
                                                       image.sizeInBytes()) != image.sizeInBytes())
        fail(u"cannot write "_s + path);
}

void renderFamily(const Family& family, const QDir& output, QTextStream& list) {
    output.mkpath(family.target);
    const QStringList drawings = QDir(family.sources).entryList({u"*.svg"_s}, QDir::Files, QDir::Name);
    if (drawings.isEmpty())
        fail(u"no drawings in "_s + family.sources);
    for (const QString& name : drawings) {
        QSvgRenderer drawing(recoloured(contentOf(family.sources + u'/' + name), family.colours));
        if (!drawing.isValid())
            fail(u"not a drawing: "_s + name);
        for (const int size : family.sizes) {
            const QString file = u"%1/%2-%3.argb"_s.arg(family.target, name.chopped(4)).arg(size);
            renderPicture(drawing, size, output.filePath(file));
            list << "    <file>" << file << "</file>\n";
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        fail(u"usage: dalvora_render_pictures SOURCE_FOLDER OUTPUT_FOLDER"_s);
    const QString source = QString::fromLocal8Bit(argv[1]);
    const QDir output(QString::fromLocal8Bit(argv[2]));
    // 16, 24 and 32 pixels at 100, 125, 150, 200 and 300 per cent; message boxes show 32, windows up to 256.
    const QList<int> iconSizes{16, 20, 24, 30, 32, 36, 48, 64, 72, 96};
    const QList<Family> families{
        {source + u"/icons"_s, u"normal"_s, iconSizes, {}},
        {source + u"/icons"_s, u"hot"_s, iconSizes, readColours(source + u"/icons/hot.colours"_s)},
        {source + u"/report"_s, u"report"_s, iconSizes, {}},
        {source + u"/report"_s, u"report-hot"_s, iconSizes, readColours(source + u"/icons/hot.colours"_s)},
        {source + u"/arrows"_s, u"arrow"_s, {16, 20, 24, 32, 48}, {}},
        {source + u"/messages"_s, u"message"_s, {32, 40, 48, 64, 96}, {}},
        {source + u"/window"_s, u"window"_s, {16, 24, 32, 48, 64, 128, 256}, {}},
    };
    QString text;
    QTextStream list(&text);
    list << "<RCC>\n  <qresource prefix=\"/skin\">\n";
    for (const Family& family : families)
        renderFamily(family, output, list);
    list << "  </qresource>\n</RCC>\n";
    list.flush();
    QFile file(output.filePath(u"pictures.qrc"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        fail(u"cannot write the resource list"_s);
    return 0;
}
