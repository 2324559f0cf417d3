// C streams over memory and over streams of C++.
#include "system/cStreams.h"
#include "testMain.h"

#include <QtTest>

#include <cstdio>
#include <cstring>
#include <sstream>

class tst_CStreams : public QObject
{
    Q_OBJECT

private slots:
    /// What is written is there after `finish`, again and again; a zero byte counts like any other.
    static void memory()
    {
        os::MemoryFile file;
        QCOMPARE(std::fwrite("a\0b", 1, 3, file.stream()), std::size_t(3));
        file.finish();
        QCOMPARE(file.size(), std::size_t(3));
        QCOMPARE(std::memcmp(file.data(), "a\0b", 3), 0);
        std::fputc('c', file.stream());
        file.finish();
        QCOMPARE(file.size(), std::size_t(4));
        QCOMPARE(file.data()[3], static_cast<unsigned char>('c'));
    }

    static void emptyMemory()
    {
        os::MemoryFile file;
        file.finish();
        QCOMPARE(file.size(), std::size_t(0));
    }

    static void reader()
    {
        std::vector<unsigned char> bytes{1, 0, 255};
        const FileHandle stream = os::readerOf(bytes);
        QCOMPARE(std::fgetc(stream.get()), 1);
        QCOMPARE(std::fgetc(stream.get()), 0);
        QCOMPARE(std::fgetc(stream.get()), 255);
        QCOMPARE(std::fgetc(stream.get()), EOF);
    }

    static void writer()
    {
        std::ostringstream out;
        {
            const FileHandle stream = os::writerTo(out);
            std::fputs("KTL", stream.get());
        }
        QCOMPARE(out.str(), std::string("KTL"));
    }

    /// A stream that takes nothing makes an error of the C stream.
    static void writerThatFails()
    {
        std::ostringstream out;
        out.setstate(std::ios::badbit);
        const FileHandle stream = os::writerTo(out);
        std::fputs("KTL", stream.get());
        QVERIFY(std::fflush(stream.get()) != 0);
        QVERIFY(std::ferror(stream.get()) != 0);
    }
};

static const testMain::Registration<tst_CStreams, testMain::NoApplication> registration;
#include "tst_CStreams.moc"
