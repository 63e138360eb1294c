#include "demo/Demonstration.h"

#include "demo/Database.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/session/Profile.h"
#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QStorageInfo>

namespace dalvora::demo {

namespace {

/// A first start takes less than a second; another program's is waited for this long, looking this often
/// (ms).
constexpr int longestWait = 30000;
constexpr int waitStep = 50;

/// Tells that something could not be written: the reason is a disk without room when it has none.
[[noreturn]] void raisePath(const QString& text, const QString& path, const QString& folder) {
    constexpr qint64 oneBlock = 4096;
    const QStorageInfo disk(folder);
    if (disk.isValid() && disk.bytesAvailable() < oneBlock)
        throw quorvane::RunTimeError(
            quorvane::ErrorDiskFull,
            QStringLiteral("No queda espacio en el disco para crear la base de datos en %1")
                .arg(QDir::toNativeSeparators(folder)));
    throw quorvane::RunTimeError(quorvane::ErrorPathAccess, text.arg(QDir::toNativeSeparators(path)));
}

/// The database under construction; what a killed start left is removed, and so is what an error leaves.
class WorkFile {
public:
    explicit WorkFile(QString path) : m_path(std::move(path)) { remove(); }
    ~WorkFile() { remove(); }
    WorkFile(const WorkFile&) = delete;
    WorkFile& operator=(const WorkFile&) = delete;

    const QString& path() const { return m_path; }

private:
    void remove() const {
        for (const char* suffix : {"", "-journal", "-wal", "-shm"})
            QFile::remove(m_path + QLatin1String(suffix));
    }

    QString m_path;
};

void createDatabaseFile(const QString& path) {
    const WorkFile work(path + QStringLiteral(".nueva"));
    createDemonstrationDatabase(work.path());
    if (!QFile::rename(work.path(), path))
        raisePath(QStringLiteral("No se puede crear la base de datos %1"), path, QFileInfo(path).path());
}

quorvane::Profile demonstrationProfile(const QString& databaseFile) {
    quorvane::Profile profile;
    profile.connectString = QStringLiteral("Driver=sqlite;Database=%1;Timeout=5000").arg(databaseFile);
    profile.companies = {QStringLiteral("001"), QStringLiteral("002")};
    profile.defaultCompany = QStringLiteral("001");
    profile.user = QStringLiteral("demo");
    profile.automatic = true;
    return profile;
}

/// The lock's own waiting looks ever more seldom, up to five seconds apart.
void waitForLock(QLockFile& lock, const QString& folder) {
    for (int waited = 0; waited < longestWait; waited += waitStep) {
        if (lock.tryLock(waitStep))
            return;
        if (lock.error() == QLockFile::PermissionError)
            break;
    }
    raisePath(QStringLiteral("No se puede escribir en la carpeta %1"), folder, folder);
}

} // namespace

void createDemonstration(const QString& folder) {
    if (!QDir().mkpath(folder))
        raisePath(QStringLiteral("No se puede crear la carpeta %1"), folder, folder);
    QLockFile lock(folder + QStringLiteral("/quorvane.lock"));
    waitForLock(lock, folder);
    const QString name = QStringLiteral("quorvane.db");
    const QString path = folder + u'/' + name;
    if (!QFile::exists(path))
        createDatabaseFile(path);
    if (!quorvane::Profile::exists(folder))
        demonstrationProfile(name).save(folder);
}

} // namespace dalvora::demo
