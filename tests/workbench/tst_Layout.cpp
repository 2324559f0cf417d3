// Nothing of the form is clipped at the usual sizes of the window, in the font of the program.
#include "testMain.h"
#include "workbench/elision.h"
#include "workbench/mainwindow.h"
#include "workbench/modelBuilders.h"
#include "workbench/tableFont.h"
#include "workbench/tableViews.h"
#include "workbench/windowParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QStandardItemModel>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QtMath>

#include <memory>

class tst_Layout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    static void text_data();
    void text();
    static void windowKeepsItsSize_data();
    void windowKeepsItsSize();
    static void rowHeight_data();
    static void rowHeight();
    void rowsAreAsHighAsTheirText();
    static void mailboxSizes_data();
    void mailboxSizes();
    static void longestDeviceType_data();
    void longestDeviceType();
    static void chineseTexts();

private:
    /// Resizes the window and lets the layouts settle.
    void resizeTo(const QSize& size);

    std::unique_ptr<MainWindow> m_window;
    QFont m_fontBefore;
};

void tst_Layout::initTestCase()
{
    m_fontBefore = QApplication::font();
}

void tst_Layout::init()
{
    resetModel();
    m_window = std::make_unique<MainWindow>();
    QApplication::setFont(applicationFont(m_fontBefore, 2560));
    showWindow(*m_window);
}

void tst_Layout::cleanup()
{
    m_window.reset();
    QApplication::setFont(m_fontBefore);
}

void tst_Layout::resizeTo(const QSize& size)
{
    m_window->resize(size);
    QCoreApplication::processEvents();
}

static void addSizes()
{
    QTest::addColumn<QSize>("size");
    QTest::addRow("least size") << QSize(1400, 800);
    QTest::addRow("large screen") << QSize(2560, 1440);
}

/// The form, which scrolls where the window is too small for it.
static QScrollArea& form(const MainWindow& window)
{
    return *static_cast<QScrollArea*>(window.centralWidget());
}

/// Whether a widget shows all of its text, perhaps after some scrolling.
static bool isWhole(const QWidget* widget, const QWidget* whole)
{
    const QSize needed = widget->sizeHint();
    const QRect place(widget->mapTo(whole, QPoint(0, 0)), widget->size());
    return widget->width() >= needed.width() && widget->height() >= needed.height() && whole->rect().contains(place);
}

void tst_Layout::text_data()
{
    addSizes();
}

void tst_Layout::text()
{
    QFETCH(QSize, size);
    resizeTo(size);
    constexpr int settlingTime = 1000;
    auto* const tabs = part<QTabWidget>(*m_window, "tabWidget");
    QStringList clipped;
    int seen = 0;
    for (int index = 0; index < tabs->count(); ++index) {
        tabs->setCurrentIndex(index);
        QCoreApplication::processEvents();
        for (const QWidget* widget : tabs->currentWidget()->findChildren<QWidget*>()) {
            const bool hasText = qobject_cast<const QLabel*>(widget) != nullptr
                                 || qobject_cast<const QAbstractButton*>(widget) != nullptr;
            if (!hasText || !widget->isVisible() || widget->property("text").toString().isEmpty())
                continue;
            ++seen;
            // The layouts settle from the inside out, in a few rounds of events.
            if (!QTest::qWaitFor([&] { return isWhole(widget, form(*m_window).widget()); }, settlingTime))
                clipped.append(widget->objectName());
        }
    }
    QCOMPARE(clipped.join(QLatin1Char(' ')), QString());
    QCOMPARE(seen, 33); // all labels, check boxes and buttons that have a text
    QVERIFY(isWhole(tabs->tabBar(), form(*m_window).widget()));
}

void tst_Layout::windowKeepsItsSize_data()
{
    addSizes();
}

void tst_Layout::windowKeepsItsSize()
{
    QFETCH(QSize, size);
    resizeTo(size);
    QCOMPARE(m_window->size(), size);
    QCOMPARE(form(*m_window).widget()->size(), form(*m_window).size()); // no part asks for more
    QVERIFY(deviceTree(*m_window)->width() >= 200);
}

void tst_Layout::rowHeight_data()
{
    QTest::addColumn<int>("textHeight");
    QTest::addColumn<int>("height");
    QTest::addRow("small text: the least height") << 14 << 26;
    QTest::addRow("usual text: 1.3 times 20 is the least height") << 20 << 26;
    QTest::addRow("27.3 is rounded up") << 21 << 28;
    QTest::addRow("half as large again") << 30 << 39;
    QTest::addRow("twice as large") << 40 << 52;
}

