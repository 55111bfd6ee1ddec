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
};
