// The warnings of slots that are not meant to be connected by name are left out, all other messages are not.
#include "testMain.h"
#include "workbench/unmatchedSlotSilencer.h"

#include <QtTest>

class tst_UnmatchedSlotSilencer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { qInstallMessageHandler(m_before); }
    static void messages_data();
    static void messages();
    static void afterItsLife();

private:
    QtMessageHandler m_before = nullptr;
};

namespace {

QStringList& heard()
{
    static QStringList messages;
    return messages;
}

void hear(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message)
{
    heard().append(message);
}

constexpr const char* unmatched = "QMetaObject::connectSlotsByName: No matching signal for on_pdo_modify()";

} // namespace

void tst_UnmatchedSlotSilencer::init()
{
    heard().clear();
    m_before = qInstallMessageHandler(hear);
}

void tst_UnmatchedSlotSilencer::messages_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("isHeard");
    QTest::addRow("a slot without a signal") << unmatched << false;
    QTest::addRow("another message of the connecting")
        << "QMetaObject::connectSlotsByName: Connecting slot on_a_b() with the first of several" << true;
    QTest::addRow("the words further on") << QString("that was ") + unmatched << true;
    QTest::addRow("any other") << "some words" << true;
}

void tst_UnmatchedSlotSilencer::messages()
{
    QFETCH(QString, message);
    QFETCH(bool, isHeard);
    const UnmatchedSlotSilencer silencer;
    qWarning("%s", qPrintable(message));
    QCOMPARE(heard(), isHeard ? QStringList(message) : QStringList());
}

void tst_UnmatchedSlotSilencer::afterItsLife()
{
    {
        const UnmatchedSlotSilencer silencer;
    }
    qWarning("%s", unmatched);
    QCOMPARE(heard(), QStringList(QString::fromLatin1(unmatched)));
}

static const testMain::Registration<tst_UnmatchedSlotSilencer, QCoreApplication> registration;
#include "tst_UnmatchedSlotSilencer.moc"
