// Drags of files pass by the parts of a window; drags of text do not.
#include "testMain.h"
#include "workbench/fileDrags.h"

#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>
#include <QtTest>

class tst_FileDrags : public QObject
{
    Q_OBJECT

private slots:
    static void drags_data();
    static void drags();
    static void partsThatAreMadeLater();
};

namespace {

/// Whether a part takes a drag that enters it.
bool takes(QWidget& part, const QMimeData& data)
{
    QDragEnterEvent event(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(&part, &event);
    return event.isAccepted();
}

} // namespace

void tst_FileDrags::drags_data()
{
    QTest::addColumn<bool>("isFile");
    QTest::addRow("file") << true;
    QTest::addRow("text") << false;
}

void tst_FileDrags::drags()
{
    QFETCH(bool, isFile);
    QMimeData data;
    data.setText(QStringLiteral("words"));
    if (isFile)
        data.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/a.xml"))});
    QWidget window;
    auto* const field = new QLineEdit(&window);
    QVERIFY(takes(*field, data)); // as the toolkit has it
    passFileDragsToWindow(window);
    QCOMPARE(takes(*field, data), !isFile);
}

void tst_FileDrags::partsThatAreMadeLater()
{
    QMimeData data;
    data.setText(QStringLiteral("words"));
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/a.xml"))});
    QWidget window;
    passFileDragsToWindow(window);
    auto* const field = new QLineEdit(&window);
    QVERIFY(takes(*field, data));
}

static const testMain::Registration<tst_FileDrags, QApplication> registration;
#include "tst_FileDrags.moc"
