// Reading a file the user chose without trusting it: only a regular file (links are
// followed), opened without blocking, so that a named pipe or a device cannot hold the
// program, and never more than a stated number of bytes, whatever its size claims.
#pragma once

#include <QByteArray>
#include <QString>

namespace BoundedFile {

// The most a picture file and a font file may hold.
inline constexpr qint64 PictureLimit = 64LL * 1024 * 1024;
inline constexpr qint64 FontLimit = 256LL * 1024 * 1024;

enum class Outcome {
    Read,       // bytes holds the whole file
    Missing,    // nothing at that path (a dangling link too), or no permission
    NotRegular, // a folder, a named pipe, a socket or a device
    TooLarge,   // more than the limit, whether its size says so or its reading shows it
    Unreadable, // a read failed
};

struct Result {
    Outcome outcome = Outcome::Missing;
    QByteArray bytes;
    bool ok() const { return outcome == Outcome::Read; }
};

// The whole file, when it is a regular file of at most maxBytes bytes.
Result read(const QString& path, qint64 maxBytes);
// What read() would say, without reading: the file is opened and looked at only.
Outcome check(const QString& path, qint64 maxBytes);

} // namespace BoundedFile
