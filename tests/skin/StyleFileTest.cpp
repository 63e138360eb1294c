#include "platform/skin/StyleFile.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "tests/skin/StyleFiles.h"
#include <QDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using skin::Colour;
using skin::Measure;
using skin::Shade;

namespace {

/// Number and text of the error that reading raises; number 0 when it raises none.
std::pair<int, std::string> errorOf(const QString& path, const QString& section = StyleFiles::section()) {
    try {
        skin::readStyleFile(path, section);
        return {0, {}};
    } catch (const quorvane::RunTimeError& error) {
        return {error.number(), error.what()};
    }
}

int lineOf(const QByteArray& start) {
    const QList<QByteArray> lines = StyleFiles::shippedText().split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        if (lines[i].startsWith(start))
            return i + 1;
    }
    return 0;
}

/// A path as messages show it.
std::string shown(const QString& path) {
    return QDir::toNativeSeparators(path).toStdString();
}

void expectDamaged(const QString& path, const std::string& reason) {
    const auto [number, text] = errorOf(path);
    EXPECT_EQ(number, quorvane::ErrorInvalidCall);
    EXPECT_THAT(text, testing::HasSubstr("El archivo de estilo"));
    EXPECT_THAT(text, testing::HasSubstr(shown(path)));
    EXPECT_THAT(text, testing::HasSubstr(reason));
    EXPECT_EQ(text.find('\n'), std::string::npos);
    EXPECT_LT(text.size(), 400U);
}

} // namespace

TEST(StyleFile, ReadsColoursShadesAndMeasuresOfTheNamedSection) {
    const StyleFiles files;
    const QString path =
        files.write(StyleFiles::shippedText().replace("Window = #E3EDF9", "Window = #010203"));
    const skin::SkinValues values = skin::readStyleFile(path, StyleFiles::section());
    EXPECT_EQ(values.colour(Colour::Window), QColor(1, 2, 3));
    EXPECT_EQ(values.measure(Measure::ToolIcon), 24);
    const QGradientStops& stops = values.shade(Shade::Button);
    ASSERT_EQ(stops.size(), 4);
    EXPECT_DOUBLE_EQ(stops[1].first, 0.48);
    EXPECT_EQ(stops[3].second, QColor(0xD3, 0xE3, 0xF5));
}

TEST(StyleFile, SpreadsStopsWithoutPerCentsEvenly) {
    const StyleFiles files;
    const QString path = files.writeWith("CheckedShade", "CheckedShade = #000000, #101010, #202020");
    const QGradientStops stops = skin::readStyleFile(path, StyleFiles::section()).shade(Shade::Checked);
    ASSERT_EQ(stops.size(), 3);
    EXPECT_DOUBLE_EQ(stops[0].first, 0.0);
    EXPECT_DOUBLE_EQ(stops[1].first, 0.5);
    EXPECT_DOUBLE_EQ(stops[2].first, 1.0);
}

TEST(StyleFile, TakesTheSectionAskedForAndIgnoresTheOthers) {
    const StyleFiles files;
    const QByteArray other = StyleFiles::shippedText()
                                 .mid(StyleFiles::shippedText().indexOf("[LightBlue.ini]"))
                                 .replace("[LightBlue.ini]", "[Silver.ini]")
                                 .replace("Window = #E3EDF9", "Window = #C0C0C0");
    const QString path = files.write(StyleFiles::shippedText() + other + "\n[Odd]\nWhatever = 1\n");
    EXPECT_EQ(skin::readStyleFile(path, u"Silver.ini"_s).colour(Colour::Window), QColor(0xC0, 0xC0, 0xC0));
    EXPECT_EQ(skin::readStyleFile(path, u"LIGHTBLUE.INI"_s).colour(Colour::Window), QColor(0xE3, 0xED, 0xF9));
}

TEST(StyleFile, ReadsLinesOfAnySystem) {
    const StyleFiles files;
    const QString path = files.write("\xEF\xBB\xBF" + StyleFiles::shippedText().replace("\n", "\r\n"));
    EXPECT_EQ(errorOf(path).first, 0);
}

TEST(StyleFile, MissingFileIsError53WithItsPath) {
    const StyleFiles files;
    const QString path = files.folder() + u"/none.cjstyles"_s;
    const auto [number, text] = errorOf(path);
    EXPECT_EQ(number, quorvane::ErrorFileNotFound);
    EXPECT_EQ(text, "No se encontró el archivo de estilo \"" + shown(path) + '"');
}

TEST(StyleFile, AFolderIsNoFile) {
    const StyleFiles files;
    EXPECT_EQ(errorOf(files.folder()).first, quorvane::ErrorFileNotFound);
}

TEST(StyleFile, AFileThatMayNotBeReadIsError75) {
    const StyleFiles files;
    const QString path = files.write(StyleFiles::shippedText());
    QFile::setPermissions(path, {});
    if (QFile(path).open(QIODevice::ReadOnly))
        GTEST_SKIP() << "this user may read everything";
    const auto [number, text] = errorOf(path);
    EXPECT_EQ(number, quorvane::ErrorPathAccess);
    EXPECT_THAT(text, testing::HasSubstr("No se puede leer el archivo de estilo"));
}

