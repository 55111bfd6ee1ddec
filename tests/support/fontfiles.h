// Font files the tests read: installed ones found by file name through fontconfig
// (from the Debian font packages the test setup installs), and a hand-made BDF bitmap font.
#pragma once

#include <QByteArray>
#include <QString>

namespace FontFiles {

// The installed file with that name (for instance "Inter.var.ttf"), or empty.
QString installed(const QString& fileName);

// Files of the Debian packages the tests rely on.
inline QString dejaVuSans() { return installed(QStringLiteral("DejaVuSans.ttf")); }
inline QString interVariable() { return installed(QStringLiteral("Inter.var.ttf")); }       // fonts-inter-variable
inline QString pagella() { return installed(QStringLiteral("texgyrepagella-regular.otf")); } // fonts-texgyre
inline QString nimbusSansType1() { return installed(QStringLiteral("NimbusSans-Regular.t1")); } // fonts-urw-base35
inline QString notoSansCjk() { return installed(QStringLiteral("NotoSansCJK-Regular.ttc")); }  // fonts-noto-cjk

// A BDF bitmap font of one 16-pixel strike with the glyphs "A", "x" and the space.
QByteArray bdf(const QString& family);

} // namespace FontFiles
