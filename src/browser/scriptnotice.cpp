// Script notice: coverage asked once per face, the notice shown or hidden as the
// samples change, the sample put in and taken back.
#include "browser/scriptnotice.h"

#include "browser/samplebox.h"
#include "browser/scriptsample.h"
#include "components/errorreport.h"
#include "fontfile/fontsystem.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

ScriptNotice::ScriptNotice(SampleBox* text1, SampleBox* text2, QWidget* parent)
    : QWidget(parent), m_text1(text1), m_text2(text2)
{
    setObjectName(QStringLiteral("ScriptNotice"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 3, 6, 3);
    Label1 = new QLabel(QStringLiteral("Cette police ne contient pas les caractères de l'exemple"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Command1 = new QPushButton(QStringLiteral("Exemple dans son écriture"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setAutoDefault(false);
    row->addWidget(Label1, 1);
    row->addWidget(Command1);
    hide();
    ErrorReport::connect(Command1, &QPushButton::clicked, this, &ScriptNotice::Command1_Click);
    for (SampleBox* box : {text1, text2})
        ErrorReport::connect(box, &SampleBox::textChanged, this, &ScriptNotice::recheck);
}

void ScriptNotice::faceChanged(const QString& face)
{
    if (!m_sampleFace.isEmpty() && face != m_sampleFace) {
        // The sample was for the face just left; Text2 gets back what it held, unless
        // the user has changed it since.
        if (m_text2 && m_text2->text() == m_putSample)
            m_text2->setText(m_savedText2);
        m_sampleFace.clear();
    }
    m_face = face;
    recheck();
}

void ScriptNotice::recheck()
{
    if (m_face.isEmpty() || !m_text1 || !m_text2) {
        showNotice(false);
        return;
    }
    // The samples' own font: its face alone answers (no font merging), from the
    // character map its drawing has loaded anyway.
    const QFontMetrics face(m_text1->font());
    const auto has = [&face](char32_t code) { return face.inFontUcs4(code); };
    showNotice(ScriptSample::lacksLettersOf(m_text1->text() + m_text2->text(), has));
}

QString ScriptNotice::sample() const
{
    const auto coverage = FontSystem::coverage(m_face);
    return coverage ? ScriptSample::sampleFor(*coverage) : QString();
}

void ScriptNotice::Command1_Click()
{
    const QString text = sample();
    if (text.isEmpty() || !m_text2)
        return;
    if (m_sampleFace.isEmpty())
        m_savedText2 = m_text2->text();
    m_putSample = text;
    m_sampleFace = m_face;
    m_text2->setText(text);
}

void ScriptNotice::showNotice(bool show)
{
    if (show == !isHidden())
        return;
    setVisible(show);
    Q_EMIT shownOrHidden();
}