TEST(StyleFile, BinaryRubbishIsDamaged) {
    const StyleFiles files;
    expectDamaged(files.write(QByteArray("PK\x03\x04\x00\x00rubbish", 13)), "no es un archivo de texto");
    expectDamaged(files.write("[Style]\nFormat = 1\n\xFF\xFE\xFA"), "no es un archivo de texto");
}

TEST(StyleFile, AHugeFileIsRefusedWithoutReadingIt) {
    const StyleFiles files;
    expectDamaged(files.write(QByteArray(qsizetype(10) * 1024 * 1024, 'x')), "es demasiado grande");
}

TEST(StyleFile, AnEmptyFileHasNoFormat) {
    const StyleFiles files;
    expectDamaged(files.write({}), "falta la clave \"Format\" en la sección \"Style\"");
}

TEST(StyleFile, ANewerFormatIsRefused) {
    const StyleFiles files;
    expectDamaged(files.writeWith("Format", "Format = 2"),
                  "la clave \"Format\" debe ser un número entre 1 y 1");
}

TEST(StyleFile, AMissingSectionIsNamed) {
    const auto [number, text] = errorOf(StyleFiles::shipped(), u"Negro.ini"_s);
    EXPECT_EQ(number, quorvane::ErrorInvalidCall);
    EXPECT_THAT(text, testing::HasSubstr("no tiene la sección \"Negro.ini\""));
}

TEST(StyleFile, AnUnknownKeyIsNamedWithItsLine) {
    const StyleFiles files;
    const std::string line = "línea " + std::to_string(lineOf("Pane ="));
    expectDamaged(files.writeWith("Pane =", "Pane = #FFFFFF\nPanel = #FFFFFF"),
                  "línea " + std::to_string(lineOf("Pane =") + 1) + ": clave desconocida \"Panel\"");
    expectDamaged(files.writeWith("Pane =", "Pane = blue"), line + ": la clave \"Pane\" debe ser un color");
    expectDamaged(files.writeWith("Pane =", "Window = #FFFFFF"), line + ": clave repetida \"Window\"");
    expectDamaged(files.writeWith("Pane =", "what is this"), line + ": se esperaba clave = valor");
    expectDamaged(files.writeWith("Pane =", "[Broken"), line + ": sección mal escrita \"[Broken\"");
    expectDamaged(files.writeWith("Pane =", ""), "falta la clave \"Pane\" en la sección \"LightBlue.ini\"");
    expectDamaged(files.write("Window = #FFFFFF\n"), "línea 1: hay un valor antes de la primera sección");
}

TEST(StyleFile, RefusesWrongColours) {
    const StyleFiles files;
    for (const char* wrong : {"#12345", "#1234567", "#12345G", "#+12345", "123456", "", "#-12345", "# 12345"})
        expectDamaged(files.writeWith("Pane =", QByteArray("Pane = ") + wrong), "debe ser un color #rrggbb");
}

TEST(StyleFile, RefusesWrongShades) {
    const StyleFiles files;
    for (const char* wrong :
         {"#FFFFFF", "#FFFFFF 0%, #FFFFFF 101%", "#FFFFFF 50%, #FFFFFF 10%", "#FFFFFF 0, #FFFFFF",
          "#FFFFFF,,#FFFFFF", "#FFFFFF 0%; #FFFFFF 100%", "#FFFFFF x%, #FFFFFF 100%",
          "#FFFFFF,#FFFFFF,#FFFFFF,#FFFFFF,#FFFFFF,#FFFFFF,#FFFFFF,#FFFFFF,#FFFFFF"})
        expectDamaged(files.writeWith("TabShade", QByteArray("TabShade = ") + wrong),
                      "debe ser un degradado");
}

TEST(StyleFile, RefusesMeasuresOutOfRange) {
    const StyleFiles files;
    for (const char* wrong : {"0", "-5", "5000", "1e3", "24px", "", "99999999999999999999"})
        expectDamaged(files.writeWith("ToolIcon", QByteArray("ToolIcon = ") + wrong),
                      "la clave \"ToolIcon\" debe ser un número entre 16 y 48");
}

TEST(StyleFile, LongTextIsShortenedInMessages) {
    const StyleFiles files;
    expectDamaged(files.writeWith("Pane =", "Pane = " + QByteArray(10000, 'z')),
                  "\"" + std::string(40, 'z') + "...\"");
}

// Whatever is cut off or overwritten, reading either works or raises error 5; it never crashes.
TEST(StyleFile, SurvivesRandomDamage) {
    const StyleFiles files;
    const QByteArray good = StyleFiles::shippedText();
    unsigned seed = 20060131;
    const auto next = [&seed](qsizetype limit) {
        seed = seed * 1664525U + 1013904223U;
        return static_cast<qsizetype>((seed >> 8) % static_cast<unsigned>(limit));
    };
    int refused = 0;
    for (int round = 0; round < 400; ++round) {
        QByteArray text = good;
        for (int change = 0; change < 4; ++change)
            text[next(text.size())] = static_cast<char>(next(256));
        if (round % 3 == 0)
            text.truncate(next(text.size()));
        const int number = errorOf(files.write(text)).first;
        EXPECT_TRUE(number == 0 || number == quorvane::ErrorInvalidCall) << number;
        refused += number != 0;
    }
    EXPECT_GT(refused, 200);
}
