// CStringBuilder: units, growth by granules, the loose range checks and every error.
#include "components/cstringbuilder.h"
#include "components/runtimeerror.h"
#include "support/testsupport.h"

#include <functional>

namespace {

struct Caught {
    bool raised = false;
    int number = 0;
    QString source;
    QString description;
};

Caught attempt(const std::function<void()>& action)
{
    Caught caught;
    try {
        action();
    } catch (const RuntimeError& e) {
        caught = {true, e.number(), e.source(), e.description()};
    }
    return caught;
}

} // namespace

class TestCStringBuilder : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void newBuilder()
    {
        CStringBuilder sb;
        QCOMPARE(sb.Length(), 0);
        QCOMPARE(sb.Capacity(), 2048);
        QCOMPARE(sb.BufferBump(), 2048);
        QCOMPARE(sb.ToString(), QString());
    }

    void appendChainsAndGrowsByGranules()
    {
        CStringBuilder sb;
        QCOMPARE(&sb.Append(QStringLiteral("ab")).Append(QStringLiteral("cé")), &sb);
        QCOMPARE(sb.ToString(), QStringLiteral("abcé"));
        QCOMPARE(sb.Length(), 4);

        CStringBuilder big;
        big.Append(QString(1024, QLatin1Char('x')));
        QCOMPARE(big.Capacity(), 2048);
        CStringBuilder bigger;
        bigger.Append(QString(1025, QLatin1Char('x')));
        QCOMPARE(bigger.Capacity(), 4096);
        QCOMPARE(bigger.Length(), 1025);
        QCOMPARE(bigger.ToString(), QString(1025, QLatin1Char('x')));
    }

    void appendEmptyChangesNothing()
    {
        CStringBuilder sb;
        sb.Append(QString());
        QCOMPARE(sb.Length(), 0);
        QCOMPARE(sb.Capacity(), 2048);
    }

    void textKeepsEveryUtf16CodeUnit()
    {
        CStringBuilder sb;
        const QString text = QStringLiteral("€一") + QString::fromUtf8("\xF0\x9F\x98\x80") + QStringLiteral("\r\n");
        sb.Append(text);
        QCOMPARE(sb.ToString(), text);
        QCOMPARE(sb.Length(), text.size());
        QCOMPARE(sb.Chars(1), QStringLiteral("一"));
    }

    void bufferBump()
    {
        CStringBuilder sb;
        sb.setBufferBump(3);
        QCOMPARE(sb.BufferBump(), 4);
        sb.setBufferBump(0);
        QCOMPARE(sb.BufferBump(), 4);
        sb.setBufferBump(-5);
        QCOMPARE(sb.BufferBump(), 4);
        QCOMPARE(sb.Capacity(), 2048); // unchanged until the next growth
        sb.setCapacity(2049);
        QCOMPARE(sb.Capacity(), 2052);
    }

    void capacityRoundsUpToTheBump()
    {
        CStringBuilder sb;
        sb.setCapacity(1);
        QCOMPARE(sb.Capacity(), 2048);
        sb.setCapacity(2049);
        QCOMPARE(sb.Capacity(), 4096);
        sb.setCapacity(4096);
        QCOMPARE(sb.Capacity(), 4096);
        sb.setCapacity(0);
        QCOMPARE(sb.Capacity(), 4096);
        sb.setCapacity(-10);
        QCOMPARE(sb.Capacity(), 4096);
    }

    void capacityBelowLengthTruncates()
    {
        CStringBuilder sb;
        sb.Append(QString(1500, QLatin1Char('a')) + QStringLiteral("tail"));
        QCOMPARE(sb.Capacity(), 4096);
        sb.setCapacity(1000); // 2048 bytes = 1024 characters
        QCOMPARE(sb.Capacity(), 2048);
        QCOMPARE(sb.Length(), 1024);
        QCOMPARE(sb.ToString(), QString(1024, QLatin1Char('a')));
    }

    void ensureCapacity()
    {
        CStringBuilder sb;
        QCOMPARE(sb.EnsureCapacity(100), 2048);
        QCOMPARE(sb.EnsureCapacity(2048), 2048);
        QCOMPARE(sb.EnsureCapacity(2049), 4096);
        QCOMPARE(sb.Capacity(), 4096);
    }

    void lengthExposesWhatTheBufferHolds()
    {
        CStringBuilder sb;
        sb.Append(QStringLiteral("Bonjour"));
        sb.setLength(3);
        QCOMPARE(sb.ToString(), QStringLiteral("Bon"));
        sb.setLength(7); // old text comes back after a shortening
        QCOMPARE(sb.ToString(), QStringLiteral("Bonjour"));
        sb.setLength(9); // zeros after the old text
        QCOMPARE(sb.ToString(), QStringLiteral("Bonjour") + QString(2, QChar(0)));
        sb.setLength(-1);
        QCOMPARE(sb.Length(), 9);
        sb.setLength(1025); // 2050 bytes: the capacity grows to the next granule
        QCOMPARE(sb.Capacity(), 4096);
        QCOMPARE(sb.Length(), 1025);
        QCOMPARE(sb.Chars(1024), QString(QChar(0)));
    }

    void charsGetAndSet()
    {
        CStringBuilder sb;
        sb.Append(QStringLiteral("abc"));
        QCOMPARE(sb.Chars(0), QStringLiteral("a"));
        QCOMPARE(sb.Chars(2), QStringLiteral("c"));
        sb.setChars(1, QStringLiteral("Zut"));
        QCOMPARE(sb.ToString(), QStringLiteral("aZc"));
        // The bound is the byte length: index Length .. 2*Length-1 reads past the end.
        QCOMPARE(sb.Chars(3), QString(QChar(0)));
        QCOMPARE(sb.Chars(5), QString(QChar(0)));
        sb.setChars(4, QStringLiteral("q"));
        QCOMPARE(sb.ToString(), QStringLiteral("aZc"));
        sb.setLength(5);
        QCOMPARE(sb.ToString(), QStringLiteral("aZc") + QChar(0) + QStringLiteral("q"));
    }

    void charsErrors()
    {
        CStringBuilder sb;
        Caught c = attempt([&] { sb.Chars(0); }); // empty builder: index 0 fails
        QVERIFY(c.raised);
        QCOMPARE(c.number, -2147220992);
        QCOMPARE(c.source, QStringLiteral("CStringBuilder.Chars"));
        QCOMPARE(c.description, QStringLiteral("Tried reading character past end of buffer."));

        sb.Append(QStringLiteral("xy"));
        c = attempt([&] { sb.Chars(-1); });
        QVERIFY(c.raised);
        QCOMPARE(c.number, int(RuntimeError::ObjectError));
        QCOMPARE(c.source, QStringLiteral("CStringBuilder.Chars"));
        QCOMPARE(c.description, QStringLiteral("Tried reading character past end of buffer."));
        QVERIFY(!attempt([&] { sb.Chars(sb.Length()); }).raised);
        QVERIFY(!attempt([&] { sb.Chars(3); }).raised);
        QVERIFY(attempt([&] { sb.Chars(4); }).raised); // 4 bytes in use

        c = attempt([&] { sb.setChars(-1, QStringLiteral("a")); });
        QVERIFY(c.raised);
        QCOMPARE(c.number, -2147220992);
        QCOMPARE(c.source, QStringLiteral("CStringBuilder.Chars"));
        QCOMPARE(c.description, QStringLiteral("Tried assigning character past end of buffer."));
        c = attempt([&] { sb.setChars(4, QStringLiteral("a")); });
        QVERIFY(c.raised);
        QCOMPARE(c.description, QStringLiteral("Tried assigning character past end of buffer."));
        QCOMPARE(sb.ToString(), QStringLiteral("xy"));
    }

    void charsNeverLeaveTheBuffer()
    {
        // A full buffer: indices up to 2*Length-1 pass the check but lie outside it.
        CStringBuilder sb;
        sb.Append(QString(1024, QLatin1Char('f')));
        QVERIFY(!attempt([&] { sb.Chars(1023); }).raised);
        QVERIFY(attempt([&] { sb.Chars(1024); }).raised);
        QVERIFY(attempt([&] { sb.setChars(1500, QStringLiteral("a")); }).raised);
        QCOMPARE(sb.ToString(), QString(1024, QLatin1Char('f')));
    }

    void charsSetWithEmptyTextIsAnIllegalCall()
    {
        CStringBuilder sb;
        sb.Append(QStringLiteral("ab"));
        const Caught c = attempt([&] { sb.setChars(0, QString()); });
        QVERIFY(c.raised);
        QCOMPARE(c.number, 5);
        QCOMPARE(sb.ToString(), QStringLiteral("ab"));
    }

    void insert()
    {
        CStringBuilder sb;
        sb.Append(QStringLiteral("Voixambiguë"));
        QCOMPARE(&sb.Insert(4, QStringLiteral(" ")), &sb);
        QCOMPARE(sb.ToString(), QStringLiteral("Voix ambiguë"));
        sb.Insert(0, QStringLiteral(">"));
        QCOMPARE(sb.ToString(), QStringLiteral(">Voix ambiguë"));
        sb.Insert(sb.Length(), QStringLiteral("!")); // Insert at Length appends
        QCOMPARE(sb.ToString(), QStringLiteral(">Voix ambiguë!"));
    }

    void insertEmptyStillChecksTheIndex()
    {
        CStringBuilder sb;
        sb.Append(QStringLiteral("abc"));
        sb.Insert(1, QString());
        QCOMPARE(sb.ToString(), QStringLiteral("abc"));
        QCOMPARE(sb.Length(), 3);
        const Caught c = attempt([&] { sb.Insert(-1, QString()); });
        QVERIFY(c.raised);
        QCOMPARE(c.number, -2147220992);
        QCOMPARE(c.source, QStringLiteral("CStringBuilder.Insert"));
        QCOMPARE(c.description, QStringLiteral("Argument(s) out of range."));
        QVERIFY(attempt([&] { sb.Insert(1025, QString()); }).raised); // 2050 bytes > capacity
        QCOMPARE(sb.ToString(), QStringLiteral("abc"));
    }

    void insertBetweenLengthAndCapacity()
    {
        // The check is against the capacity: the text lands past the end and the
        // length still grows by its size.
        CStringBuilder sb;
        sb.Append(QStringLiteral("ab"));
        sb.Insert(10, QStringLiteral("Z"));
        QCOMPARE(sb.Length(), 3);
        QCOMPARE(sb.ToString(), QStringLiteral("ab") + QChar(0));
        sb.setLength(11);
        QCOMPARE(sb.Chars(10), QStringLiteral("Z"));
        // At the capacity itself the text would lie outside the buffer: nothing escapes.
        CStringBuilder edge;
        edge.Insert(1024, QStringLiteral("Q"));
        QCOMPARE(edge.Length(), 1);
        QCOMPARE(edge.Capacity(), 2048);
    }

    void insertGrowsTheCapacity()
    {
        CStringBuilder sb;
        sb.Append(QString(1000, QLatin1Char('a')));
        sb.Insert(500, QString(100, QLatin1Char('b')));
        QCOMPARE(sb.Capacity(), 4096);
        QCOMPARE(sb.ToString(), QString(500, QLatin1Char('a')) + QString(100, QLatin1Char('b')) + QString(500, QLatin1Char('a')));
    }

    void remove()
    {
        CStringBuilder sb;
        sb.Append(QStringLiteral("Voix ambiguë"));
        QCOMPARE(&sb.Remove(4, 1), &sb);
        QCOMPARE(sb.ToString(), QStringLiteral("Voixambiguë"));
        sb.Remove(0, sb.Length());
        QCOMPARE(sb.Length(), 0);
        QCOMPARE(sb.ToString(), QString());
    }

    void removeOnePastTheEnd()
    {
        CStringBuilder sb;
        sb.Append(QStringLiteral("abcd"));
        const Caught c = attempt([&] { sb.Remove(2, 4); }); // I + C = Length + 2
        QVERIFY(c.raised);
        QCOMPARE(c.number, -2147220992);
        QCOMPARE(c.source, QStringLiteral("CStringBuilder.Remove"));
        QCOMPARE(c.description, QStringLiteral("Argument(s) out of range."));
        QCOMPARE(sb.ToString(), QStringLiteral("abcd"));
        QVERIFY(attempt([&] { sb.Remove(-1, 1); }).raised);
        QVERIFY(attempt([&] { sb.Remove(0, -1); }).raised);

        sb.Remove(2, 3); // I + C = Length + 1 passes; the length drops by C all the same
        QCOMPARE(sb.Length(), 1);
        QCOMPARE(sb.ToString(), QStringLiteral("a"));
    }

    void lengthBelowZeroStaysSafe()
    {
        // Removing one character from an empty builder passes the check; the length
        // goes below zero and what follows must stay inside the buffer.
        CStringBuilder sb;
        sb.Remove(0, 1);
        QCOMPARE(sb.Length(), -1);
        QCOMPARE(sb.ToString(), QString());
        QVERIFY(attempt([&] { sb.Chars(0); }).raised);
        sb.Append(QStringLiteral("xyz"));
        QCOMPARE(sb.Length(), 2);
        QCOMPARE(sb.ToString(), QStringLiteral("yz"));
    }

    void builderOfManyAppends()
    {
        CStringBuilder sb;
        QString expected;
        for (int i = 0; i < 3000; ++i) {
            const QString piece = QString::number(i) + QStringLiteral("\r\n");
            sb.Append(piece);
            expected += piece;
        }
        QCOMPARE(sb.ToString(), expected);
        QCOMPARE(sb.Capacity() % 2048, 0);
        QVERIFY(sb.Capacity() >= 2 * expected.size());
        QVERIFY(sb.Capacity() < 2 * expected.size() + 2048);
    }
};

GLYPHORA_TEST_MAIN(TestCStringBuilder)
#include "test_cstringbuilder.moc"
