#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace quorvane {

/// What a message of the request channel says. docs/request-channel.md describes them.
enum class FrameKind : char {
    Initiate = 'I', ///< client: the topic wanted
    Execute = 'X',  ///< client: a command
    Accept = 'A',   ///< server: the request before was done
    Refuse = 'R',   ///< server: it was not; the text may say why
};

struct Frame {
    FrameKind kind = FrameKind::Accept;
    QString text;

    bool operator==(const Frame&) const = default;
};

/// Bytes before a message's text: the protocol's mark and version, the kind, the length of the text.
inline constexpr qsizetype frameHeader = 7;
/// The longest text, in UTF-8 bytes.
inline constexpr qsizetype frameLongestText = 65536;

/// The message's bytes; nothing for a text that is too long or holds a NUL.
std::optional<QByteArray> encodeFrame(const Frame& frame);

/// Reads messages from bytes that come in any portions. What a peer sends is never trusted: bytes that no
/// message begins with, a length beyond the limit or a text that is no UTF-8 damage the reader for good, and
/// it never holds more than one portion and one message.
class FrameReader {
public:
    /// Takes bytes; a damaged reader drops them.
    void feed(const QByteArray& bytes);
    /// The next whole message, or nothing.
    std::optional<Frame> next();
    bool damaged() const { return m_damaged; }

private:
    std::optional<Frame> damage();

    QByteArray m_bytes;
    bool m_damaged = false;
};

} // namespace quorvane
