#include "platform/help/windows/HtmlHelpSystem.h"
#include "common/Help.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/MessageRecorder.h"
#include "tests/windows/help/RecordedHelp.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <windows.h>

using namespace Qt::StringLiterals;
using dalvora::test::Message;
using dalvora::test::MessageRecorder;
using quorvane::test::errorOf;

namespace {

const QString recordedHelp = QDir::toNativeSeparators(QStringLiteral(RECORDED_HELP));

/// The help system over a library that notes how it is called.
class HtmlHelpSystemTest : public testing::Test {
protected:
    HtmlHelpSystemTest() : call(recorder()), help(recordedHelp) { call = {}; }

    static RecordedHelpCall& recorder() {
        const HMODULE library = LoadLibraryW(reinterpret_cast<LPCWSTR>(recordedHelp.utf16()));
        const auto function = reinterpret_cast<QFunctionPointer>(GetProcAddress(library, "recordedCall"));
        return *reinterpret_cast<RecordedHelpCall* (*)()>(function)();
    }
    /// An empty help file in a folder of this name.
    QString helpFile(const QString& folder = u"ayuda"_s) const {
        QDir(m_folder.path()).mkpath(folder);
        QString name = m_folder.filePath(folder + u"/dalvora.chm"_s);
        EXPECT_TRUE(QFile(name).open(QIODevice::WriteOnly)) << name.toStdString();
        return name;
    }
    static QString longName(const char* shortName) {
        wchar_t name[1024] = L"";
        GetLongPathNameW(reinterpret_cast<LPCWSTR>(QString::fromLocal8Bit(shortName).utf16()), name, 1024);
        return QDir::fromNativeSeparators(QString::fromWCharArray(name));
    }

    RecordedHelpCall& call;
    help::HtmlHelpSystem help;

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(HtmlHelpSystemTest, GivesTheContentsNoData) {
    const QString file = helpFile();
    help.htmlHelp(file, help::DisplayContents);
    EXPECT_EQ(call.command, 1U);
    EXPECT_EQ(call.data, 0U);
    EXPECT_EQ(call.owner, nullptr);
    EXPECT_EQ(QString::fromLocal8Bit(call.file), QDir::toNativeSeparators(file));
}

TEST_F(HtmlHelpSystemTest, GivesAContextAsItsNumber) {
    help.htmlHelp(helpFile(), help::ShowContext, 138);
    EXPECT_EQ(call.command, 15U);
    EXPECT_EQ(call.data, 138U);
}

TEST_F(HtmlHelpSystemTest, GivesTopicsAndIndexWordsAsTextsOfTheCodePage) {
    help.htmlHelp(helpFile(), help::DisplayTopic, u"años.html"_s);
    EXPECT_EQ(call.command, 0U);
    EXPECT_EQ(QString::fromLocal8Bit(call.text), u"años.html"_s);
    help.htmlHelp(helpFile(), help::DisplayIndex, u"comisión"_s);
    EXPECT_EQ(call.command, 2U);
    EXPECT_EQ(QString::fromLocal8Bit(call.text), u"comisión"_s);
    help.htmlHelp(helpFile(), help::DisplayIndex);
    EXPECT_EQ(call.data, 0U);
}

TEST_F(HtmlHelpSystemTest, AFolderWithBlanksAndAccentsIsNamedAsItIs) {
    const QString file = helpFile(u"Comisiones de añejo"_s);
    help.htmlHelp(file, help::DisplayContents);
    EXPECT_EQ(QString::fromLocal8Bit(call.file), QDir::toNativeSeparators(file));
}

TEST_F(HtmlHelpSystemTest, LettersBeyondTheCodePageGoByTheShortName) {
    if (GetACP() == CP_UTF8)
        GTEST_SKIP() << "this system's code page has every letter";
    const QString file = helpFile(u"справка 年"_s);
    help.htmlHelp(file, help::DisplayContents);
    EXPECT_FALSE(QByteArray(call.file).contains('?')) << call.file;
    EXPECT_EQ(longName(call.file), file) << call.file;
}

TEST_F(HtmlHelpSystemTest, AMissingFileIsTheErrorOfOtherSystems) {
    EXPECT_EQ(errorOf([&] { help.htmlHelp(u"C:/no/hay.chm"_s, help::DisplayContents); }), 53);
    EXPECT_EQ(call.calls, 0);
}

TEST_F(HtmlHelpSystemTest, WhatTheViewerDoesNotShowIsAnError) {
    call.showsNothing = true;
    const QString file = helpFile();
    EXPECT_EQ(errorOf([&] { help.htmlHelp(file, help::ShowContext, 7); }), 3265);
    EXPECT_EQ(errorOf([&] { help.htmlHelp(file, help::DisplayTopic, u"x.html"_s); }), 3265);
    EXPECT_EQ(errorOf([&] { help.htmlHelp(file, help::DisplayContents); }), 5);
    EXPECT_EQ(errorOf([&] { help.htmlHelp(file, 99); }), 5);

    MessageRecorder messages;
    dalvora::Help(help, file, u"138"_s);
    EXPECT_EQ(messages.take(),
              (std::vector<Message>{{u"El visor de la ayuda no pudo mostrar el tema «138» de «%1»"_s.arg(
                                         QDir::toNativeSeparators(file)),
                                     16, u"Ayuda"_s}}));
}

TEST_F(HtmlHelpSystemTest, ClosesItsWindowsAtItsEndIfItWasUsed) {
    { const help::HtmlHelpSystem unused(recordedHelp); }
    EXPECT_EQ(call.calls, 0);
    {
        help::HtmlHelpSystem used(recordedHelp);
        used.htmlHelp(helpFile(), help::DisplayContents);
    }
    EXPECT_EQ(call.calls, 2);
    EXPECT_EQ(call.command, 18U);
    EXPECT_STREQ(call.file, "");
}

TEST_F(HtmlHelpSystemTest, AMissingLibraryOrEntryPointIsTheMessageOfAMissingViewer) {
    for (const QString& library : {u"nohay.ocx"_s, u"kernel32.dll"_s}) {
        help::HtmlHelpSystem broken(library);
        const QString file = helpFile();
        EXPECT_EQ(errorOf([&] { broken.htmlHelp(file, help::DisplayContents); }), help::ErrorViewerNotUsable);

        MessageRecorder messages;
        dalvora::Help(broken, file, u"138"_s);
        EXPECT_EQ(
            messages.take(),
            (std::vector<Message>{{u"No se encuentran componentes de visualización de archivos de ayuda.\n"
                                   "Debe instalar Microsoft HTMLHelp."_s,
                                   16, u"Ayuda"_s}}));
    }
}
