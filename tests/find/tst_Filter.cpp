// What a user looks for: ranges, patterns, and all of it together.
#include "find/filter.h"
#include "testMain.h"

#include <QtTest>

class tst_Filter : public QObject
{
    Q_OBJECT

private slots:
    static void ranges_data();
    static void ranges();
    static void patterns_data();
    static void patterns();
    static void filters();
};

void tst_Filter::ranges_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto add = [](const char* text, const char* expected) {
        QTest::addRow("%s", text) << QString::fromLatin1(text) << QString::fromLatin1(expected);
    };
    add("0x120000", "120000-120000");
    add("18", "12-12");
    add(">=0x120000", "120000-ffffffff");
    add(">= 0x120000", "120000-ffffffff");
    add(">0x120000", "120001-ffffffff");
    add("<=16", "0-10");
    add("<16", "0-f");
    add("0x100000..0x1fffff", "100000-1fffff");
    add("3 .. 3", "3-3");
    add("4..3", "none");
    add("<0", "none");
    add(">0xffffffff", "none");
    add("", "none");
    add(">=", "none");
    add("..3", "none");
    add("=3", "none");
    add("0x100000000", "none");
    add("1..2..3", "none");
}

void tst_Filter::ranges()
{
    QFETCH(QString, text);
    const std::optional<find::NumberRange> range = find::rangeIn(text);
    QTEST(range.has_value() ? QStringLiteral("%1-%2").arg(range->first, 0, 16).arg(range->last, 0, 16)
                            : QStringLiteral("none"),
          "expected");
}

void tst_Filter::patterns_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("fits");
    QTest::addRow("whole") << "EL67"
                           << "EL6720" << false;
    QTest::addRow("any run") << "EL67*"
                             << "EL6720" << true;
    QTest::addRow("no run") << "EL67*"
                            << "EL67" << true;
    QTest::addRow("case") << "el67*"
                          << "EL6720" << true;
    QTest::addRow("case of other scripts") << u8"\u00E4*" << u8"\u00C4B" << true;
    QTest::addRow("one character") << "EL672?"
                                   << "EL6720" << true;
    QTest::addRow("none is not one") << "EL6720?"
                                     << "EL6720" << false;
    QTest::addRow("one beyond 16 bits") << "a?b" << u8"a\U0001F600b" << true;
    QTest::addRow("several runs") << "*a*b*c"
                                  << "xaxbxbxc" << true;
    QTest::addRow("several runs, none left") << "*a*b*c"
                                             << "xaxbxbx" << false;
    QTest::addRow("nothing fits nothing") << ""
                                          << "" << true;
    QTest::addRow("nothing fits no text") << ""
                                          << "a" << false;
    QTest::addRow("no brackets") << "[a]"
                                 << "a" << false;
}

void tst_Filter::patterns()
{
    QFETCH(QString, pattern);
    QFETCH(QString, text);
    QTEST(find::Pattern(pattern).fits(text.toStdString()), "fits");
}

void tst_Filter::filters()
{
    const find::Found device{find::FoundKind::Device, 1, 2, 3, "type", "name", 4};
    const find::Found module{find::FoundKind::Module, 1, 2, 0, "type", "name", 4};
    find::Filter filter;
    QVERIFY(filter.fits(device) && !filter.fits(module));
    filter.wanted = find::Wanted::DevicesAndModules;
    filter.vendor = 1;
    filter.number = 2;
    filter.type = find::Pattern("T*");
    QVERIFY(filter.fits(device) && filter.fits(module));
    filter.revision = find::NumberRange{0, 3};
    QVERIFY(filter.fits(device) && !filter.fits(module));
    filter.revision = find::NumberRange{4, 5};
    QVERIFY(!filter.fits(device));
    filter.revision.reset();
    filter.name = find::Pattern("other");
    QVERIFY(!filter.fits(device));
    filter.name.reset();
    filter.number = 3;
    QVERIFY(!filter.fits(device));
    filter.number.reset();
    filter.vendor = 0;
    QVERIFY(!filter.fits(device));
}

static const testMain::Registration<tst_Filter, testMain::NoApplication> registration;
#include "tst_Filter.moc"
