// The help window as a reader uses it: real keys and clicks.

#include "platform/help/HelpViewer.h"
#include "platform/help/ChmHelpSystem.h"
#include "platform/help/HelpFile.h"
#include "platform/help/PageView.h"
#include "platform/quorvane32/base/RunTimeError.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>
#include <thread>

namespace {

using namespace help;

const QString Manual = QStringLiteral(DALVORA_HELP_FILE);

class HelpViewerTest : public testing::Test {
protected:
    void open(int command, const QVariant& data = {}) {
        m_help.htmlHelp(Manual, command, data);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_help.viewer()));
        QTest::qWait(1);
    }

    template<class Widget> Widget& part(const char* name) {
        auto* found = m_help.viewer()->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    QString page() { return part<PageView>("page").page(); }

    // One key with its text; keyClicks would stop at letters beyond ASCII.
    void type(QWidget& widget, const QString& text) {
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }

    int errorOf(const QString& file, int command, const QVariant& data = {}) {
        try {
            m_help.htmlHelp(file, command, data);
            return 0;
        } catch (const quorvane::RunTimeError& error) {
            return error.number();
        }
    }

    static QModelIndex line(const QTreeView& tree, const QString& text) {
        const QModelIndexList found = tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, text, 1,
                                                          Qt::MatchExactly | Qt::MatchRecursive);
        return found.value(0);
    }

    void click(QTreeView& tree, const QString& text) {
        const QModelIndex index = line(tree, text);
        ASSERT_TRUE(index.isValid()) << qPrintable(text);
        tree.scrollTo(index);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(index).center());
    }

    ChmHelpSystem m_help;
};

TEST_F(HelpViewerTest, NothingIsMadeBeforeTheFirstCall) {
    EXPECT_EQ(m_help.viewer(), nullptr);
}

TEST_F(HelpViewerTest, ContextOpensItsPageAndSelectsItInTheContents) {
    open(ShowContext, 138);
    EXPECT_TRUE(m_help.viewer()->isVisible());
    EXPECT_EQ(page(), u"ventana.html");
    EXPECT_EQ(m_help.viewer()->windowTitle(), u"Manual de Dalvora");
    EXPECT_EQ(part<QTreeView>("contents").currentIndex().data().toString(), u"La ventana principal");
    EXPECT_TRUE(part<PageView>("page").toPlainText().contains(u"La barra de herramientas"));
    EXPECT_TRUE(part<PageView>("page").hasFocus());
}

TEST_F(HelpViewerTest, OneWindowServesEveryCall) {
    open(ShowContext, 138);
    const HelpViewer* first = m_help.viewer();
    m_help.viewer()->close();
    open(DisplayContents);
    EXPECT_EQ(m_help.viewer(), first);
    EXPECT_TRUE(first->isVisible());
    EXPECT_EQ(page(), u"ventana.html");
}

TEST_F(HelpViewerTest, MinimizedWindowComesBack) {
    open(DisplayContents);
    m_help.viewer()->showMinimized();
    open(ShowContext, 138);
    EXPECT_FALSE(m_help.viewer()->isMinimized());
}

TEST_F(HelpViewerTest, ContentsCommandShowsContentsAndFirstPage) {
    open(DisplayContents);
    EXPECT_EQ(part<QTabWidget>("panels").currentIndex(), 0);
    EXPECT_EQ(page(), u"inicio.html");
    EXPECT_TRUE(part<QTreeView>("contents").hasFocus());
}

TEST_F(HelpViewerTest, ContentsWorkByMouseAndByKeyboard) {
    open(DisplayContents);
    auto& contents = part<QTreeView>("contents");
    click(contents, QStringLiteral("Grabar"));
    EXPECT_EQ(page(), u"grabar.html");
    QTest::keyClick(&contents, Qt::Key_Down);
    EXPECT_EQ(page(), u"otrousuario.html");
}

TEST_F(HelpViewerTest, IndexShrinksAsOneTypesAndEnterOpens) {
    open(DisplayIndex);
    auto& text = part<QLineEdit>("indexText");
    auto& words = part<QTreeView>("indexWords");
    ASSERT_TRUE(text.hasFocus());
    const int all = words.model()->rowCount();
    type(text, QStringLiteral("MODIFICACIÓN"));
    EXPECT_LT(words.model()->rowCount(), all);
    ASSERT_EQ(words.model()->rowCount(), 1);
    EXPECT_EQ(words.model()->index(0, 0).data().toString(), u"Modificación de Fechas");
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(page(), u"fechas.html");
    text.clear();
    EXPECT_EQ(words.model()->rowCount(), all);
    type(text, QStringLiteral("xyzw"));
    EXPECT_EQ(words.model()->rowCount(), 0);
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(page(), u"fechas.html");
}

