#include "platform/help/HelpFile.h"
#include "platform/help/PageSearch.h"
#include "platform/quorvane32/base/RunTimeError.h"

#include <QFile>
#include <QTemporaryDir>
#include <chm_lib.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using help::HelpFile;
using help::PageSearch;

const QString ManualPath = QStringLiteral(DALVORA_HELP_FILE);

int errorOfOpening(const QString& path) {
    try {
        const HelpFile file(path);
        return 0;
    } catch (const quorvane::RunTimeError& error) {
        EXPECT_TRUE(error.description().contains(path)) << error.what();
        return error.number();
    }
}

TEST(HelpFile, MissingFileIsError53) {
    EXPECT_EQ(errorOfOpening(QStringLiteral("/no/hay/dalvora.chm")), 53);
}

TEST(HelpFile, FolderInItsPlaceIsPermissionDenied) {
    const QTemporaryDir folder;
    EXPECT_EQ(errorOfOpening(folder.path()), 70);
}

TEST(HelpFile, FileThatIsNoHelpFileIsError321) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("ayuda.chm"));
    for (const QByteArray& content :
         {QByteArray(), QByteArray("ITSF"), QByteArray("hola\n"), QByteArray(70000, 'x')}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        EXPECT_EQ(errorOfOpening(path), 321) << content.size();
    }
}

TEST(HelpFile, HugeFileIsRefusedWithoutReadingIt) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("grande.chm"));
    ASSERT_TRUE(QFile::copy(ManualPath, path));
    ASSERT_EQ(::truncate(QFile::encodeName(path).constData(), 8LL << 30), 0);
    EXPECT_EQ(errorOfOpening(path), 321);
}

TEST(HelpFile, PathWithAccentsOpens) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Comisión ñandú.chm"));
    ASSERT_TRUE(QFile::copy(ManualPath, path));
    EXPECT_EQ(errorOfOpening(path), 0);
}

TEST(HelpFile, NamesAreFoundInAnyCaseAndAnchorsAreCutOff) {
    const HelpFile file(ManualPath);
    EXPECT_TRUE(file.hasPage(QStringLiteral("VENTANA.HTML#menu")));
    EXPECT_EQ(file.html(QStringLiteral("/Ventana.html#x")), file.html(QStringLiteral("ventana.html")));
    EXPECT_FALSE(file.hasPage(QStringLiteral("../ventana.html")));
    EXPECT_FALSE(file.hasPage(QString()));
    EXPECT_FALSE(file.html(QStringLiteral("#SYSTEM")).has_value());
}

// Reads everything through libchm too: two readers that know nothing of each other must agree on every byte.
int compareEntry(chmFile* archive, chmUnitInfo* unit, void* context) {
    const QString name = QString::fromUtf8(unit->path);
    if (name.endsWith(u'/'))
        return CHM_ENUMERATOR_CONTINUE;
    QByteArray expected(static_cast<qsizetype>(unit->length), '\0');
    chm_retrieve_object(archive, unit, reinterpret_cast<unsigned char*>(expected.data()), 0,
                        static_cast<LONGINT64>(unit->length));
    auto& [ours, count] = *static_cast<std::pair<help::ChmArchive, int>*>(context);
    EXPECT_EQ(ours.read(name).value_or(QByteArray("?")), expected) << qPrintable(name);
    ++count;
    return CHM_ENUMERATOR_CONTINUE;
}

TEST(ChmArchive, ReadsEveryFileAsLibchmDoes) {
    std::pair<help::ChmArchive, int> context(help::ChmArchive(ManualPath), 0);
    chmFile* archive = chm_open(QFile::encodeName(ManualPath).constData());
    ASSERT_NE(archive, nullptr);
    chm_enumerate(archive, CHM_ENUMERATE_ALL, compareEntry, &context);
    chm_close(archive);
    EXPECT_GT(context.second, 25);
}

TEST(PageSearch, FindsWordsWithoutCaseAndAccents) {
    const HelpFile file(ManualPath);
    const PageSearch search(file);
    const auto plain = search.find(QStringLiteral("codigo"));
    ASSERT_FALSE(plain.empty());
    const auto accented = search.find(QStringLiteral("CÓDIGO"));
    ASSERT_EQ(plain.size(), accented.size());
    for (std::size_t at = 0; at < plain.size(); ++at)
        EXPECT_EQ(plain[at].page, accented[at].page);
}

TEST(PageSearch, AllWordsMustStandInThePage) {
    const HelpFile file(ManualPath);
    const PageSearch search(file);
    const auto both = search.find(QStringLiteral("tramo  cantidad"));
    EXPECT_FALSE(both.empty());
    EXPECT_LT(both.size(), search.find(QStringLiteral("cantidad")).size() + 1);
    EXPECT_TRUE(search.find(QStringLiteral("tramo xilófono")).empty());
    EXPECT_TRUE(search.find(QStringLiteral("  \" ")).empty());
}

TEST(PageSearch, WordsInTheTitleComeFirst) {
    const HelpFile file(ManualPath);
    const auto hits = PageSearch(file).find(QStringLiteral("eliminar"));
    ASSERT_FALSE(hits.empty());
    EXPECT_EQ(hits.front().page, u"eliminar.html");
    EXPECT_TRUE(hits.front().excerpt.contains(u"liminar"));
}

TEST(PageSearch, QuotedWordsAreOnePhrase) {
    const HelpFile file(ManualPath);
    const PageSearch search(file);
    EXPECT_EQ(PageSearch::words(QStringLiteral("\"Otro  Usuario\" graba")),
              (QStringList{QStringLiteral("otro usuario"), QStringLiteral("graba")}));
    EXPECT_FALSE(search.find(QStringLiteral("\"otro usuario\"")).empty());
    EXPECT_TRUE(search.find(QStringLiteral("\"usuario otro\"")).empty());
}

} // namespace
