// CFontPreview: what a TrueType file that need not be installed says about itself
// (names, style flags, validity), and its face made drawable by name for as long as
// the object previews it.
#pragma once

#include "fontfile/truetypefile.h"

#include <QString>
#include <cstdint>

// Writing FontFile lets the previous file go, reads the new one, resolves its face
// name and, when the system does not know that face yet, registers the file until the
// next write or the object's end. Nothing is reset between files: a file lacking a
// name, OS/2 or head table shows the earlier file's values for it. The name
// properties throw RuntimeError 9 while no name table has ever been read.
// Any font format is read: TrueType, OpenType (CFF), one face of a collection, and web
// fonts (WOFF, WOFF2), which are unpacked in memory and registered from those bytes.
class CFontPreview {
public:
    CFontPreview();
    ~CFontPreview();
    CFontPreview(const CFontPreview&) = delete;
    CFontPreview& operator=(const CFontPreview&) = delete;

    bool Broadcast() const { return m_broadcast; }
    void setBroadcast(bool broadcast) { m_broadcast = broadcast; }
    QString FontFile() const { return m_fontFile; }
    void setFontFile(const QString& path);

    bool Bold() const;
    QString Copyright() const;
    QString FaceName() const { return m_faceName; }
    QString FamilyName() const;
    QString FullName() const;
    bool Installed() const { return m_installed; }
    bool Italic() const;
    bool StrikeOut() const;
    QString SubFamilyName() const;
    QString PostscriptName() const;
    QString Trademark() const;
    bool Underlined() const;
    QString UniqueIdentifier() const;
    bool ValidTrueTypeFile() const { return m_tables.valid; }
    QString VersionString() const;

    // The face of a collection that is read; 0 for a plain font file. Writing it reads
    // the current file again with that face, as writing FontFile does.
    int FaceIndex() const { return m_faceIndex; }
    void setFaceIndex(int index);
    // The faces the file holds: 1 for a plain font file, a collection's count, 0 when
    // the file is no font at all.
    int FaceCount() const { return m_faceCount; }
    // In French, why a web font could not be unpacked (broken, or too large once
    // unpacked); empty when the file was read.
    QString ReadError() const { return m_readError; }

    // The locale identifier taken from the environment when the object was made.
    std::int32_t systemLanguage() const { return m_systemLanguage; }

private:
    void ReadFontFile(const QString& path);
    QString GetNameString(int nameID) const;
    bool ResolveFaceName();
    bool AddTemporaryFont(const QString& path);
    void RemoveTemporaryFont();
    static bool FileExists(const QString& path);
    static bool IsBitSet(std::int16_t value, int bit);

    bool m_broadcast = false;
    QString m_fontFile;
    QString m_faceName;
    std::int32_t m_systemLanguage = 0;
    bool m_installed = false;
    TrueType::FontTables m_tables;
    int m_registration = -1; // the application font id of the file this object registered
    int m_faceIndex = 0;
    int m_faceCount = 0;
    QByteArray m_sfnt; // an unpacked web font; empty for a file read in place
    QString m_readError;
};