TEST_F(HelpViewerTest, IndexWordWithSeveralPagesListsThem) {
    open(DisplayIndex, QStringLiteral("tramo"));
    auto& words = part<QTreeView>("indexWords");
    ASSERT_EQ(words.model()->rowCount(), 1);
    const QModelIndex tramo = words.model()->index(0, 0);
    ASSERT_EQ(words.model()->rowCount(tramo), 3);
    EXPECT_TRUE(words.isExpanded(tramo));
    click(words, QStringLiteral("Glosario"));
    EXPECT_EQ(page(), u"glosario.html");
}

TEST_F(HelpViewerTest, ArrowsMoveFromTheFieldIntoTheIndex) {
    open(DisplayIndex);
    type(part<QLineEdit>("indexText"), QStringLiteral("fecha"));
    QTest::keyClick(&part<QLineEdit>("indexText"), Qt::Key_Down);
    auto& words = part<QTreeView>("indexWords");
    EXPECT_TRUE(words.hasFocus());
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_TRUE(page().contains(u".html"));
}

TEST_F(HelpViewerTest, SearchFindsTramoAndMarksIt) {
    open(DisplayContents);
    part<QTabWidget>("panels").setCurrentIndex(2);
    auto& text = part<QLineEdit>("searchText");
    ASSERT_TRUE(text.hasFocus());
    type(text, QStringLiteral("TRÁMO"));
    auto& hits = part<QListWidget>("searchHits");
    ASSERT_GE(hits.count(), 3);
    EXPECT_EQ(part<QLabel>("searchSummary").text(), QStringLiteral("%1 páginas").arg(hits.count()));
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(part<PageView>("page").documentTitle(), hits.item(0)->text());
    const auto marks = part<PageView>("page").extraSelections();
    ASSERT_FALSE(marks.isEmpty());
    EXPECT_EQ(marks.front().cursor.selectedText().toLower(), u"tramo");
}

TEST_F(HelpViewerTest, ChoosingAPanelPutsTheKeyboardIntoItsField) {
    open(ShowContext, 138);
    auto& panels = part<QTabWidget>("panels");
    for (const auto& [tab, field] : {std::pair(1, "indexText"), std::pair(2, "searchText")}) {
        QTest::mouseClick(panels.tabBar(), Qt::LeftButton, {}, panels.tabBar()->tabRect(tab).center());
        EXPECT_TRUE(part<QLineEdit>(field).hasFocus()) << field;
    }
}

TEST_F(HelpViewerTest, SearchWithoutHitsSaysSo) {
    open(DisplayContents);
    part<QTabWidget>("panels").setCurrentIndex(2);
    type(part<QLineEdit>("searchText"), QStringLiteral("xilófono"));
    EXPECT_EQ(part<QListWidget>("searchHits").count(), 0);
    EXPECT_EQ(part<QLabel>("searchSummary").text(), u"Ninguna página contiene esas palabras.");
}

