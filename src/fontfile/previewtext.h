// What the preview window draws for a font file: the sizes, the sample sentence, the
// character line, and the information lines describing the file.
#pragma once

#include "components/boundedfile.h"

#include <QList>
#include <QString>

namespace PreviewText {

// Point sizes of the sample sentence, in drawing order (the last is 7, not 8).
QList<int> sizes();
QString sampleSentence();
// Drawn once at 24 points after the sizes: 35 characters.
QString characterLine();
constexpr int characterLineSize = 24;

// The names a file gives, as shown under the samples.
struct FileDescription {
    QString faceName;
    QString familyName;
    QString subFamilyName;
    QString fullName;
    QString uniqueIdentifier;
    QString postscriptName;
    QString copyright;
    QString trademark;
    QString versionString;
    bool installed = false;
};

// One line per name (label, value, CR LF), then "Installée: Oui" or "Installée: Non".
QString informationText(const FileDescription& file);

// Why a chosen file is not read at all (a folder, a pipe, a device, a dangling link, a
// file over 256 MB); empty for a file that is read.
QString refusalText(const QString& path, BoundedFile::Outcome outcome);

} // namespace PreviewText
