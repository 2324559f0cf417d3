// How the window comes up: font by the width of the screen, title, flags and size.
#include "testMain.h"
#include "workbench/windowSetUp.h"

#include <QWidget>
#include <QtTest>

class tst_WindowSetUp : public QObject
{
    Q_OBJECT

private slots:
    static void pointSize_data();
    static void pointSize();
    static void restOfTheFontStays();
    static void titleAndFlags();
    static void styleSheetIsEmptied();
    static void size_data();
    static void size();
    static void minimumSizeHolds();
};

void tst_WindowSetUp::pointSize_data()
{
    QTest::addColumn<int>("screenWidth");
    QTest::addColumn<int>("points");
    QTest::addRow("800: first band") << 800 << 12;
    QTest::addRow("1899: last of the first band") << 1899 << 12;
    QTest::addRow("1900: first of the band between") << 1900 << 12;
    QTest::addRow("4089: last of the band between") << 4089 << 12;
    QTest::addRow("4090: first of the wide band") << 4090 << 14;
    QTest::addRow("7680: wide") << 7680 << 14;
}

void tst_WindowSetUp::pointSize()
{
    QFETCH(int, screenWidth);
    QFETCH(int, points);
    const QFont font = applicationFont(QFont(QStringLiteral("DejaVu Sans"), 9), screenWidth);
    QCOMPARE(font.family(), QStringLiteral("Microsoft YaHei"));
    QCOMPARE(font.pointSize(), points);
}

void tst_WindowSetUp::restOfTheFontStays()
{
    const QFont base(QStringLiteral("DejaVu Sans"), 9, QFont::Bold, true);
    const QFont font = applicationFont(base, 1920);
    QCOMPARE(font.weight(), int(QFont::Bold));
    QVERIFY(font.italic());
}

void tst_WindowSetUp::titleAndFlags()
{
    QWidget window;
    window.setWindowTitle(QStringLiteral("before"));
    setUpMainWindow(window, QRect(0, 0, 1920, 1080));
    QCOMPARE(window.windowTitle(), QStringLiteral("Kinetra Xml Parser"));
    QCOMPARE(window.windowType(), Qt::Window);
}

void tst_WindowSetUp::styleSheetIsEmptied()
{
    QWidget window;
    window.setStyleSheet(QStringLiteral("QWidget { color: red }"));
    setUpMainWindow(window, QRect(0, 0, 1920, 1080));
    QCOMPARE(window.styleSheet(), QString());
}

void tst_WindowSetUp::size_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<QSize>("expected");
    QTest::addRow("3840x2160: 0.55 and 0.6 of it") << QSize(3840, 2160) << QSize(2112, 1296);
    QTest::addRow("2561x1441: 1408.55 and 864.6 are truncated") << QSize(2561, 1441) << QSize(1408, 864);
    QTest::addRow("2559x1439: 1407.45 and 863.4 are truncated") << QSize(2559, 1439) << QSize(1407, 863);
    QTest::addRow("1920x1080: the least size wins") << QSize(1920, 1080) << QSize(1400, 800);
    QTest::addRow("800x600: larger than the screen") << QSize(800, 600) << QSize(1400, 800);
    QTest::addRow("3440x1200: the least height wins") << QSize(3440, 1200) << QSize(1892, 800);
    QTest::addRow("1600x1600: the least width wins") << QSize(1600, 1600) << QSize(1400, 960);
}

void tst_WindowSetUp::size()
{
    QFETCH(QSize, screen);
    QFETCH(QSize, expected);
    QWidget window;
    setUpMainWindow(window, QRect(QPoint(0, 0), screen));
    QCOMPARE(window.size(), expected);
}

void tst_WindowSetUp::minimumSizeHolds()
{
    QWidget window;
    setUpMainWindow(window, QRect(0, 0, 3840, 2160));
    QCOMPARE(window.minimumSize(), QSize(1400, 800));
    window.resize(1000, 700);
    QCOMPARE(window.size(), QSize(1400, 800));
}

static const testMain::Registration<tst_WindowSetUp, QApplication> registration;
#include "tst_WindowSetUp.moc"
