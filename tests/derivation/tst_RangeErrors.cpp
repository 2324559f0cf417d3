// The words for a PDO on a sync manager that its device does not have.
#include "esi/derivation/rangeErrors.h"
#include "model/missingSyncManager.h"
#include "testMain.h"

#include <QtTest>

#include <stdexcept>

class tst_RangeErrors : public QObject
{
    Q_OBJECT

private slots:
    static void missingSyncManager();
    static void anyOtherRangeError();
};

void tst_RangeErrors::missingSyncManager()
{
    MissingSyncManager error(std::out_of_range("not told"), 0x1A02, "Inputs", 5, 4);
    error.setDevice("EL-01");
    QCOMPARE(rangeErrorText(error),
             QStringLiteral("device \"EL-01\": PDO 0x1a02 \"Inputs\" names sync manager 5, which the device does not "
                            "declare: it has 4"));
}

void tst_RangeErrors::anyOtherRangeError()
{
    QCOMPARE(rangeErrorText(std::out_of_range("not told")),
             QStringLiteral("a number in the file goes beyond the end of a list"));
}

static const testMain::Registration<tst_RangeErrors, QCoreApplication> registration;
#include "tst_RangeErrors.moc"
