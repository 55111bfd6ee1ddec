// Bounded reads through the system's file descriptors: open non-blocking, fstat the
// descriptor (not the path, so what is read is what was checked), read in chunks.
#include "components/boundedfile.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace BoundedFile {

namespace {

#ifdef Q_OS_UNIX
class Descriptor {
public:
    explicit Descriptor(const QString& path)
        : m_fd(path.isEmpty() ? -1 : ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
    }
    ~Descriptor()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int fd() const { return m_fd; }

private:
    int m_fd;
};

Outcome inspect(const Descriptor& file, qint64 maxBytes, qint64& size)
{
    if (file.fd() < 0)
        return errno == ENXIO ? Outcome::NotRegular : Outcome::Missing; // ENXIO: a socket
    struct stat info;
    if (::fstat(file.fd(), &info) != 0)
        return Outcome::Unreadable;
    if (!S_ISREG(info.st_mode))
        return Outcome::NotRegular;
    size = qint64(info.st_size);
    return size > maxBytes ? Outcome::TooLarge : Outcome::Read;
}
#endif

} // namespace

Outcome check(const QString& path, qint64 maxBytes)
{
#ifdef Q_OS_UNIX
    const Descriptor file(path);
    qint64 size = 0;
    return inspect(file, maxBytes, size);
#else
    const QFileInfo info(path);
    if (!info.exists())
        return Outcome::Missing;
    if (!info.isFile())
        return Outcome::NotRegular;
    return info.size() > maxBytes ? Outcome::TooLarge : Outcome::Read;
#endif
}

Result read(const QString& path, qint64 maxBytes)
{
    Result result;
#ifdef Q_OS_UNIX
    const Descriptor file(path);
    qint64 size = 0;
    result.outcome = inspect(file, maxBytes, size);
    if (result.outcome != Outcome::Read)
        return result;
    // The size is only a hint: a file may grow, or claim 0 as /proc files do. One byte
    // past the limit is asked for, to tell a file of exactly the limit from a larger one.
    constexpr qint64 chunk = 1 << 20;
    QByteArray bytes;
    bytes.reserve(qsizetype(std::min(size, maxBytes) + 1));
    for (;;) {
        const qint64 room = maxBytes + 1 - bytes.size();
        if (room <= 0) {
            result.outcome = Outcome::TooLarge;
            return result;
        }
        const qsizetype start = bytes.size();
        bytes.resize(start + qsizetype(std::min(room, chunk)));
        const ssize_t got = ::read(file.fd(), bytes.data() + start, size_t(bytes.size() - start));
        if (got < 0 && errno == EINTR) {
            bytes.resize(start);
            continue;
        }
        if (got < 0) {
            result.outcome = Outcome::Unreadable;
            return result;
        }
        bytes.resize(start + got);
        if (got == 0)
            break;
    }
    result.bytes = std::move(bytes);
#else
    result.outcome = check(path, maxBytes);
    if (result.outcome != Outcome::Read)
        return result;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        result.outcome = Outcome::Unreadable;
        return result;
    }
    result.bytes = file.read(maxBytes + 1);
    if (result.bytes.size() > maxBytes) {
        result.bytes.clear();
        result.outcome = Outcome::TooLarge;
    }
#endif
    return result;
}

} // namespace BoundedFile
