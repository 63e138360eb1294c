#include "demo/Demonstration.h"
#include "platform/dde/SystemRequestLink.h"
#include "reports/drilldown/MessageLoop.h"
#include "reports/drilldown/PrintTopic.h"
#include "reports/drilldown/ShellStarter.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/QtPrinters.h"
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>
#include <windows.h>

using namespace dalvora;
using namespace dalvora::test;
using namespace Qt::StringLiterals;

namespace {

/// Its window shall be one of the system's, and so ours; set before the application is made.
[[maybe_unused]] const bool onTheDesktop = qputenv("QT_QPA_PLATFORM", "windows");

/// The document program as it is packed, asked over DDE and started by the shell.
class DocumentProgramOverDde : public testing::Test {
protected:
    DocumentProgramOverDde() {
        demo::createDemonstration(home.path());
        qputenv("QUORVANE_HOME", home.path().toLocal8Bit());
    }
    ~DocumentProgramOverDde() override {
        if (window() != nullptr)
            PostMessageW(window(), WM_CLOSE, 0, 0);
        EXPECT_TRUE(QTest::qWaitFor([] { return window() == nullptr; }, 10000));
    }

    static HWND window() { return titled(shown.isEmpty() ? u"Emisión de Documentos"_s : shown); }
    static HWND titled(const QString& title) {
        return FindWindowW(nullptr, reinterpret_cast<LPCWSTR>(title.utf16()));
    }
    static bool isShown(const QString& title) {
        if (!QTest::qWaitFor([&] { return titled(title) != nullptr; }, 5000))
            return false;
        shown = title;
        return true;
    }

    qint32 ask(const QString& type, const QString& account, const QString& number) {
        const QString folder = QDir::toNativeSeparators(QStringLiteral(DOCUMENT_PROGRAM_FOLDER));
        ShellStarter starter(folder);
        const TopicSurroundings surroundings{starter, folder, MessageLoop(), [](int) {}};
        const QString command =
            u"EMPRESA=001;TIPODOCTO=%1;CTACTE=%2;DOCTOINI=%3;DOCTOFIN=%3;EMISION=;ACCION=V;"
            u"FORMATO=;EMITIDO=S;TIPOCTACTE=$TIPOCTACTE$"_s.arg(type, account, number);
        QString newTopic;
        return Print_Topic(surroundings, link, u"Lorbadeno.Exe"_s, u"Emisión de Documentos|Lorbadeno"_s,
                           command, true, 50, newTopic, 1);
    }

    static inline QString shown; ///< title of its window
    QTemporaryDir home;
    quorvane::SystemRequestLink link;
    MessageRecorder messages;
};

TEST_F(DocumentProgramOverDde, IsStartedShowsDocumentsAndRefusesWhatDoesNotExist) {
    ASSERT_EQ(window(), nullptr);
    ASSERT_EQ(ask(u"FACTURA"_s, u"HANAR"_s, u"10250"_s), 0);
    EXPECT_TRUE(isShown(u"Factura de venta 10250 - Emisión de Documentos"_s));
    EXPECT_EQ(ask(u"FACEXP"_s, u"VINET"_s, u"10248"_s), 0);
    EXPECT_TRUE(isShown(u"Factura de exportación 10248 - Emisión de Documentos"_s));
    EXPECT_EQ(messages.take(), std::vector<Message>());
    EXPECT_EQ(ask(u"FACTURA"_s, u"HANAR"_s, u"1"_s), 285);
    EXPECT_EQ(messages.take().size(), 1U);
}

} // namespace
