#include "platform/quorvane32/session/Passwords.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include <QByteArray>
#include <array>
#include <sodium.h>

namespace quorvane {

namespace {

/// The password's bytes: one form for letters that can be typed in several ways. Wiped when it goes.
class Secret {
public:
    explicit Secret(const QString& password)
        : m_bytes(password.normalized(QString::NormalizationForm_C).toUtf8()) {}
    ~Secret() { sodium_memzero(m_bytes.data(), static_cast<std::size_t>(m_bytes.size())); }
    Secret(const Secret&) = delete;
    Secret& operator=(const Secret&) = delete;

    const char* data() const { return m_bytes.constData(); }
    unsigned long long size() const { return static_cast<unsigned long long>(m_bytes.size()); }

private:
    QByteArray m_bytes;
};

void initialise() {
    if (sodium_init() < 0)
        throw RunTimeError(ErrorCannotCreateObject,
                           QStringLiteral("No se puede iniciar la biblioteca de cifrado"));
}

} // namespace

QString hashPassword(const QString& password) {
    initialise();
    const Secret secret(password);
    std::array<char, crypto_pwhash_STRBYTES> hash{};
    if (crypto_pwhash_str(hash.data(), secret.data(), secret.size(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                          crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
        throw RunTimeError(ErrorOutOfMemory,
                           QStringLiteral("Memoria insuficiente para cifrar la contraseña"));
    return QString::fromLatin1(hash.data());
}

bool verifyPassword(const QString& hash, const QString& password) {
    initialise();
    const Secret secret(password);
    const QByteArray text = hash.toLatin1();
    if (crypto_pwhash_str_needs_rehash(text.constData(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                                       crypto_pwhash_MEMLIMIT_INTERACTIVE) != -1)
        return crypto_pwhash_str_verify(text.constData(), secret.data(), secret.size()) == 0;
    hashPassword(password); // as slow as a real check, so that the time does not tell who exists
    return false;
}

} // namespace quorvane
