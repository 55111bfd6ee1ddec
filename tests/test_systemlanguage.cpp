// The system language: locale names to Windows locale identifiers, and the order in
// which the environment is read.
#include "fontfile/systemlanguage.h"
#include "support/testsupport.h"

class TestSystemLanguage : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void localeNames()
    {
        QCOMPARE(SystemLanguage::lcidOf(QStringLiteral("fr_FR")), 0x040C);
        QCOMPARE(SystemLanguage::lcidOf(QStringLiteral("fr_FR.UTF-8")), 0x040C);
        QCOMPARE(SystemLanguage::lcidOf(QStringLiteral("fr_FR@euro")), 0x040C);
        QCOMPARE(SystemLanguage::lcidOf(QStringLiteral("fr_CA.UTF-8")), 0x0C0C);
        QCOMPARE(SystemLanguage::lcidOf(QStringLiteral("fr")), 0x040C);
        QCOMPARE(SystemLanguage::lcidOf(QStringLiteral("en_US.UTF-8")), 0x0409);
        QCOMPARE(SystemLanguage::lcidOf(QStringLiteral("en_GB")), 0x0809);
        QCOMPARE(SystemLanguage::lcidOf(QStringLiteral("de_DE.UTF-8")), 0x0407);
        QCOMPARE(SystemLanguage::lcidOf(QStringLiteral("ja_JP.eucJP")), 0x0411);
        QCOMPARE(SystemLanguage::lcidOf(QStringLiteral("C")), 0x0409);
        QCOMPARE(SystemLanguage::lcidOf(QStringLiteral("C.UTF-8")), 0x0409);
        QCOMPARE(SystemLanguage::lcidOf(QStringLiteral("POSIX")), 0x0409);
        QCOMPARE(SystemLanguage::lcidOf(QStringLiteral("xx_YY")), 0x0409);
        QCOMPARE(SystemLanguage::lcidOf(QString()), 0x0409);
    }

    void environmentOrder()
    {
        qputenv("LANG", "de_DE.UTF-8");
        qunsetenv("LC_ALL");
        qunsetenv("LC_MESSAGES");
        QCOMPARE(SystemLanguage::systemDefaultLCID(), 0x0407);
        qputenv("LC_MESSAGES", "fr_FR.UTF-8");
        QCOMPARE(SystemLanguage::systemDefaultLCID(), 0x040C);
        qputenv("LC_ALL", "en_US.UTF-8");
        QCOMPARE(SystemLanguage::systemDefaultLCID(), 0x0409);
        qputenv("LC_ALL", "");
        QCOMPARE(SystemLanguage::systemDefaultLCID(), 0x040C);
        qunsetenv("LC_MESSAGES");
        qunsetenv("LANG");
        QCOMPARE(SystemLanguage::systemDefaultLCID(), 0x0409);
    }
};

GLYPHORA_TEST_MAIN(TestSystemLanguage)
#include "test_systemlanguage.moc"
