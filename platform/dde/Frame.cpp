#include "platform/dde/Frame.h"
#include <QStringDecoder>
#include <QtEndian>

namespace quorvane {

namespace {

constexpr char mark[] = {'Q', '1'};
constexpr qsizetype kindPlace = sizeof mark;
constexpr qsizetype lengthPlace = kindPlace + 1;
static_assert(lengthPlace + sizeof(quint32) == frameHeader);

bool isKind(char c) {
    for (const FrameKind kind :
         {FrameKind::Initiate, FrameKind::Execute, FrameKind::Accept, FrameKind::Refuse})
        if (c == static_cast<char>(kind))
            return true;
    return false;
}

/// Whether the bytes at hand can be the start of a message: told as early as possible, so that a peer of
/// another protocol is not waited for.
bool canBegin(const QByteArray& bytes) {
    const qsizetype seen = std::min<qsizetype>(bytes.size(), sizeof mark);
    if (!QByteArrayView(mark, sizeof mark).startsWith(QByteArrayView(bytes).first(seen)))
        return false;
    return bytes.size() <= kindPlace || isKind(bytes[kindPlace]);
}

} // namespace

std::optional<QByteArray> encodeFrame(const Frame& frame) {
    const QByteArray text = frame.text.toUtf8();
    if (text.size() > frameLongestText || text.contains('\0'))
        return std::nullopt;
    QByteArray bytes(mark, sizeof mark);
    bytes.append(static_cast<char>(frame.kind));
    char length[sizeof(quint32)];
    qToBigEndian(static_cast<quint32>(text.size()), length);
    return bytes.append(length, sizeof length).append(text);
}

void FrameReader::feed(const QByteArray& bytes) {
    if (!m_damaged)
        m_bytes.append(bytes);
}

std::optional<Frame> FrameReader::damage() {
    m_damaged = true;
    m_bytes.clear();
    return std::nullopt;
}

std::optional<Frame> FrameReader::next() {
    if (!canBegin(m_bytes))
        return damage();
    if (m_bytes.size() < frameHeader)
        return std::nullopt;
    const auto length = qFromBigEndian<quint32>(m_bytes.constData() + lengthPlace);
    if (length > frameLongestText)
        return damage();
    if (m_bytes.size() < frameHeader + static_cast<qsizetype>(length))
        return std::nullopt;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(QByteArrayView(m_bytes).sliced(frameHeader, length));
    if (decoder.hasError() || text.contains(QChar(u'\0')))
        return damage();
    Frame frame{static_cast<FrameKind>(m_bytes[kindPlace]), text};
    m_bytes.remove(0, frameHeader + static_cast<qsizetype>(length));
    return frame;
}

} // namespace quorvane
