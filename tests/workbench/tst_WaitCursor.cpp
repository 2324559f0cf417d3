// The waiting cursor is shown while files are read and written. A pipe in the place of a file makes the window wait in
// the middle of its work, until the other end of the pipe has looked at the cursor.
#include "testMain.h"
#include "workbench/exportFixture.h"

#include <atomic>
#include <csignal>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

class tst_WaitCursor : public ExportFixture
{
    Q_OBJECT

private slots:
    static void initTestCase() { std::signal(SIGPIPE, SIG_IGN); }
    void init() { begin({fileOfProducts("a.xml", {1})}); }
    void cleanup() { end(); }
    void whileAFileIsRead();
    void whileAFileIsWritten();
};

namespace {

/// Whether the program shows the waiting cursor, or comes to show it soon.
bool comesToWait()
{
    QElapsedTimer timer;
    timer.start();
    constexpr int patience = 5000; // ms
    while (timer.elapsed() < patience) {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        if (cursor != nullptr)
            return cursor->shape() == Qt::WaitCursor;
        std::this_thread::yield();
    }
    return false;
}

/// Types a path into a file dialog and accepts. The dialog lists no pipes, so its button may be out of use.
DialogAnswer choosingPipe(const QString& path)
{
    return {DialogAnswer::Kind::FileDialog, [path](QWidget& dialog) {
                dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
                static_cast<QDialog&>(dialog).accept();
            }};
}

/// The other end of a pipe, in a thread of its own.
class OtherEnd
{
public:
    OtherEnd(const QString& path, std::function<void()> work)
        : m_path(QFile::encodeName(path))
        , m_thread(std::move(work))
    {}
    OtherEnd(const OtherEnd&) = delete;
    OtherEnd& operator=(const OtherEnd&) = delete;
    OtherEnd(OtherEnd&&) = delete;
    OtherEnd& operator=(OtherEnd&&) = delete;
    ~OtherEnd()
    {
        // Opening the pipe for both directions frees an end that still waits for its opening.
        const int both = open(m_path.constData(), O_RDWR | O_NONBLOCK);
        close(both);
        m_thread.join();
    }

private:
    QByteArray m_path;
    std::thread m_thread;
};

} // namespace

void tst_WaitCursor::whileAFileIsRead()
{
    const QString path = outPath("pipe.xml");
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    std::atomic_bool isWaiting{false};
    const QByteArray esi = esiText({"Read from a pipe"}).toUtf8();
    DialogDriver dialogs({choosingPipe(path)});
    {
        const OtherEnd writer(path, [path, esi, &isWaiting] {
            const int pipe = open(QFile::encodeName(path).constData(), O_WRONLY); // comes back when the window reads
            isWaiting = comesToWait();
            static_cast<void>(!write(pipe, esi.constData(), static_cast<std::size_t>(esi.size())));
            close(pipe);
        });
        dialogs.during([this] { part<QAction>(*m_window, "actionimport")->trigger(); });
    }
    QCOMPARE(dialogs.problem(), QString());
    QVERIFY(isWaiting);
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    QCOMPARE(g_xmlfiledevices.size(), std::size_t{2});
    QCOMPARE(g_xmlfiledevices[1].device[0].Name, std::string("Read from a pipe"));
}

void tst_WaitCursor::whileAFileIsWritten()
{
    const QString path = outPath("pipe.ktl");
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    std::atomic_bool isWaiting{false};
    QByteArray written;
    DialogDriver dialogs({choosingPipe(path), pressing(QMessageBox::Yes), pressing(QMessageBox::Yes)});
    {
        const OtherEnd reader(path, [path, &written, &isWaiting] {
            const QByteArray name = QFile::encodeName(path);
            const int pipe = open(name.constData(), O_RDONLY); // comes back when the window writes
            isWaiting = comesToWait();
            char block[4096];
            for (ssize_t count = 0; (count = read(pipe, block, sizeof block)) > 0;)
                written.append(block, static_cast<int>(count));
            close(pipe);
            close(open(name.constData(), O_WRONLY)); // comes back when the window reads for the dump; there is nothing
        });
        runExport(dialogs);
    }
    QVERIFY(isWaiting);
    QCOMPARE(runsIn(written), QStringList({"1", "end"}));
}

static const testMain::Registration<tst_WaitCursor, QApplication> registration;
#include "tst_WaitCursor.moc"
