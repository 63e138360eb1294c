#pragma once

#include "data/DBTable.h"
#include "demo/Database.h"
#include "demo/Demonstration.h"
#include "platform/dde/LocalRequestLink.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/Profile.h"
#include "reports/drilldown/DrillDown.h"
#include "reports/drilldown/MessageLoop.h"
#include "reports/drilldown/ShellStarter.h"
#include "tests/drilldown/DocumentPrograms.h"
#include "tests/support/FakeSession.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestDatabase.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <gtest/gtest.h>
#include <map>

namespace dalvora::test {

using namespace Qt::StringLiterals;

/// The demonstration company on a database of an engine, with a profile that signs in by itself.
class DemonstrationOn {
public:
    explicit DemonstrationOn(TestEngine engine) {
        demo::createDemonstration(m_folder.path());
        if (engine == TestEngine::Sqlite)
            return;
        m_server = std::make_unique<TestDatabase>(engine);
        quorvane::Connection loading;
        loading.open(m_server->connectString());
        demo::loadDemonstration(loading);
        auto profile = quorvane::Profile::load(m_folder.path());
        profile.connectString = m_server->connectString();
        profile.save(m_folder.path());
    }
    QString path() const { return m_folder.path(); }
    QString filePath(const QString& name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<TestDatabase> m_server;
};

/// The calling program's side as it is: the demonstration company on its database, the real link, shell and
/// message loop.
class ClickTest : public testing::TestWithParam<TestEngine> {
protected:
    static void TearDownTestSuite() { s_homes.clear(); }

    ClickTest() {
        std::unique_ptr<DemonstrationOn>& made = s_homes[GetParam()];
        if (!made)
            made = std::make_unique<DemonstrationOn>(GetParam());
        home = made.get();
        connection.open(quorvane::Profile::load(home->path()).resolvedConnectString(home->path()));
        table.SysEmpresa = u"001"_s;
        QObject::connect(&heart, &QTimer::timeout, &heart, [this] { ++beats; });
        heart.start(10);
    }

    /// A click on the line of a document.
    void click(const QString& type, const QString& number) {
        drillDown.documentClicked(u"ComisionesVendedor"_s,
                                  {{u"Field1"_s, u"x"_s}, {u"Field10"_s, type}, {u"Field6"_s, number}});
    }
    void expectTold(const QString& reason, const QString& error) {
        EXPECT_EQ(messages.take(),
                  (std::vector<Message>{
                      {u"Error al enviar requerimiento a aplicación externa Emisión de Documentos\r\n"_s +
                           reason + u"\r\n\r\n"_s + error,
                       16}}));
    }
    void expectSilence() { EXPECT_EQ(messages.take(), std::vector<Message>()); }
    /// The window of the calling program would still paint and answer.
    void expectAlive() {
        const int before = beats;
        QElapsedTimer time;
        time.start();
        while (time.elapsed() < 100)
            QCoreApplication::processEvents();
        EXPECT_GT(beats, before);
        EXPECT_EQ(pointer, 0);
    }

    static inline std::map<TestEngine, std::unique_ptr<DemonstrationOn>> s_homes;
    DemonstrationOn* home = nullptr;
    DocumentPrograms programs;
    MessageRecorder messages;
    FakeSession session;
    quorvane::RegionalSettings regional;
    quorvane::Connection connection;
    DBTable table{connection, session, regional};
    quorvane::LocalRequestLink link;
    ShellStarter starter{programs.folder()};
    int pointer = -1;
    DrillDown drillDown{
        table, link, {starter, programs.folder(), MessageLoop(), [this](int shape) { pointer = shape; }}};
    QTimer heart;
    int beats = 0;
};

} // namespace dalvora::test
