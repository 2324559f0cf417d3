// The walk over `Modules`: runs of modules, grouped under the comment before each run.
#include "esi/readDocument.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <vector>

class tst_WalkModules : public QObject
{
    Q_OBJECT

private slots:
    static void groups_data();
    static void groups();
    static void parents_data();
    static void parents();
    static void modulesAreRead();
    static void modulesBelongToTheFile();
};

namespace {

/// "comment:number of modules" per group.
QStringList groupsOf(const struct_FilenameDevice& file)
{
    QStringList found;
    for (const struct_commentmodule& group : file.vcommentmodule)
        found << QStringLiteral("%1:%2").arg(QString::fromStdString(group.comment)).arg(group.vmodule.size());
    return found;
}

} // namespace

void tst_WalkModules::groups_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<QStringList>("expected");
    QTest::addRow("nothing") << "" << QStringList{};
    QTest::addRow("modules before any comment have an empty one") << "<Module/><Module/>" << QStringList{":2"};
    QTest::addRow("one run") << "<!--A--><Module/><Module/>" << QStringList{"A:2"};
    QTest::addRow("a comment between two runs starts a new group")
        << "<!--A--><Module/><!--B--><Module/><Module/>" << QStringList{"A:1", "B:2"};
    QTest::addRow("a run before the first comment") << "<Module/><!--B--><Module/>" << QStringList{":1", "B:1"};
    QTest::addRow("of several comments in a row the last one counts")
        << "<!--A--><!--B--><Module/>" << QStringList{"B:1"};
    QTest::addRow("a comment at the end makes no group") << "<Module/><!--B-->" << QStringList{":1"};
    QTest::addRow("comments alone make no group") << "<!--A--><!--B-->" << QStringList{};
    QTest::addRow("the comment is taken whole") << "<!-- A \n B --><Module/>" << QStringList{" A \n B :1"};
    QTest::addRow("an empty comment overrides") << "<!--A--><!----><Module/>" << QStringList{":1"};
    QTest::addRow("line ends and blanks between are nothing") << "\r\n\t<!--A-->\r\n\t<Module/>\r\n\t<Module/>\r\n"
                                                              << QStringList{"A:2"};

    QTest::addRow("inside a run an element of any tag is a module")
        << "<Module/><Other/><Module/>" << QStringList{":3"};
    QTest::addRow("inside a run a text is passed over") << "<Module/>text<Module/>" << QStringList{":2"};
    QTest::addRow("inside a run a CDATA section is passed over")
        << "<Module/><![CDATA[text]]><Module/>" << QStringList{":2"};
    QTest::addRow("inside a run an instruction is passed over") << "<Module/><?note x?><Module/>" << QStringList{":2"};

    QTest::addRow("a text before a run is stepped over") << "text<Module/>" << QStringList{":1"};
    QTest::addRow("a text before a run drops the comment before it") << "<!--A-->text<Module/>" << QStringList{":1"};
    QTest::addRow("a text alone makes no group") << "text" << QStringList{};
    QTest::addRow("a text between two comments") << "<!--A-->text<!--B--><Module/>" << QStringList{"B:1"};
    QTest::addRow("an instruction before a run is stepped over") << "<?note x?><Module/>" << QStringList{":1"};
    QTest::addRow("a CDATA section before a run is stepped over") << "<![CDATA[x]]><Module/>" << QStringList{":1"};
    QTest::addRow("another tag at the start makes one empty group")
        << "<!--A--><Other/><Module/>" << QStringList{"A:0", ":1"};
    QTest::addRow("another tag at the start, without a comment") << "<Other/>" << QStringList{":0"};
    QTest::addRow("each other tag at the start makes an empty group")
        << "<Other/><Other/><Module/>" << QStringList{":0", ":0", ":1"};
    QTest::addRow("another tag after a comment after a run") << "<Module/><!--B--><Other/>" << QStringList{":1", "B:0"};
    QTest::addRow("a longer tag is another tag") << "<Modules2/><Module/>" << QStringList{":0", ":1"};
    QTest::addRow("a tag in other case is another tag") << "<module/><Module/>" << QStringList{":0", ":1"};
}

