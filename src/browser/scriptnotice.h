// ScriptNotice: the line under the samples that says the face has none of the sample
// texts' letters (a font for another script, a symbol font), with a button that puts a
// short sample in the face's own script into Text2 for that face only.
#pragma once

#include <QPointer>
#include <QWidget>

class QLabel;
class QPushButton;
class SampleBox;

class ScriptNotice : public QWidget {
    Q_OBJECT
public:
    ScriptNotice(SampleBox* text1, SampleBox* text2, QWidget* parent = nullptr);

    QLabel* Label1 = nullptr;
    QPushButton* Command1 = nullptr;

    // The samples now show this face: a script sample put into Text2 for another face
    // is taken back, then the notice shows when the face lacks every sample letter.
    void faceChanged(const QString& face);
    // The sample texts changed: shows or hides the notice for the present face.
    void recheck();
    // The text Command1 puts into Text2 for the present face ("" without a face). It
    // asks fontconfig, which takes a while with thousands of fonts: only on demand.
    QString sample() const;

public Q_SLOTS:
    void Command1_Click();

Q_SIGNALS:
    // Shown or hidden: the owner gives it its place.
    void shownOrHidden();

private:
    void showNotice(bool show);

    QPointer<SampleBox> m_text1;
    QPointer<SampleBox> m_text2;
    QString m_face;
    // What Text2 held before the sample, the sample, and the face it was put for.
    QString m_savedText2;
    QString m_putSample;
    QString m_sampleFace;
};
