#include "platform/skin/SkinFramework.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/skin/SkinStyle.h"
#include "platform/skin/UiFont.h"
#include "tests/skin/PlainLook.h"
#include "tests/skin/StyleFiles.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class SkinFrameworkTest : public testing::Test {
protected:
    static void load(skin::SkinFramework& framework) {
        framework.loadSkin(StyleFiles::shipped(), StyleFiles::section());
    }

private:
    PlainLook m_plain;
};

bool isSkinned(const QWidget& widget) {
    return qobject_cast<skin::SkinStyle*>(widget.style()) != nullptr;
}

} // namespace

TEST_F(SkinFrameworkTest, LoadingAloneChangesNoWindow) {
    skin::SkinFramework framework;
    const QPushButton button;
    load(framework);
    EXPECT_TRUE(framework.isLoaded());
    EXPECT_FALSE(isSkinned(button));
}

TEST_F(SkinFrameworkTest, ApplyWindowSkinsTheWindowAndWhatIsInIt) {
    skin::SkinFramework framework;
    load(framework);
    QWidget window;
    const QWidget other;
    auto* field = new QLineEdit(new QWidget(&window));
    framework.applyWindow(window);
    EXPECT_TRUE(isSkinned(window));
    EXPECT_TRUE(isSkinned(*field));
    EXPECT_EQ(window.palette().color(QPalette::Window), QColor(0xE3, 0xED, 0xF9));
    EXPECT_EQ(field->font().pixelSize(), 12);
    EXPECT_FALSE(isSkinned(other));
}

TEST_F(SkinFrameworkTest, Option4SkinsTheWindowsCreatedFromNowOn) {
    skin::SkinFramework framework;
    load(framework);
    framework.setApplyOptions(4);
    EXPECT_EQ(framework.applyOptions(), 4);
    const QWidget later;
    EXPECT_TRUE(isSkinned(later));
    EXPECT_EQ(later.palette().color(QPalette::Window), QColor(0xE3, 0xED, 0xF9));
    EXPECT_EQ(later.font().family(), skin::uiFont().family());
}

TEST_F(SkinFrameworkTest, OtherOptionsChangeNoLaterWindow) {
    skin::SkinFramework framework;
    load(framework);
    framework.setApplyOptions(3);
    const QWidget later;
    EXPECT_FALSE(isSkinned(later));
}

TEST_F(SkinFrameworkTest, Option4SetBeforeLoadingCountsWhenTheSkinIsThere) {
    skin::SkinFramework framework;
    framework.setApplyOptions(4);
    EXPECT_FALSE(isSkinned(QWidget()));
    load(framework);
    EXPECT_TRUE(isSkinned(QWidget()));
}

TEST_F(SkinFrameworkTest, AFailedLoadLeavesTheDefaultLookWorking) {
    skin::SkinFramework framework;
    const StyleFiles files;
    EXPECT_THROW(framework.loadSkin(files.write("rubbish"), StyleFiles::section()), quorvane::RunTimeError);
    EXPECT_FALSE(framework.isLoaded());
    QWidget window;
    auto* button = new QPushButton(u"Aceptar"_s, &window);
    framework.applyWindow(window);
    framework.setApplyOptions(4);
    EXPECT_FALSE(isSkinned(window));
    EXPECT_EQ(button->font().pixelSize(), 12);
    window.show();
    EXPECT_FALSE(window.grab().isNull());
}

TEST_F(SkinFrameworkTest, AFailedLoadKeepsTheSkinThatWasThere) {
    skin::SkinFramework framework;
    load(framework);
    EXPECT_THROW(framework.loadSkin(u"/nowhere"_s, StyleFiles::section()), quorvane::RunTimeError);
    EXPECT_TRUE(framework.isLoaded());
    QWidget window;
    framework.applyWindow(window);
    EXPECT_TRUE(isSkinned(window));
}

TEST_F(SkinFrameworkTest, ASecondSkinReplacesTheFirst) {
    skin::SkinFramework framework;
    load(framework);
    framework.setApplyOptions(4);
    const StyleFiles files;
    framework.loadSkin(files.writeWith("Window =", "Window = #112233"), StyleFiles::section());
    const QWidget later;
    EXPECT_EQ(later.palette().color(QPalette::Window), QColor(0x11, 0x22, 0x33));
}

TEST_F(SkinFrameworkTest, WindowsKeepTheirLookWhenTheFrameworkGoes) {
    QWidget window;
    {
        skin::SkinFramework framework;
        load(framework);
        framework.applyWindow(window);
    }
    EXPECT_TRUE(isSkinned(window));
    window.show();
    EXPECT_FALSE(window.grab().isNull());
}

TEST_F(SkinFrameworkTest, LockedFieldsAndIdleSelectionsHaveTheirOwnColours) {
    skin::SkinFramework framework;
    load(framework);
    QLineEdit field;
    framework.applyWindow(field);
    const QPalette palette = field.palette();
    EXPECT_NE(palette.color(QPalette::Disabled, QPalette::Base),
              palette.color(QPalette::Active, QPalette::Base));
    EXPECT_NE(palette.color(QPalette::Inactive, QPalette::Highlight),
              palette.color(QPalette::Active, QPalette::Highlight));
}

TEST(UiFont, IsTwelvePixelsInTheFirstInstalledFamily) {
    const QFont font = skin::uiFont();
    EXPECT_EQ(font.pixelSize(), 12);
    const QStringList wanted{u"Tahoma"_s, u"DejaVu Sans Condensed"_s, u"Liberation Sans"_s, u"DejaVu Sans"_s};
    const auto installed = std::find_if(wanted.begin(), wanted.end(),
                                        [](const QString& name) { return QFontDatabase::hasFamily(name); });
    ASSERT_NE(installed, wanted.end());
    EXPECT_EQ(font.family(), *installed);
    EXPECT_TRUE(QFontInfo(font).exactMatch()) << qPrintable(QFontInfo(font).family());
}
