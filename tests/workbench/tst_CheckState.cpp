// How check states spread in a tree: down to children, up to ancestors.
#include "testMain.h"
#include "workbench/checkState.h"

#include <QTreeWidget>
#include <QtTest>

class tst_CheckState : public QObject
{
    Q_OBJECT

private slots:
    static void pushedDown_data();
    static void pushedDown();
    static void ancestorsArePartial();
    static void recomputed_data();
    static void recomputed();
    static void ancestorsOfAPartialOneArePartial();
    static void withoutChildren();
};

namespace {

/// A top item with two children, the first of which has two of its own. A state is one letter, in the order of the
/// tree: top, first, its two children, second.
class Family
{
public:
    explicit Family(const QString& states)
    {
        for (QTreeWidgetItem* item : {&m_top, first(), first()->child(0), first()->child(1), m_top.child(1)})
            m_items.append(item);
        for (int position = 0; position < states.size(); ++position)
            m_items[position]->setCheckState(0, stateOf(states[position]));
    }

    /// @param position  in the order of the tree
    [[nodiscard]] QTreeWidgetItem* item(int position) const { return m_items[position]; }

    [[nodiscard]] QString states() const
    {
        QString states;
        for (const QTreeWidgetItem* item : m_items)
            states += QStringLiteral("upc")[int(item->checkState(0))];
        return states;
    }

private:
    static Qt::CheckState stateOf(QChar letter)
    {
        return letter == 'c' ? Qt::Checked : letter == 'p' ? Qt::PartiallyChecked : Qt::Unchecked;
    }

    QTreeWidgetItem* first()
    {
        if (m_top.childCount() == 0) {
            m_top.addChildren({new QTreeWidgetItem, new QTreeWidgetItem});
            m_top.child(0)->addChildren({new QTreeWidgetItem, new QTreeWidgetItem});
        }
        return m_top.child(0);
    }

    QTreeWidgetItem m_top; ///< owns the others
    QList<QTreeWidgetItem*> m_items;
};

} // namespace

void tst_CheckState::pushedDown_data()
{
    QTest::addColumn<QString>("before"); // u: unchecked, p: partially checked, c: checked
    QTest::addColumn<int>("item");
    QTest::addColumn<QString>("after");
    QTest::addRow("checked, to all levels") << "cuuuu" << 0 << "ccccc";
    QTest::addRow("unchecked, to all levels") << "ucccc" << 0 << "uuuuu";
    QTest::addRow("from the middle, to the children only") << "pcuuu" << 1 << "pcccu";
    QTest::addRow("a partial state is not pushed") << "pcucu" << 0 << "pcucu";
    QTest::addRow("an item without children") << "puucu" << 3 << "puucu";
}

void tst_CheckState::pushedDown()
{
    QFETCH(QString, before);
    QFETCH(int, item);
    const Family family(before);
    pushStateDown(family.item(item));
    QTEST(family.states(), "after");
}

void tst_CheckState::ancestorsArePartial()
{
    const Family family(QStringLiteral("cccuc"));
    markAncestorsPartial(family.item(3));
    QCOMPARE(family.states(), QStringLiteral("ppcuc"));
}

void tst_CheckState::recomputed_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("item");
    QTest::addColumn<QString>("after");
    QTest::addRow("all are checked") << "uuccc" << 2 << "ccccc";
    QTest::addRow("none is checked") << "ccuuu" << 2 << "uuuuu";
    QTest::addRow("some of the lowest") << "ccucc" << 2 << "ppucc";
    QTest::addRow("all of the lowest, not their neighbour") << "uuccu" << 3 << "pcccu";
    QTest::addRow("a neighbour that is partial") << "cuccp" << 2 << "pcccp";
    QTest::addRow("below the top only") << "ucccu" << 4 << "pcccu";
}

void tst_CheckState::recomputed()
{
    QFETCH(QString, before);
    QFETCH(int, item);
    const Family family(before);
    recomputeAncestors(family.item(item));
    QTEST(family.states(), "after");
}

void tst_CheckState::ancestorsOfAPartialOneArePartial()
{
    const Family family(QStringLiteral("ccpuc"));
    recomputeAncestors(family.item(2));
    QCOMPARE(family.states(), QStringLiteral("pppuc"));
}

void tst_CheckState::withoutChildren()
{
    QTreeWidgetItem alone;
    alone.setCheckState(0, Qt::Checked);
    pushStateDown(&alone);
    recomputeAncestors(&alone);
    markAncestorsPartial(&alone);
    QCOMPARE(alone.checkState(0), Qt::Checked);
}

static const testMain::Registration<tst_CheckState, QApplication> registration;
#include "tst_CheckState.moc"
