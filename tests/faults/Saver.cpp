// A program that saves or deletes a scheme, and tells how far it is, so that a test can end it at any moment.
//
//   fault_saver FOLDER CODE LINES save           takes the stored scheme into its next state
//   fault_saver FOLDER CODE LINES delete         deletes it
//   fault_saver FOLDER CODE LINES loop COUNT     saves COUNT times and checks each state that it reads

#include "common/ShowMessage.h"
#include "data/DBTable.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/ErpSession.h"
#include "tests/faults/SaverMarks.h"
#include "tests/faults/SchemeStates.h"
#include <QCoreApplication>
#include <cstdio>
#include <unistd.h>

namespace {

using namespace dalvora;
using namespace dalvora::test;

/// Agrees to a changed period; everything else that is told goes to the error stream.
class Agreeing final : public MessagePresenter {
public:
    qint16 show(const QString& text, int style, const QString&) override {
        if (style == MessageQuestion)
            return ButtonYes;
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
        return ButtonOk;
    }
};

void tell(SaverMark mark) {
    const char byte = mark;
    if (write(STDOUT_FILENO, &byte, 1) != 1)
        _exit(3);
}

class Saver {
public:
    Saver(const QString& folder, const QString& code, int lines)
        : m_session(folder, nullptr), m_states(code, lines) {
        bool cancel = false;
        m_session.Initialize(m_connection, QStringLiteral("DALVORA"), QStringLiteral("VELTRANO"),
                             QStringLiteral("1.0.01"), QStringLiteral("001"), cancel);
        m_table.DBInitialize();
        m_table.carga_inicio();
    }

    bool once(const QString& command) {
        const int state = m_states.read(m_table);
        if (state < 0)
            return false;
        if (command == u"save")
            m_states.change(m_table, state + 1);
        m_connection.setStatementObserver([this](const QString&) {
            if (m_connection.inTransaction())
                tell(MarkStatement);
        });
        tell(MarkReady);
        char go = 0;
        if (read(STDIN_FILENO, &go, 1) != 1)
            return false;
        const bool done = command == u"save" ? m_table.DBWrite(true) : m_table.DBDelete();
        tell(done ? MarkDone : MarkFailed);
        return done;
    }

    bool loop(int count) {
        int expected = m_states.read(m_table);
        for (int i = 0; i < count; ++i, ++expected) {
            if (m_states.read(m_table) != expected)
                return false;
            m_states.change(m_table, expected + 1);
            if (!m_table.DBWrite(true))
                return false;
            tell(MarkDone);
        }
        // The other program may hold the lock at this very moment; entries that wait are stored with the
        // next.
        do
            m_table.DBTerminate();
        while (m_session.WaitingAuditEntries() > 0);
        return true;
    }

private:
    quorvane::RegionalSettings m_regional;
    quorvane::Connection m_connection;
    quorvane::ErpSession m_session;
    DBTable m_table{m_connection, m_session, m_regional};
    SchemeStates m_states;
};

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() < 5)
        return 2;
    Agreeing messages;
    installMessagePresenter(&messages);
    try {
        Saver saver(words[1], words[2], words[3].toInt());
        const bool done = words[4] == u"loop" ? saver.loop(words.value(5).toInt()) : saver.once(words[4]);
        return done ? 0 : 1;
    } catch (const quorvane::RunTimeError& error) {
        std::fprintf(stderr, "%d %s\n", error.number(), error.what());
        return 1;
    }
}
