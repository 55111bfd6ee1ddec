// FrenchQtTexts: the French of Qt's own texts that Qt 6.4's French translation
// (qtbase_fr) lacks: the file dialog's "Folder", "Drive", "File", the colour dialog's
// title and a few others. Installed after qtbase_fr, it is asked first and answers
// only for the texts it knows.
#pragma once

#include <QTranslator>

class FrenchQtTexts : public QTranslator {
    Q_OBJECT
public:
    using QTranslator::QTranslator;

    QString translate(const char* context, const char* sourceText, const char* disambiguation = nullptr,
                      int n = -1) const override;
    bool isEmpty() const override { return false; }
};
