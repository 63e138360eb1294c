#pragma once

#include "common/ShowMessage.h"
#include "tests/support/QtPrinters.h"
#include <deque>
#include <vector>

namespace dalvora::test {

struct Message {
    QString text;
    int style = 0;
    QString title = messageTitle.toString();

    bool operator==(const Message&) const = default;
    friend void PrintTo(const Message& message, std::ostream* out) {
        *out << message.style << " \"" << message.text.toStdString() << "\" [" << message.title.toStdString()
             << ']';
    }
};

/// Stands in for the message boxes while it lives: keeps what is told and answers from a list, else with Yes
/// to questions and OK to the rest.
class MessageRecorder final : public MessagePresenter {
public:
    MessageRecorder() : m_previous(installMessagePresenter(this)) {}
    ~MessageRecorder() override { installMessagePresenter(m_previous); }
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;

    qint16 show(const QString& text, int style, const QString& title) override {
        m_messages.push_back({text, style, title});
        if (m_answers.empty())
            return style == MessageQuestion ? ButtonYes : ButtonOk;
        const qint16 answer = m_answers.front();
        m_answers.pop_front();
        return answer;
    }

    /// The button for the next message that has none yet.
    void answer(qint16 button) { m_answers.push_back(button); }
    /// What was told since the last call.
    std::vector<Message> take() { return std::exchange(m_messages, {}); }

private:
    MessagePresenter* m_previous;
    std::vector<Message> m_messages;
    std::deque<qint16> m_answers;
};

} // namespace dalvora::test
