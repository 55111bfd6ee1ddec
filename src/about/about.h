// about: the about box, six tabs presenting the program, its version, a cancer
// research project, the donation appeal, the credits and other programs.
#pragma once

#include <QDialog>
#include <QStringList>

class QLabel;
class QListWidget;
class QPushButton;
class QTabBar;
class QTextEdit;

class about : public QDialog {
    Q_OBJECT
public:
    explicit about(QWidget* parent = nullptr);

    // Web addresses the labels open.
    static QString HomePage();
    static QString VersionCheckPage();
    static QString CancerPage();
    static QString MailAddress();
    static QString DonationPage();
    // The lines of the version list.
    static QStringList VersionLines();

    QTabBar* TabStrip1 = nullptr;
    QWidget* FrmGlyphora = nullptr;
    QListWidget* List1 = nullptr;
    QWidget* FrmCancer = nullptr;
    QWidget* FrmDonation = nullptr;
    QTextEdit* Text1 = nullptr;
    QWidget* FrmAutres = nullptr;
    QTextEdit* txtDonation = nullptr;
    QLabel* lblTitle = nullptr;
    QLabel* Label3 = nullptr;
    QLabel* Label4 = nullptr;
    QLabel* Label7 = nullptr;
    QLabel* Image1 = nullptr;
    QLabel* lblSplash = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* Command2 = nullptr;

    void setVisible(bool visible) override;

public Q_SLOTS:
    // Shows the panel of tab Index (1..6); any other index changes nothing.
    void TabStrip1_Click(int Index);
    void lblTitle_Click();
    void Label3_Click();
    void Label4_Click();
    void Label7_Click();
    void Command1_Click();
    void Command2_Click();
    void Image1_Click();
    void lblSplash_Click();

protected:
    void Form_Load();
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* buildPresentation();
    QWidget* buildCancer();
    QWidget* buildDonation();
    QWidget* buildOthers();
    QLabel* makeLink(const QString& name, const QString& text, QWidget* parent);

    QList<QWidget*> m_panels;
    bool m_loaded = false;
};
