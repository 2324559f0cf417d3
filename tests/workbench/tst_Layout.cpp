// Nothing of the form is clipped at the usual sizes of the window, in the font of the program.
#include "workbench/mainwindow.h"
#include "workbench/modelBuilders.h"
#include "workbench/windowParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>

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

/// Whether a widget shows all of its text.
static bool isWhole(const QWidget* widget)
{
    const QSize needed = widget->sizeHint();
    const QRect place(widget->mapTo(widget->window(), QPoint(0, 0)), widget->size());
    return widget->width() >= needed.width() && widget->height() >= needed.height()
           && widget->window()->rect().contains(place);
}

void tst_Layout::text_data()
{
    addSizes();
}

void tst_Layout::text()
{
    QFETCH(QSize, size);
    resizeTo(size);
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
            if (!isWhole(widget))
                clipped.append(widget->objectName());
        }
    }
    QCOMPARE(clipped, QStringList());
    QCOMPARE(seen, 33); // all labels, check boxes and buttons that have a text
    QVERIFY(isWhole(tabs->tabBar()));
}

void tst_Layout::windowKeepsItsSize_data()
{
    addSizes();
}

void tst_Layout::windowKeepsItsSize()
{
    QFETCH(QSize, size);
    resizeTo(size);
    QCOMPARE(m_window->size(), size); // no part asks for more
    QVERIFY(deviceTree(*m_window)->width() >= 200);
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

QTEST_MAIN(tst_Layout)
#include "tst_Layout.moc"
