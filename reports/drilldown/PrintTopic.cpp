#include "reports/drilldown/PrintTopic.h"
#include "common/ShowMessage.h"
#include "platform/dde/RequestLink.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "reports/drilldown/ProgramStarter.h"
#include <optional>

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::RequestLink;
using quorvane::RunTimeError;

namespace {

constexpr int lastAttempt = 10;
constexpr int yieldsBetweenAttempts = 20000;
constexpr int shellSuccess = 32; ///< numbers above it
constexpr qint32 nothingToEnd = -1;

enum Pointer : int { PointerDefault = 0, PointerHourGlass = 11 };

/// One request on its way. An error stays set until it is cleared, whatever succeeds after it.
class Request {
public:
    Request(const TopicSurroundings& surroundings, RequestLink& link, QString program, QString topic)
        : m_surroundings(surroundings)
        , m_link(link)
        , m_program(std::move(program))
        , m_topic(std::move(topic)) {}

    /// Runs one statement and keeps its error; false when it failed.
    template<class Statement> bool attempt(Statement&& statement) {
        try {
            statement();
            return true;
        } catch (const RunTimeError& error) {
            m_error = error;
            return false;
        }
    }

    void prepare(qint16 timeout) {
        attempt([&] { m_link.setLinkTimeout(timeout); });
        attempt([&] { m_link.setLinkMode(quorvane::LinkNone); });
        attempt([&] { m_link.setLinkTopic(m_topic); });
    }

    enum class Outcome { Connected, Failed, NothingToEnd };

    Outcome connect(bool ending, qint16 showState) {
        for (int i = 0; i <= lastAttempt; ++i) {
            attempt([&] { m_link.setLinkMode(quorvane::LinkNone); });
            m_error.reset();
            if (attempt([&] { m_link.setLinkMode(quorvane::LinkManual); }))
                return Outcome::Connected;
            if (ending)
                return Outcome::NothingToEnd;
            const bool nobody = m_error->number() == quorvane::ErrorLinkNoAnswer;
            if (nobody && i == 0 && !m_program.isEmpty() && !startProgram(showState)) {
                m_reason = u"No se pudo iniciar aplicación "_s + m_program;
                return Outcome::Failed;
            }
            if (i < lastAttempt)
                for (int yields = 0; yields < yieldsBetweenAttempts; ++yields)
                    m_surroundings.yield();
        }
        return Outcome::Failed;
    }

    void execute(const QString& command) {
        if (!attempt([&] { m_link.LinkExecute(command); }))
            m_reason = u"Aplicación no procesó el requerimiento"_s;
    }

    void closeConversation() {
        attempt([&] { m_link.setLinkMode(quorvane::LinkNone); });
    }

    /// Tells the error that is left and gives its number, 0 for none.
    qint32 finish() const {
        if (!m_error)
            return 0;
        ShowMessage(u"Error al enviar requerimiento a aplicación externa "_s +
                        m_topic.left(m_topic.indexOf(u'|')) + u"\r\n"_s + m_reason + u"\r\n\r\n"_s +
                        numberedText(*m_error),
                    MessageError);
        return m_error->number();
    }

    const QString& topic() const { return m_topic; }

private:
    /// By its name, then in our own folder; the file that was tried last stays the program's name.
    bool startProgram(qint16 showState) {
        constexpr int tries = 2;
        for (int i = 0; i < tries; ++i) {
            if (m_surroundings.starter.open(m_program, u"C:\\"_s, showState) > shellSuccess) {
                m_error.reset();
                return true;
            }
            if (m_program.contains(u'\\'))
                break;
            if (i + 1 < tries)
                m_program = m_surroundings.programFolder + u'\\' + m_program;
        }
        return false;
    }

    const TopicSurroundings& m_surroundings;
    RequestLink& m_link;
    QString m_program;
    QString m_topic;
    QString m_reason = u"No se pudo establecer comunicación con la aplicación"_s;
    std::optional<RunTimeError> m_error;
};

} // namespace

qint32 Print_Topic(const TopicSurroundings& surroundings, RequestLink& DDECtrl, QString AppName,
                   const QString& LinkTopic, const QString& command, [[maybe_unused]] bool Exclusivo,
                   qint16 Timeout, QString& NewTopic, qint16 EstadoVentana) {
    surroundings.setPointer(PointerHourGlass);
    NewTopic.clear();
    Request request(surroundings, DDECtrl, std::move(AppName),
                    LinkTopic.contains(u'|') ? LinkTopic : LinkTopic + u'|' + LinkTopic);
    request.prepare(Timeout);
    const bool ending = command.compare(u"Action=End", Qt::CaseInsensitive) == 0;
    const Request::Outcome outcome = request.connect(ending, EstadoVentana);
    // Nobody to end: the pointer stays an hourglass until the next request sets it back.
    if (outcome == Request::Outcome::NothingToEnd)
        return nothingToEnd;
    if (outcome == Request::Outcome::Connected) {
        NewTopic = request.topic();
        request.execute(command);
    }
    request.closeConversation();
    surroundings.setPointer(PointerDefault);
    return request.finish();
}

} // namespace dalvora