void tst_WalkModules::groups()
{
    QFETCH(QString, xml);
    QFETCH(QStringList, expected);
    QCOMPARE(groupsOf(readDescriptions(QStringLiteral("<Modules>%1</Modules>").arg(xml))), expected);
}

void tst_WalkModules::parents_data()
{
    QTest::addColumn<QString>("xml");
    QTest::addColumn<QStringList>("expected");
    const QString modules = QStringLiteral("<Modules><!--%1--><Module/></Modules>");
    QTest::addRow("under the descriptions")
        << "<Descriptions>" + modules.arg("A") + "</Descriptions>" << QStringList{"A:1"};
    QTest::addRow("a parent tag that holds the word passes")
        << "<MyDescriptions2>" + modules.arg("A") + "</MyDescriptions2>" << QStringList{"A:1"};
    QTest::addRow("another parent") << "<Descriptions><Device>" + modules.arg("A") + "</Device></Descriptions>"
                                    << QStringList{};
    QTest::addRow("a parent tag in other case")
        << "<descriptions>" + modules.arg("A") + "</descriptions>" << QStringList{};
    QTest::addRow("a longer tag") << "<Descriptions><Modules2><Module/></Modules2></Descriptions>" << QStringList{};
    QTest::addRow("two elements in document order")
        << "<Descriptions>" + modules.arg("A") + modules.arg("B") + "</Descriptions>" << QStringList{"A:1", "B:1"};
    QTest::addRow("a comment does not carry over to the next element")
        << "<Descriptions><Modules><!--A--></Modules><Modules><Module/></Modules></Descriptions>" << QStringList{":1"};
}

void tst_WalkModules::parents()
{
    QFETCH(QString, xml);
    QFETCH(QStringList, expected);
    const struct_FilenameDevice file =
        readDocument(QStringLiteral("<EtherCATInfo><Vendor/>%1</EtherCATInfo>").arg(xml));
    QCOMPARE(groupsOf(file), expected);
}

void tst_WalkModules::modulesAreRead()
{
    const struct_FilenameDevice file = readDescriptions(
        "<Modules><Module><Type ModuleIdent='1'>A</Type></Module><Module/><Other><Type ModuleIdent='3'"
        "/><Profile><Dictionary><Objects><Object/></Objects></Dictionary></Profile></Other></Modules>");
    QCOMPARE(groupsOf(file), QStringList{":3"});
    const std::vector<struct_module>& modules = file.vcommentmodule[0].vmodule;
    QCOMPARE(modules[0].TypeAttributes.ModuleIdent, 1U);
    QCOMPARE(QString::fromStdString(modules[0].TypeAttributes.Name), QStringLiteral("A"));
    QCOMPARE(modules[1].TypeAttributes.ModuleIdent, 0U); // nothing of one module reaches the next one
    QVERIFY(modules[1].TypeAttributes.Name.empty());
    QCOMPARE(modules[2].TypeAttributes.ModuleIdent, 3U);
    QCOMPARE(modules[2].Dictionary.vobject.size(), std::size_t{1});
}

void tst_WalkModules::modulesBelongToTheFile()
{
    const struct_FilenameDevice file =
        readDescriptions("<Devices><Device/><Device/></Devices><Modules><!--A--><Module/></Modules>");
    QCOMPARE(file.device.size(), std::size_t{2});
    QCOMPARE(groupsOf(file), QStringList{"A:1"});
    // Nothing of one file reaches the next one.
    QCOMPARE(groupsOf(readDescriptions("<Devices/>")), QStringList{});
}

static const testMain::Registration<tst_WalkModules, QCoreApplication> registration;
#include "tst_WalkModules.moc"