TEST_F(HelpViewerTest, BackAndForwardFollowTheLinks) {
    open(ShowContext, 138);
    auto& back = part<QAction>("back");
    auto& forward = part<QAction>("forward");
    auto& view = part<PageView>("page");
    m_help.viewer()->showPage(QStringLiteral("inicio.html"));
    view.setSource(QUrl(QStringLiteral("glosario.html")));
    ASSERT_EQ(page(), u"glosario.html");
    ASSERT_TRUE(back.isEnabled());
    QTest::keyClick(&view, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(page(), u"inicio.html");
    EXPECT_EQ(part<QTreeView>("contents").currentIndex().data().toString(), u"Bienvenido a Dalvora");
    EXPECT_TRUE(forward.isEnabled());
    QTest::keyClick(&view, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(page(), u"glosario.html");
    EXPECT_FALSE(forward.isEnabled());
    QTest::keyClick(&view, Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(page(), u"inicio.html");
}

TEST_F(HelpViewerTest, AnchorScrollsToItsPlace) {
    open(DisplayContents);
    m_help.viewer()->showPage(QStringLiteral("mensajes.html#grabar"));
    EXPECT_GT(part<PageView>("page").verticalScrollBar()->value(), 200);
}

TEST_F(HelpViewerTest, LinksOutOfTheFileAreRefused) {
    open(DisplayContents);
    auto& view = part<PageView>("page");
    for (const char* address : {"http://ejemplo.invalid/", "file:///etc/passwd", "javascript:alert(1)"}) {
        view.setSource(QUrl(QString::fromLatin1(address)));
        EXPECT_EQ(page(), u"inicio.html") << address;
    }
}

TEST_F(HelpViewerTest, PagesCannotDrawFilesOfTheComputerIn) {
    open(DisplayContents);
    const QTemporaryDir folder;
    QFile secret(folder.filePath(QStringLiteral("secreto.css")));
    ASSERT_TRUE(secret.open(QIODevice::WriteOnly));
    secret.write("secreto");
    secret.close();
    auto& document = *part<PageView>("page").document();
    for (const auto type : {QTextDocument::StyleSheetResource, QTextDocument::ImageResource}) {
        EXPECT_TRUE(document.resource(type, QUrl::fromLocalFile(secret.fileName())).toByteArray().isEmpty());
        EXPECT_TRUE(document.resource(type, QUrl(secret.fileName())).toByteArray().isEmpty());
    }
}

TEST_F(HelpViewerTest, MissingPageIsToldInTheWindow) {
    open(DisplayContents);
    m_help.viewer()->showPage(QStringLiteral("no<hay>.html"));
    EXPECT_TRUE(part<PageView>("page").toPlainText().contains(u"«no<hay>.html»"));
}

TEST_F(HelpViewerTest, FindInPageCountsStepsAndCloses) {
    open(ShowContext, 138);
    auto& view = part<PageView>("page");
    QTest::keyClick(&view, Qt::Key_F, Qt::ControlModifier);
    auto& text = part<QLineEdit>("findText");
    ASSERT_TRUE(text.hasFocus());
    type(text, QStringLiteral("ESQUEMA"));
    const auto count = part<PageView>("page").extraSelections().size();
    ASSERT_GT(count, 1);
    EXPECT_EQ(part<QLabel>("findCount").text(), QStringLiteral("1 de %1").arg(count));
    QTest::keyClick(&text, Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(part<QLabel>("findCount").text(), QStringLiteral("%1 de %1").arg(count));
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(part<QLabel>("findCount").text(), QStringLiteral("1 de %1").arg(count));
    QTest::keyClick(&text, Qt::Key_Escape);
    EXPECT_FALSE(part<QWidget>("findBar").isVisible());
    EXPECT_TRUE(view.extraSelections().isEmpty());
}

TEST_F(HelpViewerTest, ZoomGrowsShrinksAndStopsAtItsLimits) {
    open(ShowContext, 138);
    auto& view = part<PageView>("page");
    const qreal height = view.document()->size().height();
    QTest::keyClick(&view, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(view.zoom(), 110);
    EXPECT_GT(view.document()->size().height(), height);
    for (int step = 0; step < 40; ++step)
        part<QAction>("zoomOut").trigger();
    EXPECT_EQ(view.zoom(), 70);
    QTest::keyClick(&view, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(view.zoom(), 100);
}

TEST_F(HelpViewerTest, HiddenPanelComesBackWhenAskedFor) {
    open(ShowContext, 138);
    part<QAction>("panel").trigger();
    EXPECT_FALSE(part<QTabWidget>("panels").isVisible());
    open(DisplayIndex);
    EXPECT_TRUE(part<QTabWidget>("panels").isVisible());
}

TEST_F(HelpViewerTest, TopicIsAPageOrAWordOfTheIndex) {
    open(DisplayTopic, QStringLiteral("precios.html"));
    EXPECT_EQ(page(), u"precios.html");
    open(DisplayTopic, QStringLiteral("modificacion de fechas"));
    EXPECT_EQ(page(), u"fechas.html");
}

TEST_F(HelpViewerTest, FailedCallLeavesThePageAndTellsTheNumber) {
    EXPECT_EQ(errorOf(QStringLiteral("/no/hay.chm"), ShowContext, 138), 53);
    EXPECT_EQ(m_help.viewer(), nullptr);
    open(ShowContext, 138);
    EXPECT_EQ(errorOf(Manual, ShowContext, 999), 3265);
    EXPECT_EQ(errorOf(Manual, ShowContext, QStringLiteral("x")), 3265);
    EXPECT_EQ(errorOf(Manual, DisplayTopic, QStringLiteral("nada.html")), 3265);
    EXPECT_EQ(errorOf(Manual, 77), 5);
    EXPECT_EQ(page(), u"ventana.html");
}

TEST_F(HelpViewerTest, FileThatDisappearsIsError53AndANewOneIsReadAgain) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("copia.chm"));
    ASSERT_TRUE(QFile::copy(Manual, path));
    EXPECT_EQ(errorOf(path, ShowContext, 138), 0);
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_EQ(errorOf(path, ShowContext, 138), 53);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("ITSF");
    file.close();
    EXPECT_EQ(errorOf(path, ShowContext, 138), 321);
}

TEST_F(HelpViewerTest, OutsideTheWindowThreadTheViewerIsNotUsable) {
    int number = 0;
    std::thread([&] { number = errorOf(Manual, DisplayContents); }).join();
    EXPECT_EQ(number, ErrorViewerNotUsable);
    EXPECT_EQ(m_help.viewer(), nullptr);
}

TEST_F(HelpViewerTest, HelpAskedForFromAModalFormCanBeUsed) {
    QDialog form;
    form.setModal(true);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    open(DisplayContents);
    click(part<QTreeView>("contents"), QStringLiteral("Glosario"));
    EXPECT_EQ(page(), u"glosario.html");
}

TEST_F(HelpViewerTest, OpenHelpDoesNotKeepTheProgramAlive) {
    open(DisplayContents);
    EXPECT_FALSE(m_help.viewer()->testAttribute(Qt::WA_QuitOnClose));
}

} // namespace
