// Names of files with whatever bytes the system allows in them.
#include "system/fileNameCodec.h"
#include "testMain.h"

#include <QFile>
#include <QTextCodec>
#include <QtTest>

class tst_FileNameCodec : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_before = QTextCodec::codecForLocale();
        os::keepFileNames();
    }
    void cleanupTestCase() { QTextCodec::setCodecForLocale(m_before); }

    static void names_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("readable");
        const auto row = [](const char* name, const QByteArray& bytes, const QString& text,
                            const QByteArray& readable) { QTest::addRow("%s", name) << bytes << text << readable; };
        const auto surrogate = [](ushort code) { return QString(QChar(code)); };
        row("ASCII", "a.xml", "a.xml", "a.xml");
        row("two bytes", "\xC3\xA9", "\u00E9", "\xC3\xA9");
        row("three bytes", "\xE6\x8E\xA7", "\u63A7", "\xE6\x8E\xA7");
        row("four bytes", "\xF0\x9F\x98\x80", QString::fromUtf8("\xF0\x9F\x98\x80"), "\xF0\x9F\x98\x80");
        row("a byte that begins nothing", "a\xFFz", "a" + surrogate(0xDCFF) + "z", "a\\xffz");
        row("a trail byte alone", "\x80", surrogate(0xDC80), "\\x80");
        row("a character that is cut", "\xE6\x8E", surrogate(0xDCE6) + surrogate(0xDC8E), "\\xe6\\x8e");
        row("written too long", "\xC0\xAF", surrogate(0xDCC0) + surrogate(0xDCAF), "\\xc0\\xaf");
        row("a surrogate", "\xED\xB3\xBF", surrogate(0xDCED) + surrogate(0xDCB3) + surrogate(0xDCBF),
            "\\xed\\xb3\\xbf");
        row("beyond the last character", "\xF4\x90\x80\x80",
            surrogate(0xDCF4) + surrogate(0xDC90) + surrogate(0xDC80) + surrogate(0xDC80), "\\xf4\\x90\\x80\\x80");
    }

    static void names()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QFETCH(QByteArray, readable);
        QCOMPARE(QFile::decodeName(bytes), text);
        QCOMPARE(QFile::encodeName(text), bytes);
        QCOMPARE(QByteArray::fromStdString(os::readableUtf8(text)), readable);
    }

private:
    QTextCodec* m_before = nullptr;
};

static const testMain::Registration<tst_FileNameCodec, QCoreApplication> registration;
#include "tst_FileNameCodec.moc"
