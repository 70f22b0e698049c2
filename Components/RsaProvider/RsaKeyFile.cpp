#include "RsaKeyFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

RsaKey RsaKeyFile::fail(QString const& complaint)
{
    _complaint = complaint;
    return {};
}

RsaKey RsaKeyFile::load()
{
    // What another process may have put there must not make this one wait.
    int const descriptor = ::open(QFile::encodeName(_path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return fail(errno == ENOENT ? QStringLiteral("there is none yet") : QString::fromLocal8Bit(strerror(errno)));
    QFile file;
    file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return fail(QStringLiteral("it is not a file"));
    if (status.st_uid != ::geteuid() || (status.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        return fail(QStringLiteral("others may have read it"));
    RsaKey const key = status.st_size <= maximumBytes ? RsaKey::fromPem(file.readAll()) : RsaKey();
    return key.isNull() ? fail(QStringLiteral("it is damaged")) : key;
}

RsaKey RsaKeyFile::store(RsaKey const& key)
{
    QDir().mkpath(QFileInfo(_path).path());
    QTemporaryFile file(_path + ".XXXXXX"); // For its owner alone from the beginning.
    if (!file.open())
        return fail(file.errorString());
    QByteArray const pem = key.toPem();
    if (pem.isEmpty() || file.write(pem) != pem.size() || !file.flush() || ::fsync(file.handle()) != 0)
        return fail(file.errorString());
    QByteArray const from = QFile::encodeName(file.fileName());
    QByteArray const to = QFile::encodeName(_path);
    bool const isNew = ::link(from.constData(), to.constData()) == 0;
    if (!isNew) {
        // Some other process was faster, or what is there cannot be used.
        if (RsaKey const other = load(); !other.isNull())
            return other;
        if (::rename(from.constData(), to.constData()) != 0)
            return fail(QString::fromLocal8Bit(strerror(errno)));
        file.setAutoRemove(false);
    }
    return key;
}