void tst_Layout::rowHeight()
{
    QFETCH(int, textHeight);
    QFETCH(int, height);
    QCOMPARE(rowHeightFor(textHeight), height);
}

void tst_Layout::rowsAreAsHighAsTheirText()
{
    const QList<QTableView*> tables = m_window->findChildren<QTableView*>();
    QCOMPARE(tables.size(), 10);
    for (QTableView* table : tables) {
        appendRow(*qobject_cast<QStandardItemModel*>(table->model()), {QStringLiteral("g")});
        QCOMPARE(table->rowHeight(0), qMax(26, qCeil(1.3 * table->fontMetrics().height())));
        // Nobody makes a row too low either.
        table->setRowHeight(0, 1);
        QCOMPARE(table->rowHeight(0), table->verticalHeader()->defaultSectionSize());
    }
}

void tst_Layout::mailboxSizes_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<int>("points");
    // Where a family is missing its rows run with what the system has in its place.
    for (const char* family : {"DejaVu Sans", "DejaVu Sans Mono", "Noto Sans CJK SC", "Noto Serif CJK SC"})
        for (const int points : {8, 9, 10, 12, 14, 20})
            QTest::addRow("%s, %d point", family, points) << QString::fromLatin1(family) << points;
}

/// The column of 45 pixels shows the usual size of a mailbox, however wide the letters are.
void tst_Layout::mailboxSizes()
{
    QFETCH(QString, family);
    QFETCH(int, points);
    QApplication::setFont(QFont(family, points));
    auto* const table = part<QTableView>(*m_window, "SyncManagerView");
    part<QTabWidget>(*m_window, "tabWidget")->setCurrentIndex(1);
    const QString text = QStringLiteral("256.00");
    appendRow(*qobject_cast<QStandardItemModel*>(table->model()), {QStringLiteral("0"), text});
    const QModelIndex cell = table->model()->index(0, 1);
    QVERIFY2(!isElided(*table, cell), "in the font that the table was set up with");
    QVERIFY(table->font().pointSize() <= 9);

    const int room = table->columnWidth(1) - 1; // the line of the grid
    QFont font = fittingFont(QFont(family, points), text, room, *table);
    table->setFont(font);
    QVERIFY2(!isElided(*table, cell), qPrintable(QStringLiteral("%1 point").arg(font.pointSize())));
    if (font.pointSize() == points)
        return;
    font.setPointSize(font.pointSize() + 1);
    table->setFont(font);
    QVERIFY2(isElided(*table, cell), "a larger font fits too");
}

void tst_Layout::longestDeviceType_data()
{
    addSizes();
}

void tst_Layout::longestDeviceType()
{
    QFETCH(QSize, size);
    resizeTo(size);
    part<QTabWidget>(*m_window, "tabWidget")->setCurrentIndex(0);
    QCoreApplication::processEvents();
    const auto* const box = part<QComboBox>(*m_window, "comboBox_DeviceType");
    int longest = 0;
    for (int index = 0; index < box->count(); ++index)
        longest = qMax(longest, box->fontMetrics().horizontalAdvance(box->itemText(index)));
    QVERIFY2(box->lineEdit()->width() >= longest,
             qPrintable(QStringLiteral("%1 of %2 pixels").arg(box->lineEdit()->width()).arg(longest)));
}

static QImage drawn(QChar character, const QFont& font)
{
    QImage image(64, 64, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    painter.drawText(image.rect(), Qt::AlignCenter, character);
    return image;
}

void tst_Layout::chineseTexts()
{
    QVERIFY2(!QFontDatabase().families(QFontDatabase::SimplifiedChinese).isEmpty(),
             "The system has no Chinese font; the set-up of the project installs one.");
    const QFont font = applicationFont(QApplication::font(), 1920);
    const QString characters = QStringLiteral("打开导出入关于退单模块电机多耦合器特殊设备");
    // Characters that no font has all look alike, as the one of the private area does.
    QVector<QImage> images{drawn(QChar(0xE123), font)};
    for (const QChar character : characters) {
        const QImage image = drawn(character, font);
        QVERIFY2(!images.contains(image), qPrintable(QString(character)));
        images.append(image);
    }
}

static const testMain::Registration<tst_Layout, QApplication> registration;
#include "tst_Layout.moc"
