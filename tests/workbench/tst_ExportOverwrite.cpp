// Exporting to a file that exists: the question, and what each answer does. The file dialog asks its own question
// first.
// Covers overwriteQuestion.cpp.
#include "testMain.h"
#include "workbench/exportFixture.h"

class tst_ExportOverwrite : public ExportFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { end(); }
    void question();
    void yesOverwrites();
    void noAppends();
    void noAppendsToWhateverIsThere();
    static void closedBoxTouchesNothing_data();
    void closedBoxTouchesNothing();
    void ownQuestionOfTheDialogAnsweredNo();

private:
    QString m_path;
    QByteArray m_before;
};

void tst_ExportOverwrite::init()
{
    begin({fileOfProducts("a.xml", {1})});
    m_path = outPath("a.ktl");
    exportTo(m_path);
    m_before = contentOfFile(m_path);
    QVERIFY(QFile::remove(m_path + ".txt"));
    load({fileOfProducts("b.xml", {2, 3})});
}

void tst_ExportOverwrite::question()
{
    DialogDriver dialogs({choosing(m_path), pressing(QMessageBox::Yes), pressingEscape()});
    runExport(dialogs);
    const SeenDialog box = dialogs.seen(2);
    QCOMPARE(box.text, QStringLiteral("The file already exists\nYes is cover，No is Additional?"));
    QCOMPARE(box.title, QStringLiteral("xml parser"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Yes | QMessageBox::No));
    QVERIFY(!box.hasDefaultButton);
    QCOMPARE(box.parent, static_cast<QWidget*>(m_window.get()));
}

void tst_ExportOverwrite::yesOverwrites()
{
    DialogDriver dialogs({choosing(m_path), pressing(QMessageBox::Yes), pressing(QMessageBox::Yes)});
    runExport(dialogs);
    QCOMPARE(runsIn(contentOfFile(m_path)), QStringList({"2", "3", "end"}));
    QCOMPARE(dumpProblem(m_path), QString());
}

void tst_ExportOverwrite::noAppends()
{
    DialogDriver dialogs({choosing(m_path), pressing(QMessageBox::Yes), pressing(QMessageBox::No)});
    runExport(dialogs);
    const QByteArray after = contentOfFile(m_path);
    QCOMPARE(after.left(m_before.size()), m_before);
    QCOMPARE(runsIn(after), QStringList({"1", "end", "2", "3", "end"}));
    QCOMPARE(dumpProblem(m_path), QString()); // the dump shows the earlier run as well
}

void tst_ExportOverwrite::noAppendsToWhateverIsThere()
{
    // The dump is made from the file as it is on disk, so it ends where that is no KTL file; nobody is told.
    const QByteArray before = QByteArray::fromHex("01000000 04000000");
    QVERIFY(!writeFile(m_out, "a.ktl", before).isEmpty());
    DialogDriver dialogs({choosing(m_path), pressing(QMessageBox::Yes), pressing(QMessageBox::No)});
    runExport(dialogs);
    QCOMPARE(contentOfFile(m_path).left(8), before);
    QCOMPARE(runsIn(contentOfFile(m_path).mid(8)), QStringList({"2", "3", "end"}));
    QCOMPARE(contentOfFile(m_path + ".txt"),
             QByteArray("KTL Version V1.0.28 \nErr para: Id value-dec: 1,Len: 4\r\n  \r\n"));
}

void tst_ExportOverwrite::closedBoxTouchesNothing_data()
{
    QTest::addColumn<bool>("byEscape");
    QTest::addRow("Esc") << true;
    QTest::addRow("window button") << false;
}

void tst_ExportOverwrite::closedBoxTouchesNothing()
{
    QFETCH(bool, byEscape);
    const QDateTime written = QFileInfo(m_path).lastModified();
    DialogDriver dialogs(
        {choosing(m_path), pressing(QMessageBox::Yes), byEscape ? pressingEscape() : closingTheWindow()});
    runExport(dialogs); // and no message follows
    QCOMPARE(contentOfFile(m_path), m_before);
    QCOMPARE(QFileInfo(m_path).lastModified(), written);
    QCOMPARE(outFiles(), QStringList("a.ktl"));
}

void tst_ExportOverwrite::ownQuestionOfTheDialogAnsweredNo()
{
    // Back in the file dialog another name may be chosen.
    DialogDriver dialogs({choosing(m_path), pressing(QMessageBox::No), choosing(outPath("b.ktl"))});
    runExport(dialogs);
    QCOMPARE(contentOfFile(m_path), m_before);
    QCOMPARE(outFiles(), QStringList({"a.ktl", "b.ktl", "b.ktl.txt"}));
}

static const testMain::Registration<tst_ExportOverwrite, QApplication> registration;
#include "tst_ExportOverwrite.moc"
